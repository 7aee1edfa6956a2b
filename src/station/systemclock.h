#pragma once
#include "station/ports.h"

#include <optional>
#include <random>
#include <string>

namespace orvane {

// The machine's clock; the random source seeded from the clock, or from a given seed.
class SystemClock : public Clock {
  public:
    SystemClock();
    explicit SystemClock(std::uint32_t seed);
    std::tm now() override;
    float rnd() override;
    // The clock stands at TIME until it is set again (the headless front's --clock and clock:).
    void stand(const std::tm& time) { standing_ = time; }

  private:
    std::mt19937 random_;
    std::optional<std::tm> standing_;
};

// "YYYYMMDD-hhmmss" as a time; nullopt when the text is not one.
std::optional<std::tm> clocktime(const std::string& text);

} // namespace orvane

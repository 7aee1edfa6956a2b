#pragma once
#include "station/ports.h"

#include <random>

namespace orvane {

// The machine's clock; the random source seeded from the clock, or from a given seed.
class SystemClock : public Clock {
  public:
    SystemClock();
    explicit SystemClock(std::uint32_t seed);
    std::tm now() override;
    float rnd() override;

  private:
    std::mt19937 random_;
};

} // namespace orvane

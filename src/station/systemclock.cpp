#include "station/systemclock.h"

#include <chrono>

namespace orvane {

SystemClock::SystemClock()
    : random_(static_cast<std::uint32_t>(std::chrono::system_clock::now().time_since_epoch().count())) {}

SystemClock::SystemClock(std::uint32_t seed) : random_(seed) {}

std::tm SystemClock::now() {
    std::time_t t = std::time(nullptr);
    std::tm local{};
    localtime_r(&t, &local);
    return local;
}

float SystemClock::rnd() {
    float v = std::uniform_real_distribution<float>(0.0f, 1.0f)(random_);
    return v < 1.0f ? v : 0.0f;
}

} // namespace orvane

#include "station/systemclock.h"

#include <chrono>

namespace orvane {

SystemClock::SystemClock()
    : random_(static_cast<std::uint32_t>(std::chrono::system_clock::now().time_since_epoch().count())) {}

SystemClock::SystemClock(std::uint32_t seed) : random_(seed) {}

std::tm SystemClock::now() {
    if (standing_) return *standing_;
    std::time_t t = std::time(nullptr);
    std::tm local{};
    localtime_r(&t, &local);
    return local;
}

float SystemClock::rnd() {
    float v = std::uniform_real_distribution<float>(0.0f, 1.0f)(random_);
    return v < 1.0f ? v : 0.0f;
}

std::optional<std::tm> clocktime(const std::string& text) {
    if (text.size() != 15 || text[8] != '-') return std::nullopt;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (i != 8 && (text[i] < '0' || text[i] > '9')) return std::nullopt;
    auto n = [&](std::size_t at, std::size_t width) { return std::stoi(text.substr(at, width)); };
    std::tm t{};
    t.tm_year = n(0, 4) - 1900;
    t.tm_mon = n(4, 2) - 1;
    t.tm_mday = n(6, 2);
    t.tm_hour = n(9, 2);
    t.tm_min = n(11, 2);
    t.tm_sec = n(13, 2);
    if (t.tm_mon < 0 || t.tm_mon > 11 || t.tm_mday < 1 || t.tm_mday > 31 || t.tm_hour > 23 || t.tm_min > 59 ||
        t.tm_sec > 59)
        return std::nullopt;
    return t;
}

} // namespace orvane

#include "app/numbers.h"

#include <charconv>
#include <cmath>

namespace orvane {

double roundeven(double v) {
    return std::nearbyint(v);
} // the default rounding mode is to nearest, ties even

std::optional<std::int16_t> toint16(double v) {
    double r = roundeven(v);
    if (!(r >= -32768 && r <= 32767)) return std::nullopt;
    return static_cast<std::int16_t>(r);
}

std::string shortestdouble(double v) {
    char buf[64];
    auto res = std::to_chars(buf, buf + sizeof buf, v);
    return std::string(buf, res.ptr);
}

std::string shortestfloat(float v) {
    char buf[64];
    auto res = std::to_chars(buf, buf + sizeof buf, v);
    return std::string(buf, res.ptr);
}

} // namespace orvane

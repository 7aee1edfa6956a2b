#include "station/numbers.h"

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

std::string formatfixed(double v, int intdigits, int decimals) {
    double scale = std::pow(10.0, decimals);
    double units = std::round(std::fabs(v) * scale);
    if (!(units < 1e17)) return shortestdouble(v); // beyond what a label ever shows
    std::string digits = std::to_string(static_cast<long long>(units));
    // Digits enough for the decimals and the integer part.
    const std::size_t need = static_cast<std::size_t>(decimals + std::max(intdigits, 1));
    if (digits.size() < need) digits.insert(0, need - digits.size(), '0');
    std::string text = digits.substr(0, digits.size() - decimals);
    if (intdigits == 0 && text == "0") text.clear();
    if (decimals > 0) text += "." + digits.substr(digits.size() - decimals);
    return (v < 0 && units != 0 ? "-" : "") + text;
}

} // namespace orvane

#include "station/numbers.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace orvane {

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

std::optional<double> typednumber(const std::string& text) {
    std::size_t i = text.find_first_not_of(' '), end = text.find_last_not_of(' ');
    if (i == std::string::npos) return std::nullopt;
    const std::string t = text.substr(i, end - i + 1);
    std::size_t k = 0, digits = 0;
    if (k < t.size() && (t[k] == '+' || t[k] == '-')) ++k;
    for (; k < t.size() && std::isdigit(static_cast<unsigned char>(t[k])); ++k) ++digits;
    if (k < t.size() && t[k] == '.')
        for (++k; k < t.size() && std::isdigit(static_cast<unsigned char>(t[k])); ++k) ++digits;
    if (digits == 0) return std::nullopt;
    if (k < t.size() && (t[k] == 'e' || t[k] == 'E')) {
        ++k;
        if (k < t.size() && (t[k] == '+' || t[k] == '-')) ++k;
        std::size_t exponent = 0;
        for (; k < t.size() && std::isdigit(static_cast<unsigned char>(t[k])); ++k) ++exponent;
        if (exponent == 0) return std::nullopt;
    }
    if (k != t.size()) return std::nullopt;
    const double v = std::strtod(t.c_str(), nullptr);
    if (!std::isfinite(v) || std::fabs(v) > std::numeric_limits<float>::max()) return std::nullopt;
    return v;
}

} // namespace orvane

#pragma once
// Number conversions as the station makes them.
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>

namespace orvane {

// Real to integer: nearest, ties to even. Below 2^51 in size, adding 1.5 · 2^52 and taking it away
// again rounds exactly so in the default rounding mode, without a call into the library; the sign
// keeps a zero's sign as the library's rounding gives it.
inline double roundeven(double v) {
    constexpr double limit = 2251799813685248.0; // 2^51
    constexpr double shift = 6755399441055744.0; // 1.5 · 2^52
    if (v > -limit && v < limit) return std::copysign((v + shift) - shift, v);
    return std::nearbyint(v);
}

// A real rounded to a 16-bit signed integer; nullopt when it does not fit.
std::optional<std::int16_t> toint16(double v);

// A number as a fixed-point text with at least INTDIGITS digits before the point (padded with "0")
// and DECIMALS after it, rounded half away from zero: the "0.0" and "0000.000" formats of the
// station's labels. A value that rounds to zero has no sign.
std::string formatfixed(double v, int intdigits, int decimals);

// The number that a user typed, when the whole text (blanks around it aside) is one decimal number
// that fits a 32-bit real: "3", "-1", "2.5", "1e3". nullopt for anything else ("", "abc", "3,5",
// "1e400").
std::optional<double> typednumber(const std::string& text);
// The shortest text that reads back to the same value.
std::string shortestdouble(double v);
std::string shortestfloat(float v);

} // namespace orvane

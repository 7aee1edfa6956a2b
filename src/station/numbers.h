#pragma once
// Number conversions as the station makes them.
#include <cstdint>
#include <optional>
#include <string>

namespace orvane {

// Real to integer: nearest, ties to even.
double roundeven(double v);

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

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

// The shortest text that reads back to the same value.
std::string shortestdouble(double v);
std::string shortestfloat(float v);

} // namespace orvane

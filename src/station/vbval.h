#pragma once
#include <string_view>

namespace orvane {

// The number at the start of a text, read as Visual Basic's Val reads it: blanks, tabs and line
// feeds are passed over wherever they stand, then the longest numeric prefix counts (sign, digits,
// one point, an exponent with E or D); "&H" and "&O" read hexadecimal and octal whole numbers.
// A text without a number gives 0.
double vbval(std::string_view text);

} // namespace orvane

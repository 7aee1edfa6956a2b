#pragma once
// Text helpers of the station: its texts are UTF-8, but lengths and positions count characters.
#include <string>

namespace orvane {

std::u32string utf32of(const std::string& text);
std::string utf8of(const std::u32string& text);

// The text without leading and trailing blanks (spaces only, as the station trims).
std::string trimblanks(const std::string& text);

} // namespace orvane

#include "station/vbval.h"

#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace orvane {

namespace {

bool isblank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// The text with the blanks that Val passes over taken out.
std::string squeeze(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (char c : text)
        if (!isblank(c)) out.push_back(c);
    return out;
}

// "&H" and "&O" numbers: a value that fits 16 bits is a signed 16-bit number, else a signed 32-bit one.
double radixvalue(const std::string& s, int radix) {
    std::uint64_t v = 0;
    std::size_t i = 2;
    for (; i < s.size(); ++i) {
        char c = s[i];
        int d = -1;
        if (c >= '0' && c <= '9')
            d = c - '0';
        else if (radix == 16 && c >= 'a' && c <= 'f')
            d = c - 'a' + 10;
        else if (radix == 16 && c >= 'A' && c <= 'F')
            d = c - 'A' + 10;
        if (d < 0 || d >= radix) break;
        v = (v * radix + d) & 0xFFFFFFFFull;
    }
    if (v <= 0xFFFF) return static_cast<double>(static_cast<std::int16_t>(v));
    return static_cast<double>(static_cast<std::int32_t>(v));
}

} // namespace

double vbval(std::string_view text) {
    const std::string s = squeeze(text);
    if (s.size() >= 2 && s[0] == '&') {
        if (s[1] == 'H' || s[1] == 'h') return radixvalue(s, 16);
        if (s[1] == 'O' || s[1] == 'o') return radixvalue(s, 8);
        return 0;
    }
    std::size_t i = 0;
    std::string number;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) number.push_back(s[i++]);
    bool digits = false;
    while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i])))
        number.push_back(s[i++]), digits = true;
    if (i < s.size() && s[i] == '.') {
        number.push_back(s[i++]);
        while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i])))
            number.push_back(s[i++]), digits = true;
    }
    if (!digits) return 0;
    if (i < s.size() && (s[i] == 'e' || s[i] == 'E' || s[i] == 'd' || s[i] == 'D')) {
        std::string exponent = "e";
        std::size_t j = i + 1;
        if (j < s.size() && (s[j] == '+' || s[j] == '-')) exponent.push_back(s[j++]);
        std::size_t start = exponent.size();
        while (j < s.size() && std::isdigit(static_cast<unsigned char>(s[j]))) exponent.push_back(s[j++]);
        if (exponent.size() > start) number += exponent;
    }
    double v = std::strtod(number.c_str(), nullptr);
    return std::isfinite(v) ? v : 0;
}

} // namespace orvane

#include "recording/hex.h"

#include <cstdio>

namespace orvane {

std::string hexbyte(std::int32_t value) {
    if (value <= 0) return "00";
    char buf[16];
    std::snprintf(buf, sizeof buf, "%02X", static_cast<unsigned>(value));
    return buf;
}

std::string hexlong(std::int32_t value) {
    char buf[16];
    std::snprintf(buf, sizeof buf, "%06X", static_cast<unsigned>(value));
    return buf;
}

std::string hexbits(std::string_view digits) {
    static const char table[] = "0000000100100011010001010110011110001001101010111100110111101111";
    std::string out;
    for (char c : digits) {
        int d = c >= '0' && c <= '9'   ? c - '0'
                : c >= 'A' && c <= 'F' ? c - 'A' + 10
                : c >= 'a' && c <= 'f' ? c - 'a' + 10
                                       : 0;
        out.append(table + 4 * d, 4);
    }
    return out;
}

bool between(double a, double p, double b) {
    return (a >= p && b < p) || (a <= p && b > p);
}

std::string hexof(const std::uint8_t* bytes, std::size_t length) {
    static const char digits[] = "0123456789ABCDEF";
    std::string out(length * 2, '0');
    for (std::size_t i = 0; i < length; ++i) {
        out[2 * i] = digits[bytes[i] >> 4];
        out[2 * i + 1] = digits[bytes[i] & 15];
    }
    return out;
}

std::string mid(std::string_view text, std::size_t start, std::size_t length) {
    if (start == 0 || start > text.size()) return {};
    return std::string(text.substr(start - 1, length));
}

std::int64_t hexvalue(std::string_view digits) {
    std::int64_t v = 0;
    for (char c : digits) {
        int d;
        if (c >= '0' && c <= '9')
            d = c - '0';
        else if (c >= 'A' && c <= 'F')
            d = c - 'A' + 10;
        else if (c >= 'a' && c <= 'f')
            d = c - 'a' + 10;
        else
            break;
        v = v * 16 + d;
    }
    return v;
}

int imagebyte(std::string_view image, std::size_t offset) {
    if (2 * offset + 2 > image.size()) return 0;
    return static_cast<int>(hexvalue(image.substr(2 * offset, 2)));
}

std::string recordof(std::string_view image) {
    std::string bytes(recordbytes, '\0');
    for (std::size_t i = 0; i < static_cast<std::size_t>(recordbytes) && 2 * i + 1 < image.size(); ++i)
        bytes[i] = static_cast<char>(hexvalue(image.substr(2 * i, 2)));
    return bytes;
}

} // namespace orvane

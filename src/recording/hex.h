#pragma once
// Text helpers of the recording format. A record's text image is its bytes as upper-case
// hexadecimal, two characters a byte; the station keeps that text for the records it stores whole.
#include <cstdint>
#include <string>
#include <string_view>

namespace orvane {

inline constexpr int recordbytes = 256;

// Upper-case hexadecimal of at least two digits; "00" for 0 and for negative values.
std::string hexbyte(std::int32_t value);
// Upper-case hexadecimal left-padded with "0" to six digits; longer values stay whole.
std::string hexlong(std::int32_t value);
// Each hexadecimal digit as its four bits, most significant first.
std::string hexbits(std::string_view digits);
// True when p lies between a and b in either direction, a included and b excluded.
bool between(double a, double p, double b);

// The hexadecimal image of LENGTH bytes.
std::string hexof(const std::uint8_t* bytes, std::size_t length);

// Characters START (counted from 1) to START + LENGTH - 1 of a text, cut to the text's end.
std::string mid(std::string_view text, std::size_t start, std::size_t length);
// The value of a text of hexadecimal digits, read up to the first other character; 0 for none.
std::int64_t hexvalue(std::string_view digits);
// The byte at OFFSET of a record kept as its image; 0 where the image is shorter.
int imagebyte(std::string_view image, std::size_t offset);

// The 256 bytes of a record written from its text image: padded with "00" to 512 characters, each
// pair of hexadecimal digits one byte.
std::string recordof(std::string_view image);

// A big-endian number of WIDTH bytes.
inline std::int32_t bigendian(const std::uint8_t* bytes, int width) {
    std::int32_t v = 0;
    for (int i = 0; i < width; ++i) v = (v << 8) | bytes[i];
    return v;
}

// True when all N bytes are zero: the end of an entry list.
inline bool allzero(const std::uint8_t* bytes, int n) {
    for (int i = 0; i < n; ++i)
        if (bytes[i]) return false;
    return true;
}

} // namespace orvane

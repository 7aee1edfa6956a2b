#include "station/text.h"

namespace orvane {

std::u32string utf32of(const std::string& text) {
    std::u32string out;
    for (std::size_t i = 0; i < text.size();) {
        unsigned char c = static_cast<unsigned char>(text[i]);
        int extra = c < 0x80 ? 0 : (c >> 5) == 6 ? 1 : (c >> 4) == 14 ? 2 : (c >> 3) == 30 ? 3 : -1;
        if (extra < 0 || i + extra >= text.size()) {
            // A stray byte stands for itself, so that no text is lost or read past its end.
            out.push_back(c);
            ++i;
            continue;
        }
        char32_t cp = extra == 0 ? c : c & (0x3F >> extra);
        bool valid = true;
        for (int k = 1; k <= extra; ++k) {
            unsigned char cc = static_cast<unsigned char>(text[i + k]);
            if ((cc & 0xC0) != 0x80) valid = false;
            cp = (cp << 6) | (cc & 0x3F);
        }
        if (!valid) {
            out.push_back(c);
            ++i;
            continue;
        }
        out.push_back(cp);
        i += extra + 1;
    }
    return out;
}

std::string utf8of(const std::u32string& text) {
    std::string out;
    for (char32_t cp : text) {
        if (cp < 0x80)
            out.push_back(static_cast<char>(cp));
        else if (cp < 0x800) {
            out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        } else if (cp < 0x10000) {
            out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        } else {
            out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        }
    }
    return out;
}

std::string trimblanks(const std::string& text) {
    std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    std::size_t last = text.find_last_not_of(' ');
    return text.substr(first, last - first + 1);
}

} // namespace orvane

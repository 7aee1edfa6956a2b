// Reading back what an earlier analysis appended to a copy of a recording.
#include "recording/decoders.h"
#include "recording/hex.h"
#include "station/station.h"

#include <iconv.h>

namespace orvane {

namespace {

constexpr int analysisentries = 20;
constexpr int analystnameunits = 41;
constexpr std::int16_t analysislast = 999; // no entry is taken above this count

// One character of the system's code page (GBK) as UTF-8: a unit below 0x100 is a single byte,
// any other is the double byte high first. What GBK cannot decode shows as "?".
std::string gbkcharacter(unsigned unit) {
    if (unit < 0x80) return std::string(1, static_cast<char>(unit));
    char in[2] = {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
    std::size_t inleft = unit < 0x100 ? 1 : 2;
    char* inp = unit < 0x100 ? in + 1 : in;
    char out[8];
    char* outp = out;
    std::size_t outleft = sizeof out;
    iconv_t cd = iconv_open("UTF-8", "GBK");
    if (cd == reinterpret_cast<iconv_t>(-1)) return "?";
    const std::size_t done = iconv(cd, &inp, &inleft, &outp, &outleft);
    iconv_close(cd);
    if (done == static_cast<std::size_t>(-1) || inleft != 0) return "?";
    return std::string(out, outp);
}

} // namespace

void decodeanalysis(Station& st, const std::uint8_t* record) {
    for (int i = 0; i < analysisentries; ++i) {
        const std::uint8_t* entry = record + 1 + 11 * i;
        if (allzero(entry, 11)) return;
        if (st.analysiscount > analysislast) return; // dropped without a word
        st.analysispos[st.analysiscount] = bigendian(entry, 3);
        st.analysislist[st.analysiscount] = hexof(entry + 3, 8);
        ++st.analysiscount;
    }
}

void decodeanalyst(Station& st, const std::uint8_t* record) {
    if (st.analystcount > analysislast) return;
    st.analystlist[st.analystcount] = hexof(record + 1, 13);
    ++st.analystcount;
}

void decodeanalystname(Station& st, const std::uint8_t* record) {
    std::string name;
    for (int i = 0; i < analystnameunits; ++i) {
        const unsigned unit = (record[1 + 2 * i] << 8) | record[2 + 2 * i];
        name += gbkcharacter(unit);
    }
    // The padding of the record reads as trailing zero characters, which the name box does not show.
    while (!name.empty() && name.back() == '\0') name.pop_back();
    st.form.Tmc = name;
    st.analystname = "分析员：" + name;
}

} // namespace orvane

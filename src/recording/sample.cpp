#include "recording/decoders.h"
#include "recording/hex.h"
#include "station/station.h"
#include "station/vbval.h"

namespace orvane {

namespace {

// Speed of a sample in km/h from its two BCD digits of 0.1 km/h; a letter ends the number.
float samplespeedof(const Station& st, const std::string& digits) {
    float speed = static_cast<float>(vbval(digits) * 0.1);
    if (st.buildvariant != "haerbin") {
        speed = static_cast<float>(speed * 0.7);
        if (speed >= 2.0f) speed = static_cast<float>(speed / 1.6);
        if (speed >= 2.0f) speed = static_cast<float>(speed / 1.6);
    }
    return speed;
}

// The parameter record in force at position p: the last one written at or before it.
std::int32_t paramat(const Side& side, std::int32_t p) {
    for (std::int32_t j = side.paramcount - 1; j >= 0; --j)
        if (p >= side.parampos[j]) return j;
    return 0;
}

} // namespace

void decodesample(Station& st, Side& side, const std::uint8_t* record) {
    if (side.samplecount > 99900) return;
    const std::int32_t gpsbound = static_cast<std::int32_t>(side.gpstext.size()) - 1;
    for (int i = 0; i <= 22; ++i) {
        const std::uint8_t* entry = record + 1 + 11 * i;
        if (allzero(entry, 11)) return;
        const std::string text = hexof(entry, 11);
        if (entry[0] >> 4 != 4) {
            const std::int32_t position = bigendian(entry + 8, 3) + side.segmentbase;
            if (side.main && position > positionlimit) {
                st.ui->message(std::string(toolargemessage) + "  " + text);
                side.abortflag = 1;
                return;
            }
            if (!reachposition(st, side, position)) return;
            const std::int32_t n = side.samplecount;
            side.samplepos[n] = position;
            side.samplespeed[n] = samplespeedof(st, text.substr(14, 2));
            if (side.main) side.speedhex[n] = text.substr(14, 2);
            side.sampleclock[n] = text.substr(0, 14);
            side.mileage[position][0] =
                static_cast<float>(vbval(text.substr(6, 4) + "." + text.substr(10, 3)));
            ++side.samplecount;
        } else if (entry[0] == 0x47) {
            if (side.samplecount == 0) return;
            if (!side.main && side.gpscount > 9900) return;
            side.gpspos[side.gpscount] = side.samplepos[side.samplecount - 1];
            side.gpstext[side.gpscount] = text.substr(4, 18);
        } else if (entry[0] == 0x4A) {
            if (side.main && side.gpscount > 9900) return;
            // A pair half without its first half cannot be counted past the list's end.
            if (side.gpscount >= gpsbound) return;
            side.gpstext[side.gpscount] += text.substr(2, 20);
            if (side.main) {
                const std::string& param = side.paramrec[paramat(side, side.gpspos[side.gpscount])];
                side.suppressionon[side.gpscount] = param.size() < 22 || param.compare(20, 2, "00") != 0;
            }
            ++side.gpscount;
        }
    }
}

} // namespace orvane

#include "recording/decoders.h"
#include "recording/hex.h"
#include "station/station.h"

#include <cmath>

namespace orvane {

namespace {

// The speeds of sound that the instrument uses, as the 32-bit values it keeps.
const double shearspeed = static_cast<double>(0.0323f);
const double longitudinalspeed = static_cast<double>(0.0593f);

int hexdigit(char c) {
    return c >= '0' && c <= '9' ? c - '0' : c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

// The kind of a channel as a number; a text that is not two hexadecimal digits matches no kind.
int kindvalue(const std::string& kind) {
    if (kind.size() != 2 || hexdigit(kind[0]) < 0 || hexdigit(kind[1]) < 0) return -1;
    return hexdigit(kind[0]) * 16 + hexdigit(kind[1]);
}

// Appends to the mark list. A list that is full keeps its last element for the newest event.
void appendmark(Side& side, const std::string& text, std::int32_t p) {
    const std::int32_t last = static_cast<std::int32_t>(side.marktext.size()) - 1;
    std::int32_t at = std::min(side.markcount, last);
    side.marktext[at] = text;
    side.markpos[at] = p;
    if (side.markcount < last + 1) ++side.markcount;
}

// Writes a mark value at p, or 20 positions on when a restart marker stands there.
void markbesiderestart(Side& side, std::int32_t p, std::int16_t value) {
    if (side.samplegrid[p][9] == 23)
        side.samplegrid[p + 20][9] = value;
    else
        side.samplegrid[p][9] = value;
}

void hit(Side& side, std::int32_t p, int column, double speed, int m, int value, bool withraw) {
    side.samplegrid[p][column] =
        static_cast<std::int16_t>(std::nearbyint(speed * value * side.channelscale[m]));
    if (withraw) side.rawgrid[p][column] = static_cast<std::uint8_t>(value);
}

void operatorevent(Station& st, Side& side, std::int32_t p, int value) {
    if (side.markcount > 9900) side.markcount = 9900;
    if (value == 0x01) {
        side.samplegrid[p + 300][9] = 1;
        if (side.stopcount < 10000) side.stoplist[side.stopcount++] = p;
    }
    if (value == 0x02) {
        markbesiderestart(side, p, 12345);
        appendmark(side, "12345", p);
    }
    if (value >= 0x0A && value <= 0x0E) {
        side.samplegrid[p][9] = static_cast<std::int16_t>(value);
        appendmark(side, std::to_string(value - 10), p);
    }
    if (value == 0x0F) markbesiderestart(side, p, 12346);
    if (st.markstate == 1 && value >= 50 && value <= 250) {
        side.samplegrid[p][9] = static_cast<std::int16_t>(value + 1950);
        appendmark(side, std::to_string(value + 1950), p);
    }
}

// One entry's kind acted on: a hit into the grids or an event into the lists.
void act(Station& st, Side& side, std::int32_t p, int code, int kind, int value) {
    const bool main = side.main;
    switch (kind) {
    case 0x45:
    case 0x44:
    case 0x49:
    case 0x4A:
    case 0x4B:
    case 0x48:
    case 0x47:
    case 0x46:
    case 0x25:
    case 0x26:
        hit(side, p, code - 1, shearspeed, code - 1, value, true);
        break;
    case 0x12:
    case 0x13:
        if (main) hit(side, p, code - 1, longitudinalspeed, code - 1, value, true);
        break;
    case 0x00:
        hit(side, p, 8, longitudinalspeed, code - 1, value, true);
        break;
    // The second values of G, H and I; the comparison side has no raw column for them.
    case 0x0B:
        hit(side, p, 10, shearspeed, 6, value, main);
        break;
    case 0x0C:
        hit(side, p, 11, shearspeed, 7, value, main);
        break;
    case 0x0D:
        hit(side, p, 12, longitudinalspeed, 8, value, main);
        break;
    case 0xFB:
        if (main && value >= 1) {
            side.samplegrid[p][9] = static_cast<std::int16_t>(value + 100);
            appendmark(side, std::to_string(value + 100), p);
        }
        break;
    case 0xFC:
        if (p >= 100) side.samplegrid[p - 100][9] = static_cast<std::int16_t>(value + 1000);
        break;
    case 0xFD:
        if (main) {
            if (side.fdcount > 9900) side.fdcount = 9900;
            side.fdpos[side.fdcount] = p;
            side.fdval[side.fdcount++] = static_cast<std::int16_t>(value);
        }
        break;
    case 0xFE:
        if (side.fecount > 99000) side.fecount = 99000;
        side.fepos[side.fecount] = p;
        side.feval[side.fecount++] = static_cast<std::int16_t>(value);
        break;
    case 0xFF:
        operatorevent(st, side, p, value);
        break;
    default:
        break;
    }
    // Turnout numbers: codes F0..F4 carry the hundreds, codes 95..C5 the number itself.
    if (kind >> 4 == 0xF && (kind & 0xF) < 5) {
        st.markstate = 0;
        int v = 200 * (kind & 0xF) + value - 50 + 2000;
        side.samplegrid[p][9] = static_cast<std::int16_t>(v);
        appendmark(side, std::to_string(v), p);
    }
    int x = kind - 144;
    if (kind >= 0 && between(5, x, 54)) {
        st.markstate = 4;
        int v = 200 * x + value + 1950;
        side.samplegrid[p][9] = static_cast<std::int16_t>(v);
        appendmark(side, std::to_string(v), p);
    }
}

} // namespace

bool reachposition(Station& st, Side& side, std::int64_t position) {
    if (side.reachgrids(position)) return true;
    st.ui->message("记录位置超出范围，载入停止：" + side.filepath + "，位置 " + std::to_string(position) +
                   "（最多到位置 " + std::to_string(side.gridlast) + "）");
    side.abortflag = 1;
    return false;
}

void decodedetection(Station& st, Side& side, const std::uint8_t* record) {
    if (side.main && side.paramcount == 0) return;
    std::int32_t p = 0;
    for (int i = 0; i <= 50; ++i) {
        const std::uint8_t* entry = record + 1 + 5 * i;
        if (allzero(entry, 5)) break;
        p = bigendian(entry, 3) + side.segmentbase;
        if (side.main && p > positionlimit) {
            st.ui->message(std::string(toolargemessage) + std::to_string(p) + "  " + hexof(entry, 5));
            side.abortflag = 1;
            return;
        }
        // Events write up to 300 positions ahead.
        if (!reachposition(st, side, static_cast<std::int64_t>(p) + 300)) return;
        const int code = entry[3];
        if (code == 0) continue;
        if (side.main && code >= 14 && code <= 142) break;
        const int value = entry[4];
        const int kind = code < 10 ? kindvalue(side.channelkind[code - 1]) : code;
        act(st, side, p, code, kind, value);
    }
    side.lastposition = p;
    side.quartercount = std::min(side.quartercount + 1, 19900);
    if (side.quartercount % 4 == 0) side.quarterindex[side.quartercount / 4] = p;
}

} // namespace orvane

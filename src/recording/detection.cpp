#include "recording/decoders.h"
#include "recording/hex.h"
#include "station/numbers.h"
#include "station/station.h"

#include <array>

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

// What an entry of a code below 0x0E does: its kind, and for a hit the column it writes, the speed
// of sound and multiplier index of its sound path, and whether the raw byte is kept (column -1: no
// hit).
struct EntryRule {
    int kind = -1;
    int column = -1;
    double speed = 0;
    int m = 0;
    bool raw = false;
};

EntryRule entryrule(const Side& side, int code, int kind) {
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
        return {kind, code - 1, shearspeed, code - 1, true};
    case 0x12:
    case 0x13:
        return main ? EntryRule{kind, code - 1, longitudinalspeed, code - 1, true} : EntryRule{kind};
    case 0x00:
        return {kind, 8, longitudinalspeed, code - 1, true};
    // The second values of G, H and I; the comparison side has no raw column for them.
    case 0x0B:
        return {kind, 10, shearspeed, 6, main};
    case 0x0C:
        return {kind, 11, shearspeed, 7, main};
    case 0x0D:
        return {kind, 12, longitudinalspeed, 8, main};
    default:
        return {kind};
    }
}

// What the decoder does with an entry, by its code alone: nothing (code 0), end the record (the main
// side's codes 14 to 142), act on an event, or write a hit of a channel.
enum class EntryAction : std::uint8_t { skip, stop, event, hit };

// What every code does, and the rules of the codes below 0x0E with the sound path of every value of
// each hit, so that a hit costs a look-up instead of its formula. They hold as long as the side's kind,
// its channel kinds and its multipliers stay the same, which only a parameter record changes: they are
// kept for the records after it.
struct EntryRules {
    bool made = false, main = false;
    std::array<int, 9> kinds{};
    std::array<std::int16_t, 9> scales{};
    std::array<EntryAction, 256> action{};
    std::array<int, 256> eventkind{}; // the kind an event entry of the code acts on
    std::array<EntryRule, 14> rule{};
    std::array<std::array<std::int16_t, 256>, 14> paths{};
};

const EntryRules& entryrules(const Side& side) {
    thread_local EntryRules rules;
    std::array<int, 9> kinds;
    for (int k = 0; k < 9; ++k) kinds[k] = kindvalue(side.channelkind[k]);
    if (rules.made && rules.main == side.main && rules.kinds == kinds && rules.scales == side.channelscale)
        return rules;
    rules.made = true;
    rules.main = side.main;
    rules.kinds = kinds;
    rules.scales = side.channelscale;
    rules.action[0] = EntryAction::skip;
    for (int code = 1; code < 14; ++code) {
        const EntryRule rule = entryrule(side, code, code < 10 ? kinds[code - 1] : code);
        rules.rule[code] = rule;
        rules.action[code] = rule.column < 0 ? EntryAction::event : EntryAction::hit;
        rules.eventkind[code] = rule.kind;
        if (rule.column < 0) continue;
        for (int value = 0; value < 256; ++value)
            rules.paths[code][value] =
                static_cast<std::int16_t>(roundeven(rule.speed * value * side.channelscale[rule.m]));
    }
    // From 0x0E on the code is the kind; the comparison side meets its channel kinds there too,
    // but their column would be the code's, which the grid doesn't have: only events count.
    for (int code = 14; code < 256; ++code) {
        rules.action[code] = side.main && code <= 142 ? EntryAction::stop : EntryAction::event;
        rules.eventkind[code] = code;
    }
    return rules;
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

// One entry's event kind acted on: the lists and the mark column.
void event(Station& st, Side& side, std::int32_t p, int kind, int value) {
    const bool main = side.main;
    switch (kind) {
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
    const int x = kind - 144;
    if (x >= 5 && x < 54) {
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
    const bool main = side.main;
    if (main && side.paramcount == 0) return;
    const EntryRules& rules = entryrules(side);
    const std::int32_t base = side.segmentbase;
    // Below this position an entry needs neither the limit's test nor the grids' growth (events
    // write up to 300 positions ahead); the grids' cells are then written directly.
    std::int32_t plain = 0;
    std::int16_t* cells = nullptr;
    std::uint8_t* raws = nullptr;
    auto plaingrids = [&] {
        const std::int64_t reach = side.gridrows - 301;
        plain = static_cast<std::int32_t>(std::min<std::int64_t>(main ? positionlimit : reach, reach));
        cells = side.samplegrid[0];
        raws = side.rawgrid[0];
    };
    plaingrids();
    std::int32_t p = 0;
    for (int i = 0; i <= 50; ++i) {
        const std::uint8_t* entry = record + 1 + 5 * i;
        const std::int32_t at = entry[0] << 16 | entry[1] << 8 | entry[2];
        const int code = entry[3];
        const int value = entry[4];
        if ((at | code | value) == 0) break;
        p = at + base;
        if (p > plain) {
            if (main && p > positionlimit) {
                st.ui->message(std::string(toolargemessage) + std::to_string(p) + "  " + hexof(entry, 5));
                side.abortflag = 1;
                return;
            }
            if (!reachposition(st, side, static_cast<std::int64_t>(p) + 300)) return;
            plaingrids();
        }
        const EntryAction action = rules.action[code];
        if (action == EntryAction::hit) {
            const EntryRule& rule = rules.rule[code];
            const std::size_t cell = static_cast<std::size_t>(p) * Side::gridcolumns + rule.column;
            cells[cell] = rules.paths[code][value];
            if (rule.raw) raws[cell] = static_cast<std::uint8_t>(value);
        } else if (action == EntryAction::event) {
            event(st, side, p, rules.eventkind[code], value);
        } else if (action == EntryAction::stop) {
            break;
        }
    }
    side.lastposition = p;
    side.quartercount = std::min(side.quartercount + 1, 19900);
    if (side.quartercount % 4 == 0) side.quarterindex[side.quartercount / 4] = p;
}

} // namespace orvane

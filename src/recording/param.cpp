// The parameter record in force, shown in Grid1 and Grid3 and applied to the side.
#include "recording/hex.h"
#include "recording/panels.h"
#include "station/numbers.h"
#include "station/station.h"

#include <array>

namespace orvane {

namespace {

using Heads = std::vector<std::string>;

Table tablewith(const Heads& heads, std::size_t rows) {
    Table t(rows + 1, std::vector<std::string>(heads.size()));
    t[0] = heads;
    return t;
}

// The rail weight of the rail code digit 1 to 4; empty for any other digit.
std::string railweight(int digit) {
    static const char* const weights[] = {"43", "50", "60", "75"};
    return digit >= 1 && digit <= 4 ? weights[digit - 1] : "";
}

// The rail weight as the rail column shows it.
std::string railcell(const Station& st, const std::string& railcode) {
    if (st.railoverride == "45" && railcode == "75") return "45";
    if (st.language == "english" && railcode == "43") return "48";
    if (st.language == "english" && railcode == "50") return "57";
    return railcode;
}

} // namespace

void setpanelheads(Station& st) {
    const bool english = st.language == "english";
    Heads grid1 = english ? Heads{"Channel", "Gain"} : Heads{"通道号", "增益值"};
    if (st.settings.integralshown == 1) {
        grid1.push_back(english ? "Integral" : "积分值");
        grid1.push_back(english ? "" : "草状波%");
    }
    const Heads grid1db =
        english ? Heads{"Channel", "Gain", "Integral"} : Heads{"通道号", "增益值", "积分值"};
    const Heads grid2 = english ? Heads{"Time", "User", "Link", "Side", "Site", "Track", "Rail", "Line"}
                                : Heads{"时间", "执机人", "行别", "股别", "线别", "股道号", "铁号", "线名"};
    const Heads grid3 = english ? Heads{"SPK1", "SPK2", "SPK3", "Hand/Auto", "Rail size", "Suppress", "Batt"}
                                : Heads{"反射报警", "穿透报警", "失检", "手/自", "轨型", "抑/通", "电压"};
    st.zhu.Grid1 = tablewith(grid1, 9);
    st.cong.Grid1 = tablewith(grid1db, 9);
    st.zhu.Grid2 = st.cong.Grid2 = tablewith(grid2, 1);
    st.zhu.Grid3 = st.cong.Grid3 = tablewith(grid3, 1);
}

std::string channellabel(int kind, const std::string& trackside) {
    // The four labels of the inner and outer 70 degree probes swap on the left hand.
    const bool left = trackside == "左手";
    switch (kind) {
    case 0x00:
        return " 0⊕";
    case 0x25:
        return "前";
    case 0x26:
        return "后";
    case 0x46:
        return "后";
    case 0x47:
        return "前";
    case 0x48:
        return left ? "后外" : "后内";
    case 0x49:
        return left ? "前外" : "前内";
    case 0x4A:
        return left ? "后内" : "后外";
    case 0x4B:
        return left ? "前内" : "前外";
    case 0x4C:
        return "后左";
    case 0x4D:
        return "前左";
    case 0x4E:
        return "后右";
    case 0x4F:
        return "前右";
    case 0xFF:
        return " ";
    default:
        return "";
    }
}

std::string gaintext(int gainbyte) {
    return formatfixed((gainbyte * 5 - 800) / 10.0, 1, 1);
}

void applyparam(Station& st, Side& side, std::int32_t index) {
    if (index < 0 || index >= static_cast<std::int32_t>(side.paramrec.size())) return;
    const std::string& image = side.paramrec[index];
    const bool english = st.language == "english";
    side.foldvalue = static_cast<std::int16_t>(imagebyte(image, 174));
    for (int k = 0; k < 9; ++k) {
        side.channelkind[k] = mid(image, 331 + 2 * k, 2);
        side.channelscale[k] = static_cast<std::int16_t>(imagebyte(image, 1 + k));
        // A row of table pinkong outranks the record's alignment words.
        if (st.pinkonghit == 0)
            side.pinkongval[k] =
                static_cast<std::int16_t>(imagebyte(image, 91 + 2 * k) | (imagebyte(image, 92 + 2 * k) << 8));
    }
    const std::string weight = railweight(imagebyte(image, 175) & 0x0F);
    if (!weight.empty()) side.railcode = weight;

    const std::string letters = "ABCDEFGHI";
    for (int k = 0; k < 9; ++k) {
        std::string cell(1, letters[k]);
        if (!english) cell += channellabel(imagebyte(image, 165 + k), st.trackside);
        setcell(side.Grid1, k + 1, 0, cell);
        setcell(side.Grid1, k + 1, 1, gaintext(imagebyte(image, 118 + k)));
    }
    const std::string bits = hexbits(mid(image, 284, 1));
    auto onoff = [&](bool on) { return english ? (on ? "on" : "off") : (on ? "开" : "关"); };
    setcell(side.Grid3, 1, 0, onoff(bits.size() == 4 && bits[3] == '1'));
    setcell(side.Grid3, 1, 1, onoff(bits.size() == 4 && bits[2] == '1'));
    setcell(side.Grid3, 1, 2, english ? "on" : "开");
    setcell(side.Grid3, 1, 3, english ? "hand" : "手动");
    setcell(side.Grid3, 1, 4, railcell(st, side.railcode));
    const bool suppressed = mid(image, 21, 2) != "00";
    setcell(side.Grid3, 1, 5, english ? (suppressed ? "on" : "off") : (suppressed ? "抑制" : "通常"));

    if (side.main && side.railcode != st.previousrailcode) {
        st.previousrailcode = side.railcode;
        st.hooks.redrawrail(st);
    }
    if (st.tarvikmode == "tarvik") std::swap(side.channelkind[4], side.channelkind[5]);
}

} // namespace orvane

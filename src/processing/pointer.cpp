#include "processing/pointer.h"

#include "amode/amode.h"
#include "bmode/bmode.h"
#include "replay/bofang.h"
#include "replay/transport.h"
#include "station/numbers.h"
#include "station/station.h"

#include <cmath>

namespace orvane {

namespace {

void say(Station& st, const char* china, const char* other) {
    st.ui->message(english(st) ? other : china);
}

} // namespace

void pointerdown(Station& st, Side& side, const std::string& button, double x, double) {
    st.playside = side.main ? "zhu" : "cong";
    st.pointerx = x;
    if (button == "left") {
        // The first click on a running replay only pauses it; the release after it does nothing.
        if (replaying(st)) {
            pressplay(st);
            st.dragarmed = 0;
        } else {
            st.dragarmed = 1;
        }
        st.T1 = false;
        st.pressx = static_cast<std::int32_t>(roundeven(x));
        return;
    }
    if (button != "right") return;
    if (!english(st)) {
        st.form.popup = "a13";
        return;
    }
    st.form.captions["Command8"] = "连续播放";
    pressplay(st); // in English the right button starts the replay
}

double depthof(const Station& st, const Side& side, double y) {
    const double f = side.railfootrow, h = side.railheadrow;
    auto small = [](double v) { return static_cast<double>(toint16(v).value_or(-1)); };
    if (st.displaymode != "fenjie") {
        if (st.oblique70 == 0) return y >= 18 && y < f ? y - 18 : -1;
        const double r = roundeven(y);
        return r >= h / 2 ? small((h - 18) - 2 * (r - h / 2)) : small((r - 18) * 2 * 1.3);
    }
    if (y < 18) return -1;
    if (y >= f / 8 + 16 && y < f / 3 + 12) return small((h - 18) - 2 * (y - (f / 8 + 16)));
    if (y < f / 8 + 16) return small((y - 18) * 2 * 39 / 43);
    if (y >= f / 3 + 12 && y < 2 * f / 3 + 6) return small((y - (f / 3 + 12)) * 3);
    if (y >= 2 * f / 3 + 6 && y < f) return small((y - (2 * f / 3 + 6)) * 3);
    return -1;
}

std::string readouttext(const Station& st, double km, double d) {
    const bool en = english(st);
    const long whole = static_cast<long>(km);
    const double metres = std::floor((km - std::floor(km)) * 10000) / 10;
    std::string text = std::string(en ? "H：" : "水平：") + std::to_string(whole) + (en ? "km+" : "公里+") +
                       shortestdouble(metres) + (en ? "m" : "米");
    if (d < 0) return text;
    return text + (en ? "　  V：" : "　  深度：") + formatfixed(d / 2, 1, 2) + (en ? "mm" : "毫米");
}

void pointermove(Station& st, Side& side, double x, double y) {
    const std::int32_t here = side.mapat(side.viewindex);
    const double m0 = side.mileageat(here), m1 = side.mileageat(static_cast<std::int64_t>(here) + 1000);
    const double sign = m1 >= m0 ? 1 : -1;
    const std::int64_t c = static_cast<std::int64_t>(roundeven(st.settings.viewspan - x));
    const std::int32_t row = side.mapat(side.viewindex + c);
    double km = side.main ? m0 + sign * (static_cast<double>(row) - here) * 3.5 / 1000000
                          : m0 + sign * static_cast<double>(c) * 3.5 / 1000000;
    auto& label = side.Label14;
    if (km < 0) {
        label.visible = false;
        return;
    }
    // Before the last 1200 positions the kilometre of the row itself stands in the read-out.
    if (row < static_cast<std::int64_t>(side.lastposition) - 1200)
        km = std::stod(formatfixed(side.mileageat(row), 4, 3));
    const double d = depthof(st, side, y);
    const bool firstrow = st.displaymode != "fenjie" && st.oblique70 == 0;
    label.text = readouttext(st, km, firstrow || d >= 1 ? d : -1);
    label.km = km;
    label.depth = firstrow || d >= 1 ? d / 2 : -1;
    label.row = row;
    label.left = x + 20;
    label.top = y;
    label.visible = true;
}

void pointerup(Station& st, Side& side, const std::string& button, double x, double y) {
    if (button != "left") return;
    if (st.dragarmed != 1) { // the release of a press that only paused
        st.dragarmed = 1;
        return;
    }
    const double dx = x - st.pressx;
    if (std::fabs(dx) > 2) {
        side.viewindex = static_cast<std::int32_t>(roundeven(x - st.pressx + side.viewindex));
        if (side.viewindex < 600) {
            side.viewindex = 600;
            side.jobcursor = side.paramcursor = side.markcursor = side.samplecursor = 0;
            bofang(st, side);
            side.main ? say(st, "已经播放到文件最初位置！", "begin")
                      : say(st, "对比已经播放到文件最初位置 ！", "the 2nd begin");
        } else if (side.viewindex / 300.0 > side.scrollmax) {
            side.viewindex = side.scrollmax * 300;
            bofang(st, side);
            side.main ? say(st, "已经播放到文件最后位置！", "end")
                      : say(st, "对比已经播放到文件结束位置 ！", "the 2nd end");
        } else {
            bofang(st, side);
        }
        st.Picture5visible = false;
        side.amodemarker.visible = side.measuremark.visible = false;
        placecursor(side, st.settings.viewspan - 35);
        return;
    }
    st.clicky = static_cast<std::int32_t>(roundeven(y));
    placecursor(side, x + 30);
    st.amodechannel = " ";
    st.amodeside = side.main ? "zhu" : "cong";
    openamode(st);
}

std::int32_t cursorpositionof(const Station& st, const Side& side) {
    return st.settings.viewspan - static_cast<std::int32_t>(std::floor(cursorline(side))) + side.viewindex;
}

void gripdown(Station& st, Side& side, const std::string& button, double x, double y) {
    if (button == "left") {
        st.gripx = static_cast<std::int32_t>(roundeven(x));
        st.gripy = static_cast<std::int32_t>(roundeven(y));
        st.measuregrip = -1;
        return;
    }
    if (button == "right") measure(st, side);
}

void gripmove(Station& st, Side& side, double x) {
    if (st.measuregrip != -1) return;
    moveruler(st, side, x - st.gripx); // the grip moves the assembly, which stays on the picture
}

void gripup(Station& st) {
    st.measuregrip = 0;
}

void measure(Station& st, Side& side) {
    const bool en = english(st);
    const std::int32_t p = cursorpositionof(st, side);
    const double linex = cursorline(side);
    if (st.measurestart == -1) {
        side.measuremark = {
            true, linex, 18, linex, static_cast<double>(side.railfootrow), st.settings.color("biaochicolor")};
        st.measurestart = st.measureend = p;
        st.form.labels["Label10"] = en ? "measuring" : "正在测量";
    } else {
        st.measureend = p;
        const std::int32_t from = std::min(st.measurestart, p);
        const std::int32_t length = std::abs(st.measurestart - p);
        bool cut = false;
        for (std::int64_t row = from; row <= static_cast<std::int64_t>(from) + length && !cut; ++row)
            cut = side.cellat(row, 9) > 0;
        if (cut)
            st.form.labels["Label10"] = en ? "invalid" : "请注意，存在剪辑，测量无效！";
        else
            st.form.labels["Label10"] = en ? formatfixed(length * 0.0035, 1, 2) + "m"
                                           : "测量结果：" + formatfixed(length * 0.0035, 1, 3) + "米";
        st.measurestart = -1;
    }
    st.Label10visible = true;
    st.seekshown = false;
}

void closemeasure(Station& st) {
    st.Label10visible = false;
    st.seekshown = true;
}

} // namespace orvane

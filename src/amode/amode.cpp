#include "amode/amode.h"

#include "bmode/bmode.h"
#include "recording/hex.h"
#include "replay/transport.h"
#include "station/canvas.h"
#include "station/numbers.h"
#include "station/station.h"

#include <algorithm>
#include <cmath>

namespace orvane {

namespace {

// The echo shape at offsets 7 to 20 behind the echo's own point.
constexpr std::int16_t echoshape[14] = {10, 30, 60, 100, 160, 180, 240, 260, 310, 340, 352, 363, 370, 376};
constexpr int tracelast = 840; // the highest element of tracebuffer

// Writes the shape at X, but only where it fits inside the buffer: an echo beyond its room is drawn
// without its shape rather than written past the buffer.
bool writeshape(Station& st, int x) {
    if (x < 0 || x + 20 > tracelast) return false;
    st.tracebuffer[x] = 10;
    for (int o = 7; o <= 20; ++o) st.tracebuffer[x + o] = echoshape[o - 7];
    return true;
}

// Elements FROM to TO of the trace at Y, cut to the buffer.
void fillgate(Station& st, int from, int to, std::int16_t y) {
    for (int i = std::max(from, 0); i <= std::min(to, tracelast); ++i) st.tracebuffer[i] = y;
}

// The chain of one-unit lines from (10 + i, trace[i]) to (10 + i + 1, trace[i + 1]), i = FROM..TO.
void drawchain(Station& st, Canvas& c, int from, int to) {
    for (int i = std::max(from, 0); i <= std::min(to, tracelast - 1); ++i)
        c.line(10 + i, st.tracebuffer[i], 10 + i + 1, st.tracebuffer[i + 1]);
}

// A time base value of a depth in samplegrid: value / sound speed / scale x 4, as 32-bit floats; 0 for a
// channel without a scale.
std::int32_t timebase(std::int16_t value, float speed, std::int16_t scale) {
    if (scale == 0) return 0;
    return static_cast<std::int32_t>(std::nearbyint(static_cast<float>(value) / speed / scale * 4.0f));
}

} // namespace

void dotgrid(Station& st, Canvas& c, int step, int line) {
    c.forecolor = st.settings.color("biaochicolor");
    c.drawwidth = 1;
    for (int x = 0; x <= 610; x += 12)
        for (int y = 0; y <= 410; y += step)
            if (x % 60 == 0 || y % line == 0) c.pset(x + 10, y + 12);
}

bool pausefirst(Station& st) {
    if (!st.T1 && !st.T2) return true;
    const bool t1 = st.T1, t2 = st.T2;
    st.T1 = st.T2 = false;
    st.ui->message(english(st) ? "Please pause at first!" : pausemessage);
    st.T1 = t1;
    st.T2 = t2;
    return false;
}

int amodeinterval(int speed) {
    static const double factors[] = {0.01, 0.02, 0.03, 0.04, 0.05, 0.1, 0.5, 0.8, 1.5};
    return static_cast<int>(roundeven(3.0 / factors[std::clamp(speed, 1, 9) - 1]));
}

Side& amodesideof(Station& st) {
    return st.amodeside == "cong" ? st.cong : st.zhu;
}

int channelindex(const std::string& letter) {
    return letter.size() == 1 && letter[0] >= 'A' && letter[0] <= 'I' ? letter[0] - 'A' : 8;
}

int choosechannel(Station& st, const Side& side) {
    std::int32_t d[9] = {9999, 9999, 9999, 9999, 9999, 9999, 9999, 9999, 8888};
    for (int k = 0; k <= 8; ++k) {
        const std::string& kind = side.channelkind[k];
        if ((k < 6 && !st.form.channelshown[k]) || kind == "00") continue;
        double f = 1.0;
        if (kind == "25" || kind == "26") f = 0.777;
        if (kind == "45" || kind == "46" || kind == "47") f = st.cos70;
        auto hit = [&](std::int64_t c) {
            const double y = side.cellat(side.mapat(side.pinkongval[k] + c), k) * f + 18 - 6;
            return std::fabs(y - st.clicky) < 2;
        };
        std::int32_t left = 9999, right = 9999;
        for (std::int64_t c = st.cursorposition; c >= st.cursorposition - 40; --c)
            if (hit(c)) {
                left = static_cast<std::int32_t>(std::llabs(c - st.cursorposition));
                break;
            }
        for (std::int64_t c = st.cursorposition; c <= st.cursorposition + 40; ++c)
            if (hit(c)) {
                right = static_cast<std::int32_t>(std::llabs(c - st.cursorposition));
                break;
            }
        d[k] = std::min(left, right);
    }
    int best = 0;
    for (int k = 1; k <= 8; ++k)
        if (d[k] < d[best]) best = k;
    return d[best] > 2000 ? 8 : best;
}

void readgates(Station& st, const Side& side, int k) {
    st.paramindex = std::max(side.paramcursor, 0);
    const std::string& image = st.paramindex < static_cast<std::int32_t>(side.paramrec.size())
                                   ? side.paramrec[st.paramindex]
                                   : std::string();
    // Gate 1's start is read as it stands; the five other bytes count four units each.
    for (int g = 0; g < 6; ++g)
        st.gatevalues[g] = static_cast<std::int16_t>(imagebyte(image, 37 + 9 * g + k) * (g == 0 ? 1 : 4));
}

void opencursor(Station& st, Side& side, bool choose) {
    side.main ? loadall(st) : loadalldb(st);
    st.Picture5visible = true;
    const std::int32_t x = static_cast<std::int32_t>(std::trunc(cursorline(side))); // the fraction dropped
    st.T2 = false;
    const int viewspan = st.settings.viewspan;
    st.cursorposition = viewspan - x + side.viewindex;
    if (choose && st.amodechannel == " ")
        st.amodechannel = std::string(1, static_cast<char>('A' + choosechannel(st, side)));
    if (replaying(st)) pressplay(st); // the B-mode replay pauses
    st.form.captions["Command12"] = english(st) ? "Pause" : "播放暂停";
    st.amodefirst = 0;
    st.amodelast = viewspan - 20;
    st.amodecolumn = std::max(viewspan - x, 0);
    st.cursorx = x;
    st.cursorcolumn = st.amodecolumn;
}

void openamode(Station& st) {
    Side& side = amodesideof(st);
    opencursor(st, side, true);
    const int k = channelindex(st.amodechannel);
    st.form.captions["Labelaxxs"] = st.amodechannel + (english(st) ? "Channel A-mode" : "通道A型显示");
    readgates(st, side, k);
    st.T2 = true;
    st.T2interval = amodeinterval(st.amodespeed);
    st.allchannelview = 0;
    plainbackground(st);
    if (Canvas* c = st.picture3) {
        c->clear();
        c->forecolor = st.settings.channelcolor[k];
    }
}

void plainbackground(Station& st) {
    if (Canvas* c = st.picture3) {
        c->scale(620, 0, 430);
        c->beginbackground(st.settings.color("bxianbackcolor"));
        c->storebackground();
    }
}

void redrawamode(Station& st) {
    if (st.allchannelview == -1) {
        allchannelbackground(st);
        drawallchannels(st, false);
    } else {
        plainbackground(st);
        drawamodeframe(st, false);
    }
}

void readecho(Station& st, const Side& side, int k) {
    const std::int64_t position =
        static_cast<std::int64_t>(side.viewindex) + st.amodecolumn + side.pinkongval[k];
    const std::int32_t row = side.mapat(position);
    auto direct = [&] {
        st.echox =
            k == 8 ? timebase(side.cellat(row, 8), 0.0593f, side.channelscale[8]) : side.rawat(row, k) * 4;
    };
    direct();
    const std::string& kind = side.channelkind[k];
    if (kind == "2D" || kind == "2E") {
        const double foot = side.railfootrow;
        const std::int64_t offset =
            static_cast<std::int64_t>(roundeven(foot / 2 * side.railwebrow / (foot != 0 ? foot : 1) * 0.52));
        if (side.cellat(side.mapat(position + offset), k) != 0) st.echox = st.gatevalues[4] + 12;
    }
    if (k >= 6) direct(); // G, H and I read their echo once more, which undoes the offset above
    st.latex = 0;
    if (st.settings.latewaveshown == 0 && k > 5 && side.cellat(row, k + 4) >= 1)
        st.latex = k == 8 ? timebase(side.cellat(row, 12), 0.0593f, side.channelscale[8])
                          : timebase(side.cellat(row, k + 4), 0.0323f, side.channelscale[k]);
}

void placemarker(Station& st, Side& side, int k, bool tick) {
    const std::int16_t x0 = static_cast<std::int16_t>(st.cursorx - (st.amodecolumn - st.cursorcolumn));
    const std::string& kind = side.channelkind[k];
    double s = 0, bottom = side.railfootrow;
    int d = 0;
    if (kind == "25") s = 0.1125;
    if (kind == "26") s = -0.1125;
    if (kind == "47") s = 0.432, bottom = side.railwebrow, d = -1;
    if (kind == "49" || kind == "4B") s = 0.432 * 2, bottom = side.railheadrow, d = -1;
    if (kind == "46") s = -0.432, bottom = side.railwebrow, d = 1;
    if (kind == "48" || kind == "4A") s = -0.432 * 2, bottom = side.railheadrow, d = 1;
    // The slope offset belongs to the main side's timer only.
    if (!side.main || !tick) d = 0;
    double x1 = roundeven(x0 + d);
    double x2 = roundeven(x1 - (bottom - 18) * s);
    if (kind == "2D" || kind == "2E") {
        x2 = x1;
        x1 = roundeven(x1 - side.railfootrow / 3.0);
        bottom = side.railfootrow + 6;
    }
    // In the separated layout with the V display the near channels show an upright marker.
    if (side.main && tick && st.displaymode == "fenjie" && st.settings.vshape == 1 && k < 4)
        x1 = x2 = roundeven(x1 + 2 * d);
    LineShape& m = side.amodemarker;
    m.visible = false;
    m.color = st.settings.color("biaochicolor");
    if (x0 <= 25) return;
    m = {true, x1, 18, x2, bottom, m.color};
}

void drawamodeframe(Station& st, bool tick) {
    Side& side = amodesideof(st);
    const int k = channelindex(st.amodechannel);
    Canvas* c = st.picture3;
    if (c) {
        c->clear();
        dotgrid(st, *c, 16, 80);
        c->forecolor = st.settings.channelcolor[k];
        c->drawwidth = 3;
    }
    placemarker(st, side, k, tick);
    if (tick && st.scrollheld == 0) ++st.amodecolumn;
    pastlast(st);
    st.tracebuffer.fill(380);
    const auto& g = st.gatevalues;
    fillgate(st, g[0], g[1], 372);
    if (g[2] >= 1) fillgate(st, g[2], g[3], 380); // gate 2 lies on the baseline: it doesn't show
    if (g[4] >= 1) fillgate(st, g[4], g[5], 388);
    readecho(st, side, k);
    if (!c) return;
    c->scale(820, c->scaletop, c->scaleheight);
    if (st.echox >= 1 && st.echox < 810) {
        writeshape(st, st.echox);
        drawchain(st, *c, 0, st.echox - 1); // nothing between the echo and its shape: no top line
        if (st.latex != 0 && writeshape(st, st.latex)) {
            drawchain(st, *c, st.echox + 7, st.latex - 1);
            drawchain(st, *c, st.latex + 7, 799);
        } else {
            drawchain(st, *c, st.echox + 7, 799);
        }
    } else {
        drawchain(st, *c, 0, 799);
    }
    c->scale(620, c->scaletop, c->scaleheight);
}

bool amodepaused(const Station& st) {
    const auto caption = st.form.captions.find("Command12");
    return caption == st.form.captions.end() || (caption->second != "播放暂停" && caption->second != "Pause");
}

void pastlast(Station& st) {
    if (st.amodecolumn <= st.amodelast) return;
    if (!amodepaused(st)) pressamode(st);
    st.amodecolumn = st.amodefirst + 20;
}

void pressamode(Station& st) {
    const bool running = !amodepaused(st);
    st.T2 = !running;
    if (running)
        st.form.captions["Command12"] = english(st) ? "Play" : "连续播放";
    else
        st.form.captions["Command12"] = english(st) ? "Pause" : "播放暂停";
}

void amodetick(Station& st) {
    if (!st.Picture5visible) return;
    st.allchannelview == -1 ? allchanneltick(st) : drawamodeframe(st, true);
}

void movescan(Station& st, int value) {
    st.scrollheld = 1; // the bar holds the focus while it is moved
    st.amodecolumn = std::min(value, st.amodelast);
    st.T2 = false;
    amodetick(st);
    st.form.captions["Command12"] = english(st) ? "Play" : "连续播放";
}

void closeamode(Station& st) {
    st.T2 = false;
    st.Picture5visible = false;
    st.zhu.amodemarker.visible = st.cong.amodemarker.visible = false;
}

} // namespace orvane

// The A-mode of all nine channels at once, main side only: a background of gate bars built once at
// the opening, over which each tick draws one echo a channel, A to F upward and G to I downward.
#include "amode/amode.h"

#include "station/canvas.h"
#include "station/station.h"

namespace orvane {

namespace {

// The rows of the channels A, C, E, G, H, I and the gates each shows: a gate's bar in channel I's
// colour for gate 1 and in channel A's for gates 2 and 3.
struct GateRow {
    int y, channel, gates;
};
constexpr GateRow gaterows[] = {{170, 0, 1}, {180, 2, 1}, {190, 4, 1}, {210, 6, 2}, {220, 7, 2}, {230, 8, 3}};

// An echo of each channel: the vertical line from FROM to TO and the chain of the shape.
struct EchoShape {
    int from, to;
    int chain[14];
};
constexpr EchoShape shapes[6] = {
    {170, 10, {5, 20, 35, 55, 85, 95, 125, 135, 148, 156, 160, 163, 167, 170}},
    {180, 10, {5, 20, 35, 55, 85, 95, 125, 135, 148, 158, 167, 171, 175, 180}},
    {190, 10, {5, 20, 35, 55, 85, 95, 130, 145, 160, 170, 176, 181, 185, 190}},
    {210, 400, {395, 380, 365, 345, 315, 305, 270, 255, 240, 230, 224, 219, 215, 210}},
    {220, 400, {395, 380, 365, 345, 315, 305, 275, 265, 252, 242, 233, 229, 225, 220}},
    {230, 400, {395, 380, 365, 345, 315, 305, 275, 265, 252, 244, 240, 237, 233, 230}},
};

// A and B share a shape, so do C and D, E and F; G, H and I have their own.
const EchoShape& shapeof(int k) {
    return shapes[k < 6 ? k / 2 : k - 3];
}

void drawecho(Canvas& c, int k, std::int32_t x) {
    if (x < 1 || x >= 810) return;
    const EchoShape& s = shapeof(k);
    c.line(10 + x, 12 + s.from, 10 + x, 12 + s.to);
    for (int o = 7; o < 20; ++o) c.line(10 + x + o, 12 + s.chain[o - 7], 10 + x + o + 1, 12 + s.chain[o - 6]);
}

} // namespace

void openallchannels(Station& st) {
    st.amodeside = "zhu"; // the view of all channels exists for the main side only
    opencursor(st, st.zhu, false);
    st.form.captions["Labelaxxs"] = " A型显示";
    allchannelbackground(st);
    if (st.picture3) st.picture3->clear();
    st.T2 = true;
    st.allchannelview = -1;
}

void allchannelbackground(Station& st) {
    Side& side = st.zhu;
    Canvas* c = st.picture3;
    if (c) {
        c->scale(620, 0, 430);
        c->beginbackground(st.settings.color("bxianbackcolor"));
        dotgrid(st, *c, 8, 40);
    }
    st.paramindex = std::max(side.paramcursor, 0);
    if (c && st.paramindex < 10001) {
        c->drawwidth = 2;
        c->forecolor = st.settings.color("biaochicolor");
        for (const GateRow& r : gaterows) c->line(10, 12 + r.y, 610, 12 + r.y);
        for (const GateRow& r : gaterows) {
            readgates(st, side, r.channel);
            for (int g = 0; g < r.gates; ++g) {
                c->forecolor = st.settings.channelcolor[g == 0 ? 8 : 0];
                c->line(10 + st.gatevalues[2 * g], 12 + r.y, 10 + st.gatevalues[2 * g + 1], 12 + r.y);
            }
        }
    }
    if (c) c->storebackground();
}

void allchanneltick(Station& st) {
    drawallchannels(st, true);
}

void drawallchannels(Station& st, bool tick) {
    Side& side = st.zhu;
    Canvas* c = st.picture3;
    if (c) c->clear();
    if (st.scrollheld != 0) {
        st.T2 = false;
        st.form.captions["Command12"] = st.language == "english" ? "Play" : "连续播放";
    } else if (tick) {
        ++st.amodecolumn;
    }
    pastlast(st);
    const double x0 = static_cast<std::int16_t>(st.cursorx - (st.amodecolumn - st.cursorcolumn));
    side.amodemarker = {
        true, x0, 18, x0, static_cast<double>(side.railfootrow), st.settings.color("biaochicolor")};
    if (!c) return;
    c->scale(820, c->scaletop, c->scaleheight);
    c->drawwidth = 2;
    for (int k = 0; k <= 8; ++k) {
        c->forecolor = st.settings.channelcolor[k];
        const std::int32_t row =
            side.mapat(static_cast<std::int64_t>(side.viewindex) + st.amodecolumn + side.pinkongval[k]);
        drawecho(*c, k, side.rawat(row, k) * 4);
        if (k < 6) continue;
        readecho(st, side, k); // the second echo of G, H and I, by the rule of the late echo
        if (st.latex != 0) drawecho(*c, k, st.latex);
    }
    c->scale(620, c->scaletop, c->scaleheight);
}

} // namespace orvane

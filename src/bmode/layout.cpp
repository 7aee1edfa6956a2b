// The scale of the B-mode picture and its background layer.
#include "bmode/bmode.h"
#include "station/canvas.h"
#include "station/station.h"

#include <algorithm>

namespace orvane {

RailRows railrows(const Station& st, const std::string& railcode) {
    if (railcode == "43") return {66, 152, 280};
    if (railcode == "50") return {70, 168, 304};
    if (railcode == "75") return st.railoverride == "45" ? RailRows{70, 163, 290} : RailRows{96, 224, 384};
    return {78, 192, 352}; // "60" and any other text
}

namespace {

void fitside(Station& st, Side& side, Canvas* c) {
    const RailRows rows = railrows(st, side.railcode);
    side.railheadrow = rows.head + 18;
    side.railwebrow = rows.web + 18;
    side.railfootrow = rows.foot + 18;
    if (st.displaymode == "zhjz" && !comparisonopen(st)) {
        side.scaletop = -200;
        side.scaleheight = side.railfootrow + 440;
    } else {
        side.scaletop = 0;
        side.scaleheight = side.railfootrow + 40;
    }
    side.rulerx0 = st.settings.viewspan - 35;
    if (c) c->scale(st.settings.viewspan, side.scaletop, side.scaleheight);
}

} // namespace

void layout(Station& st) {
    fitside(st, st.zhu, st.picture1);
    fitside(st, st.cong, st.picture6);
}

std::vector<RulerLine> rulerlines(double x0) {
    std::vector<RulerLine> lines{{x0 + 20, 18, x0 + 20, 19 * 20 + 18, 1}};
    for (int n = 1; n <= 20; ++n) {
        const double y = (n - 1) * 20 + 18;
        lines.push_back({x0 + 20, y, x0 + 30, y, n % 5 == 1 ? 2 : 1});
    }
    return lines;
}

std::vector<RulerLabel> rulerlabels(double x0) {
    return {{x0 - 8, 0, "毫米"},
            {x0 - 2, 16, "  0"},
            {x0 - 2, 116, " 50"},
            {x0 - 2, 216, "100"},
            {x0 - 2, 316, "150"}};
}

bool onruler(const Side& side, double x) {
    return x >= side.rulerx0 - 10 && x <= side.rulerx0 + 32;
}

double cursorline(const Side& side) {
    return side.rulerx0 + 20;
}

void placecursor(Side& side, double x) {
    side.rulerx0 = x;
}

void moveruler(Station& st, Side& side, double dx) {
    side.rulerx0 = std::clamp(side.rulerx0 + dx, 8.0, st.settings.viewspan - 30.0);
}

namespace {

void drawbackground(Station& st, const Side& side, Canvas* c) {
    if (!c) return;
    const double width = st.settings.viewspan;
    c->beginbackground(st.settings.color("bxianbackcolor"));
    c->forecolor = st.settings.color("biaochicolor");
    c->drawstyle = 3;
    c->drawwidth = 1;
    c->line(0, 18, width, 18); // the running surface
    if (st.displaymode == "fenjie") {
        const double f = side.railfootrow - 18, w = side.railwebrow - 18;
        if (st.form.auxlines) {
            c->line(0, f / 8 + 14, width, f / 8 + 14);
            c->line(0, f / 3 + 18 + w / 3 - 4, width, f / 3 + 18 + w / 3 - 4);
            c->line(0, 2 * f / 3 + 18 + w / 3 - 8, width, 2 * f / 3 + 18 + w / 3 - 8);
        }
        // The limits of the three bands of the separated layout.
        c->drawwidth = 2;
        c->line(0, f / 3 + 18, width, f / 3 + 18);
        c->line(0, 2 * f / 3 + 18, width, 2 * f / 3 + 18);
    } else if (st.form.auxlines) {
        if (st.settings.vshape == 1) c->line(0, side.railheadrow / 2.0, width, side.railheadrow / 2.0);
        for (double y : {double(side.railheadrow), double(side.railwebrow), double(side.railfootrow)})
            c->line(0, y, width, y);
    }
    c->drawstyle = 0;
    c->drawwidth = 1;
    c->storebackground();
}

} // namespace

void background(Station& st) {
    drawbackground(st, st.zhu, st.picture1);
    drawbackground(st, st.cong, st.picture6);
}

} // namespace orvane

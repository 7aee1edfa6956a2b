#include "curves/curves.h"

#include "reports/index.h"
#include "reports/shelf.h"
#include "reports/workbook.h"
#include "station/numbers.h"
#include "station/station.h"
#include "station/vbval.h"

namespace orvane {

namespace {

// The integral curve's canvas with its base line at the value 0.
Canvas* integralcanvas(Station& st) {
    Canvas* c = curvecanvas(st, "Form8.Picture1", curvewidth(st), 300);
    if (!c) return nullptr;
    c->forecolor = curveline(st);
    c->drawwidth = 1;
    c->line(0, 260, curvewidth(st), 260);
    curvecanvas(st, "Form8.Picture3", 20, 300);
    return c;
}

// The pairs of lines of CHANNEL over the rows of the list; a stretch of value 0 in the canvas's own
// colour, so that it vanishes.
void integralpairs(Station& st, Canvas& c, int channel, std::uint32_t colour) {
    const Table& list = st.form.Grid1jf;
    const double half = st.curves.curvemargin / 2;
    auto value = [&](std::size_t r) {
        const auto col = static_cast<std::size_t>(channel) + 1;
        return r < list.size() && col < list[r].size() ? vbval(list[r][col]) : 0.0;
    };
    c.drawwidth = 1;
    for (std::size_t r = 1; r + 2 <= list.size(); ++r) {
        const double va = value(r), vb = value(r + 1);
        const double x0 = element(st.zhu.gpspos, static_cast<std::int64_t>(r) - 1) + half;
        const double x1 = element(st.zhu.gpspos, static_cast<std::int64_t>(r)) + half;
        c.forecolor = va == 0 ? curveback(st) : colour;
        c.line(x0, 260 - va, x1, 260 - va);
        c.line(x1, 260 - vb, x1, 260 - va);
    }
}

} // namespace

void valuescale(Station& st, const std::string& name) {
    Canvas* c = curvecanvas(st, name, 20, 300);
    if (!c) return;
    c->forecolor = curveline(st);
    for (int i = 5; i <= 250; i += 5) {
        c->drawwidth = i % 50 == 0 ? 3 : 1;
        c->line(20, 260 - i, i % 50 == 0 ? 5 : i % 25 == 0 ? 10 : 12, 260 - i);
    }
    c->drawwidth = 1;
    c->line(19, 0, 19, 260);
}

void thresholdlines(Station& st, int channel) {
    struct Threshold {
        const char* percent;
        double line, label;
    };
    // The 37 degree probes G and H hear less grass: their thresholds lie lower.
    static const Threshold wide[] = {
        {"5%", 210, 205}, {"10%", 200, 195}, {"15%", 180, 175}, {"20%", 140, 135}, {"25%", 125, 120}};
    static const Threshold inclined[] = {
        {"5%", 222, 217}, {"10%", 215, 210}, {"15%", 207, 202}, {"20%", 202, 197}, {"25%", 192, 187}};
    static const Threshold widemore[] = {{"30%", 40, 35}, {"40%", 10, 5}};
    static const Threshold inclinedmore[] = {{"30%", 100, 95}, {"40%", 10, 5}};
    const bool gh = channel == 6 || channel == 7;
    std::vector<Threshold> lines(gh ? std::begin(inclined) : std::begin(wide),
                                 gh ? std::end(inclined) : std::end(wide));
    if (st.tarvikmode == "tarvik")
        lines.insert(lines.end(), gh ? std::begin(inclinedmore) : std::begin(widemore),
                     gh ? std::end(inclinedmore) : std::end(widemore));
    Canvas* curve = canvasnamed(st, "Form8.Picture1");
    Canvas* labels = canvasnamed(st, "Form8.Picture3");
    for (const Threshold& t : lines) {
        if (curve) {
            curve->forecolor = st.curves.curvecolor;
            curve->drawwidth = 1;
            curve->line(0, t.line, curvewidth(st), t.line);
        }
        if (labels) {
            labels->forecolor = st.curves.curvecolor;
            labels->fontsize = 12;
            labels->currentx = 2;
            labels->currenty = t.label;
            labels->print(t.percent);
        }
    }
}

void integralcurve(Station& st, int channel) {
    if (Canvas* c = integralcanvas(st)) integralpairs(st, *c, channel, st.curves.curvecolor);
    thresholdlines(st, channel);
}

void integralchannel(Station& st, int channel) {
    st.curves.curvechannel = static_cast<std::int16_t>(channel);
    st.curves.curvecolor = st.settings.channelcolor[static_cast<std::size_t>(channel)];
    integralcurve(st, channel);
}

void integralall(Station& st) {
    Canvas* c = integralcanvas(st);
    for (int channel = 0; channel < 9; ++channel) {
        st.curves.curvecolor = st.settings.channelcolor[static_cast<std::size_t>(channel)];
        if (c) integralpairs(st, *c, channel, st.curves.curvecolor);
        thresholdlines(st, channel);
    }
}

Workbook integralsift(const Station& st) {
    // An empty box is the number 0, below which no value lies.
    const double limit = vbval(st.curves.Text1);
    Workbook book;
    book.addsheets(6);
    const Table& list = st.form.Grid1jf;
    for (int c = 0; c < 9; ++c) {
        Sheet& s = book.sheet(c + 1);
        s.name = std::string(1, static_cast<char>('A' + c)) + "通道";
        s.write(1, 1, "里程");
        s.write(1, 2, "积分值");
        int row = 2;
        for (std::size_t r = 1; r < list.size(); ++r) {
            const auto col = static_cast<std::size_t>(c) + 1;
            if (col >= list[r].size() || !(vbval(list[r][col]) < limit)) continue;
            s.write(row, 1, CellValue{false, 0, list[r][0]});
            s.write(row, 2, CellValue{false, 0, list[r][col]});
            ++row;
        }
    }
    return book;
}

void pressintegralsift(Station& st) {
    handover(st, integralsift(st), "integralsift");
}

} // namespace orvane

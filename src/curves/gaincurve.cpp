#include "curves/curves.h"

#include "recording/hex.h"
#include "reports/index.h"
#include "reports/quality.h"
#include "station/numbers.h"
#include "station/station.h"

namespace orvane {

Canvas* canvasnamed(Station& st, const std::string& name) {
    const auto it = st.canvases.find(name);
    return it == st.canvases.end() ? nullptr : it->second;
}

std::uint32_t curveback(const Station& st) {
    return st.settings.color("bxianbackcolor");
}

std::uint32_t curveline(const Station& st) {
    return st.settings.color("biaochicolor");
}

std::string mileagereadout(const Station& st, double km) {
    const std::string m = formatfixed(km, 4, 3);
    const bool en = english(st);
    return "   " + mid(m, 1, 4) + (en ? "km" : "公里") + mid(m, 6, 3) + (en ? "m" : "米");
}

Canvas* curvecanvas(Station& st, const std::string& name, double width, double height) {
    Canvas* c = canvasnamed(st, name);
    if (!c) return nullptr;
    c->scale(width, 0, height);
    c->beginbackground(curveback(st));
    c->storebackground();
    c->clear();
    return c;
}

double curvewidth(const Station& st) {
    return st.curves.curveend + st.curves.curvemargin;
}

void placereadout(Side::Readout& r, double end, double x, double y, const std::string& text) {
    r.visible = true;
    r.left = x > end / 2 ? x - end / 8 : x + 15;
    r.top = y;
    r.text = text;
}

namespace {

// The staircase of CHANNEL in COLOUR on the canvas as it stands.
void staircase(Station& st, Canvas& c, int channel, std::uint32_t colour) {
    const Side& z = st.zhu;
    const double half = st.curves.curvemargin / 2;
    c.forecolor = colour;
    c.drawwidth = 2;
    // Up to the sentinel behind the last record, which repeats it to the end of the file.
    for (std::int32_t i = 0; i < z.paramcount; ++i) {
        const double g0 = gainof(element(z.paramrec, i), channel),
                     g1 = gainof(element(z.paramrec, i + 1), channel);
        const double x0 = element(z.parampos, i) + half, x1 = element(z.parampos, i + 1) + half;
        c.line(x1, 60 - g0, x0, 60 - g0);
        c.line(x1, 60 - g1, x1, 60 - g0);
    }
}

Canvas* gaincanvas(Station& st) {
    return curvecanvas(st, "Form29.Picture1", curvewidth(st), 60);
}

} // namespace

void opengaincurve(Station& st) {
    Station::Curves& cv = st.curves;
    cv.curveend = st.zhu.lastposition;
    cv.curvemargin = cv.curveend * 0.08;
    cv.Form29open = true;
    cv.gainreadout = {};
    drawcurvewindow(st, "Form29");
}

void drawcurvewindow(Station& st, const std::string& form) {
    if (form == "Form29") {
        gainchannel(st, st.curves.curvechannel);
    } else if (form == "Form8") {
        valuescale(st, "Form8.Picture2");
        integralchannel(st, st.curves.curvechannel);
    } else if (form == "Form9") {
        valuescale(st, "Form9.Picture2");
        speedpage(st);
    }
}

void gainscale(Station& st) {
    Canvas* c = curvecanvas(st, "Form29.Picture2", 20, 60);
    if (!c) return;
    c->forecolor = curveline(st);
    for (int i = 1; i <= 60; ++i) {
        c->drawwidth = i % 10 == 0 ? 3 : i % 5 == 0 ? 2 : 1;
        c->line(20, 60 - i, i % 10 == 0 ? 5 : i % 5 == 0 ? 10 : 12, 60 - i);
    }
    c->drawwidth = 1;
    c->line(19, 60, 19, 0);
}

void gaincurve(Station& st, int channel) {
    gainscale(st);
    if (Canvas* c = gaincanvas(st)) staircase(st, *c, channel, st.curves.curvecolor);
}

void gainchannel(Station& st, int channel) {
    st.curves.curvechannel = static_cast<std::int16_t>(channel);
    st.curves.curvecolor = st.settings.channelcolor[static_cast<std::size_t>(channel)];
    gaincurve(st, channel);
}

void gainall(Station& st) {
    gainscale(st);
    Canvas* c = gaincanvas(st);
    if (!c) return;
    for (int channel = 0; channel < 9; ++channel)
        staircase(st, *c, channel, st.settings.channelcolor[static_cast<std::size_t>(channel)]);
}

namespace {

// The mileage under the pointer at X over a curve of the run, into READOUT.
void runreadout(Station& st, Side::Readout& readout, double x, double y) {
    const double end = st.curves.curveend;
    if (x > end) return;
    placereadout(readout, end, x, y,
                 mileagereadout(st, st.zhu.mileageat(static_cast<std::int64_t>(roundeven(x)))));
}

} // namespace

void gainreadout(Station& st, double x, double y) {
    runreadout(st, st.curves.gainreadout, x, y);
}

void integralreadout(Station& st, double x, double y) {
    runreadout(st, st.curves.integralreadout, x, y);
}

void openspeedcurve(Station& st) {
    if (st.zhu.samplecount < 50) {
        st.ui->message("速度点数少于50个，不足以生成曲线");
        return;
    }
    st.curves.Form9open = true;
    st.curves.speedfirst = 0;
    st.curves.speedmargin = pagesize * 0.08;
    st.curves.speedreadout = {};
    // The five marks in five colours of the settings.
    for (std::size_t m = 0; m < 5; ++m) st.curves.markcolor[m] = st.settings.channelcolor[m];
    drawcurvewindow(st, "Form9");
}

void openintegralcurve(Station& st) {
    if (st.zhu.gpscount < 5) {
        st.ui->message("积分值点数少于5个，不足以生成曲线");
        return;
    }
    if (st.zhu.gpscount > static_cast<std::int64_t>(st.form.Grid1jf.size())) {
        st.ui->message("请首先在主界面中点击“高级”按钮");
        return;
    }
    st.curves.Form8open = true;
    st.curves.integralreadout = {};
    drawcurvewindow(st, "Form8");
}

} // namespace orvane

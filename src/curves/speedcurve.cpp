#include "curves/curves.h"

#include "recording/hex.h"
#include "reports/index.h"
#include "station/numbers.h"
#include "station/station.h"
#include "station/vbval.h"

#include <cmath>

namespace orvane {

namespace {

// Canvas units of one km/h: the full scale of 300 units is 6 km/h.
constexpr double kmh = 300.0 / 6;

// The kilometre of a sample's clock with "公里" between kilometres and metres.
std::string clockmileage(const std::string& clock) {
    return mid(clock, 7, 4) + "公里" + mid(clock, 11, 3);
}

// The marks on the page from FIRST: hand marks 0 to 4 as points in their colours, attribute marks
// 101 to 136 as points in the text colour with their names.
void speedmarks(Station& st, Canvas& c, std::int32_t first) {
    const Side& z = st.zhu;
    const double half = st.curves.speedmargin / 2;
    const std::int32_t end = first + pagesize;
    const double lower = element(z.samplepos, first);
    const double upper = end < z.samplecount ? element(z.samplepos, end) : st.curves.curveend;
    for (std::int32_t i = 0; i < z.markcount; ++i) {
        const std::int32_t p = element(z.markpos, i);
        if (!between(lower, p, upper)) continue;
        const double v = markvalue(element(z.marktext, i));
        const bool hand = v >= 0 && v < 5, attribute = v >= 101 && v <= 136;
        if (!hand && !attribute) continue;
        std::int32_t k = first;
        while (k < end && !between(element(z.samplepos, k), p, element(z.samplepos, k + 1))) ++k;
        if (k == end) continue;
        const double x = k - first + half, y = 260 - element(z.samplespeed, k) * kmh;
        c.drawwidth = 4;
        c.forecolor = hand ? st.curves.markcolor[static_cast<std::size_t>(v)] : curveline(st);
        c.pset(x, y);
        if (attribute) {
            c.currentx = x;
            c.currenty = y;
            c.print(st.settings.biaojikcpair[static_cast<std::size_t>(v) - 100][1]);
        }
    }
}

} // namespace

void speedpage(Station& st) {
    const Side& z = st.zhu;
    Station::Curves& cv = st.curves;
    const std::int32_t first = cv.speedfirst;
    const std::int32_t last = first + pagesize - 1;
    cv.speedfrom = clockmileage(element(z.sampleclock, first));
    // Past the end of the lists the label keeps the mileage it had.
    if (last <= z.samplecount - 1) cv.speedto = clockmileage(element(z.sampleclock, last));
    const double half = cv.speedmargin / 2, width = pagesize + cv.speedmargin;
    Canvas* c = curvecanvas(st, "Form9.Picture1", width, 300);
    if (!c) return;
    c->forecolor = curveline(st);
    c->drawwidth = 1;
    // 0, 1, 1.8, 2 and 2.5 km/h.
    for (double y : {260.0, 210.0, 170.0, 160.0, 135.0}) c->line(0, y, width, y);
    for (std::int32_t k = first; k <= last && k <= z.samplecount - 1; ++k) {
        const float a = element(z.samplespeed, k), b = element(z.samplespeed, k + 1);
        const double va = a * kmh, vb = b * kmh;
        const double x0 = (k - first) + half, x1 = x0 + 1;
        c->forecolor = a == 0 && b == 0 ? curveback(st) : cv.curvecolor;
        c->line(x0, 260 - va, x1, 260 - va);
        c->line(x1, 260 - vb, x1, 260 - va);
    }
    speedmarks(st, *c, first);
}

void speedreadout(Station& st, double x, double y) {
    const Side& z = st.zhu;
    const Station::Curves& cv = st.curves;
    const double offset = x - cv.speedmargin / 2;
    if (offset < 0 || offset > pagesize) return;
    const std::int64_t k = cv.speedfirst + static_cast<std::int64_t>(roundeven(offset));
    if (k > z.samplecount - 1) return;
    const std::string speed = formatfixed(element(z.samplespeed, k), 1, 1) + "km/h";
    placereadout(st.curves.speedreadout, pagesize, x, y,
                 "   " + speed + mileagereadout(st, z.mileageat(element(z.samplepos, k))));
}

std::vector<std::string> replaylogrow(const std::string& entry) {
    auto clock = [&entry](std::size_t at) {
        return mid(entry, at, 2) + ":" + mid(entry, at + 2, 2) + ":" + mid(entry, at + 4, 2);
    };
    auto minutes = [&entry](std::size_t at) {
        return static_cast<long>(vbval(mid(entry, at, 2))) * 60 +
               static_cast<long>(vbval(mid(entry, at + 2, 2)));
    };
    const long m = minutes(21) - minutes(15);
    const long hours = static_cast<long>(std::floor(m / 60.0));
    return {mid(entry, 7, entry.size()), clock(15), clock(21),
            std::to_string(hours) + "时" + std::to_string(m % 60) + "分"};
}

void openreplaylog(Station& st) {
    Table& log = st.curves.replaylog;
    log.resize(1);
    for (std::int32_t i = 0; i < st.analystcount; ++i)
        log.push_back(replaylogrow(element(st.analystlist, i)));
    st.curves.Form4open = true;
}

} // namespace orvane

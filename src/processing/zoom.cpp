#include "processing/zoom.h"

#include "amode/amode.h"
#include "bmode/bmode.h"
#include "processing/pointer.h"
#include "replay/bofang.h"
#include "station/canvas.h"
#include "station/numbers.h"
#include "station/station.h"
#include "station/text.h"

#include <cmath>

namespace orvane {

void enlarge(Station& st) {
    if (!pausefirst(st)) return;
    placecursor(st.zhu, roundeven(st.settings.viewspan / 2.0)); // the cursor stands in the middle
    st.Picture9visible = true;
    drawenlargement(st);
}

void drawenlargement(Station& st) {
    loadallfangda(st, cursorline(st.zhu));
}

void closeenlargement(Station& st) {
    st.Picture9visible = false;
}

void drawdefectnote(Station& st) {
    bofang(st);
    if (trimblanks(st.Textbz).empty()) return;
    Canvas* c = st.picture1;
    if (!c) return;
    const LineShape& m = st.zhu.amodemarker;
    const double mx = std::fabs(m.x1 - m.x2) / 2;
    const double middle = std::min(m.x1, m.x2) + mx;
    const double x = middle + st.HScroll2, y = m.y2 / 2 + st.VScroll1;
    c->forecolor = st.settings.color("biaochicolor");
    c->drawwidth = 1;
    c->drawstyle = 0;
    c->line(middle, std::min(m.y1, m.y2) + std::fabs(m.y2 - m.y1) / 2, x, y + 50);
    c->currentx = x + 5;
    c->currenty = y + 50;
    c->fontsize = 12;
    c->print(st.Textbz);
}

void openmagnifier(Station& st) {
    st.Form10open = true;
}

void magnifierfactor(Station& st, int index) {
    st.magnifierfactor = magnifierfactors[std::clamp(index, 0, 3)];
}

void magnifiertick(Station& st, int x, int y) {
    st.Form10caption = "放大镜 坐标(" + std::to_string(x) + "," + std::to_string(y) + ")";
}

} // namespace orvane

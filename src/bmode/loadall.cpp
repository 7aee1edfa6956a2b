// One screenful of a recording: the main side on Picture1 and its relatives, the comparison side
// on Picture6, the A-mode replay's repaint and the enlargement on Picture9.
#include "bmode/bmode.h"
#include "station/canvas.h"
#include "station/numbers.h"
#include "station/station.h"

#include <algorithm>
#include <cmath>

namespace orvane {

namespace {

// The factors of one channel's sweep. pathy and pathx carry over from the channel before when a
// kind does not name them: the picture depends on that order.
struct Factors {
    float pathy = 0, pathx = 0, half = 1, band = 1, narrow = 1;
    int lift = 0, shift = 0, bandrow = 0;
};

bool anyof(const std::string& kind, std::initializer_list<const char*> kinds) {
    for (const char* k : kinds)
        if (kind == k) return true;
    return false;
}

// Which picture a sweep draws. The relatives of the main picture differ in a few points each.
enum class Variant { main, comparison, amode, zoom };

struct Sweep {
    Station& st;
    Side& side;
    Canvas& c;
    const Variant variant;
    const int span;           // canvas units across: viewspan, or 300 in the enlargement
    const std::int64_t first; // view index at the right edge
    const int columns;        // view indices swept
    const std::string& displaymode;

    float x(int v, float pathx, int i) const { return static_cast<float>(v) * pathx / 6 + (span - i); }
    std::int16_t value(int i, int offset, int shift, int column) const {
        const std::int64_t p = side.mapat(first + i + offset);
        return side.cellat(p + shift, column);
    }
    // The comparison picture has no separated layout.
    bool fenjie() const { return variant != Variant::comparison && displaymode == "fenjie"; }

    // The 70 degree beam that reaches the foot and comes back: the folded leg drawn thicker.
    void vsweep(int ch, float pathx, int basewidth) {
        const float pathy = static_cast<float>(st.cos70);
        const float limit = static_cast<float>(side.foldvalue * 0.0323 * side.channelscale[ch]);
        for (int i = 0; i < columns; ++i) {
            const int v = value(i, side.pinkongval[ch], 0, ch);
            if (v < 1) continue;
            if (limit <= v) {
                c.drawwidth = basewidth + 2;
                float d = static_cast<float>(2 * side.channelscale[ch] * 0.0323 * side.foldvalue * pathy -
                                             v * pathy);
                if (d < 0) d = 0;
                c.pset(x(v, pathx, i), d + 18);
            } else {
                c.drawwidth = basewidth;
                c.pset(x(v, pathx, i), static_cast<float>(v) * pathy + 18);
            }
        }
    }

    void plot(int column, int offset, const Factors& f) {
        for (int i = 0; i < columns; ++i) {
            const int v = value(i, offset, f.shift, column);
            if (v > 0)
                c.pset(x(v, f.pathx, i), static_cast<float>(v) * f.pathy * f.half * f.band * f.narrow + 18 -
                                             f.lift + f.bandrow);
        }
    }

    void channels(Factors& f) {
        const bool fenjie = this->fenjie();
        // Only the main picture reads Option19; its relatives draw the V of the kinds 44 and 45.
        const bool v = variant == Variant::main && !fenjie && st.settings.vshape == 1;
        const float cos70 = static_cast<float>(st.cos70), sin60 = static_cast<float>(st.sin60);
        for (int ch = 0; ch < 9; ++ch) {
            if (!st.form.channelshown[ch]) continue;
            const int basewidth = c.drawwidth;
            c.forecolor = st.settings.channelcolor[ch];
            const std::string& kind = side.channelkind[ch];
            f.lift = 0, f.half = 1, f.shift = 0, f.band = 1, f.bandrow = 0, f.narrow = 1;
            if (kind == "00") f.pathy = 1, f.pathx = 0, f.lift = 6;
            if (kind == "25") f.pathy = 0.777f, f.pathx = -0.629f;
            if (kind == "26") f.pathy = 0.777f, f.pathx = 0.629f;
            if (v && anyof(kind, {"4A", "48"})) vsweep(ch, 0.25f * 0.3f, basewidth);
            if (v && anyof(kind, {"4B", "49"})) vsweep(ch, -0.25f * 0.3f, basewidth);
            if (variant != Variant::main && kind == "44") vsweep(ch, 0.25f, basewidth);
            if (variant != Variant::main && kind == "45") vsweep(ch, -0.25f, basewidth);
            if (anyof(kind, {"13", "12"})) f.pathy = static_cast<float>(st.cos18);
            if (kind == "46") f.pathy = cos70, f.pathx = sin60;
            if (anyof(kind, {"4A", "48"})) f.pathy = cos70, f.pathx = sin60, f.half = 0.5f;
            if (kind == "47") f.pathy = cos70, f.pathx = -sin60;
            if (anyof(kind, {"4B", "49"})) f.pathy = cos70, f.pathx = -sin60, f.half = 0.5f;
            if (anyof(kind, {"2E", "2D"})) {
                f.pathy = 1, f.pathx = 0;
                f.shift = static_cast<int>(
                    roundeven(0.52 * (side.railfootrow / 2.0) * side.railwebrow / side.railfootrow));
            }
            if (fenjie && ch >= 6) {
                f.band = 1.0f / 3;
                f.bandrow = static_cast<int>(roundeven((side.railfootrow - 18) * (ch == 8 ? 2.0 : 1.0) / 3));
            }
            if (fenjie && anyof(kind, {"46", "47"})) f.pathy /= 2;
            if (!fenjie && anyof(kind, {"46", "47", "48", "49", "4A", "4B"})) f.narrow = 0.9f;
            c.drawwidth = basewidth;
            if ((v && ch <= 3) || anyof(kind, {"44", "45"})) continue;
            plot(ch, side.pinkongval[ch], f);
        }
    }

    // The second values of G, H and I.
    void latewaves(Factors& f) {
        if (st.settings.latewaveshown == 1) return;
        for (int r = 10; r <= 12; ++r) {
            const int ch = r - 4;
            if (!st.form.channelshown[ch]) continue;
            c.forecolor = st.settings.channelcolor[ch];
            f.lift = 0, f.half = 1, f.shift = 0, f.narrow = 1;
            if (r == 12) f.pathy = 1, f.pathx = 0, f.lift = 6;
            if (r == 10) f.pathy = 0.777f, f.pathx = -0.629f;
            if (r == 11) f.pathy = 0.777f, f.pathx = 0.629f;
            if (fenjie()) {
                f.bandrow = static_cast<int>(roundeven((side.railfootrow - 18) * (r >= 12 ? 2.0 : 1.0) / 3));
                f.band = 1.0f / 3;
            } else {
                f.band = 1, f.bandrow = 0;
            }
            plot(r, side.pinkongval[ch], f);
        }
    }

    void text(double x, double y, double size, std::uint32_t color, const std::string& s) {
        c.currentx = x;
        c.currenty = y;
        c.fontsize = size;
        c.forecolor = color;
        c.print(s);
    }

    // Stops, reversals, marks, restarts, turnouts, mileage checks and the integral-mode mark.
    void events() {
        const int style = c.drawstyle, width = c.drawwidth;
        st.form.Shape1.visible = st.form.Label6.visible = false;
        const bool zhjz = displaymode == "zhjz";
        const int risea = zhjz ? 0 : 12, riseb = zhjz ? 0 : 18;
        const int marklift = st.language == "english" && !st.form.comparisonvisible ? 100 : 0;
        const double B = side.scaletop + side.scaleheight - 55 + risea + riseb;
        const double T = zhjz ? B - 65 : B - 15;
        const std::uint32_t ruler = st.settings.color("biaochicolor");
        const bool china = st.language == "china";
        for (int i = 0; i < columns; ++i) {
            const int e = value(i, 0, 0, 9);
            if (e == 0) continue;
            const double x = span - i;
            if (e == 1 || (e > 1000 && e < 1257)) {
                c.forecolor = ruler;
                c.drawstyle = 3;
                c.drawwidth = 1;
                c.line(x, 10, x, 427);
            }
            if (e > 1000 && e < 1257) reversetext(e - 1000, x, T, china);
            if (st.settings.markplace == 0) {
                if (e == 10 && china)
                    text(x - 7, T, 30, st.settings.color("fcolor"), st.settings.biaojiname[0]);
                if (e > 10 && e < 15 && china) {
                    const bool arrow = st.bureauflag == "beijingjv" && e == 14;
                    text(x - 7, T, 22, st.settings.color("fcolor"),
                         arrow ? "↑" : st.settings.biaojiname[e - 10]);
                }
                if (e > 100 && e < 138)
                    text(x - 7, T, 22, st.settings.color("fcolor"), st.settings.biaojikcpair[e - 100][0]);
            } else if (e > 9 && e < 16) {
                flag(e, x);
            }
            const int R = zhjz ? -14 : 4;
            if (e == 23) text(x - 7, B - marklift - 15, 14, ruler, "S");
            if (e > 1949 && e < 12000)
                text(x - 7, B - marklift - 15 + R, 18, st.settings.color("acolor"),
                     std::to_string(e - 1950) + "C");
            if (e == 12345) {
                text(x - 7, B - marklift - 15, 14, ruler, "L");
                if (china) {
                    c.fontbold = true;
                    text(x - 7, 1, 14, ruler, "里程校对");
                }
            }
            if (e == 12346) text(x - 12, B + 10 - marklift - 15, 14, ruler, "J");
        }
        c.drawstyle = style;
        c.drawwidth = width;
    }

    void reversetext(int n, double x, double T, bool china) {
        c.currentx = x - 107;
        c.currenty = T;
        c.fontsize = 18;
        const std::string text = n != 255 ? "倒车长度：" + formatfixed(n * 4 * 0.0035, 1, 2) + "米"
                                          : std::string("倒车长度：超过3米");
        if (st.settings.reverseshow == 0 && variant != Variant::comparison) {
            st.form.Shape1 = {true, c.currentx - 15, c.currenty};
            st.form.Label6 = {true, c.currentx - 15, c.currenty};
        }
        if (china) c.print(text);
    }

    // An operator's mark at the head of the picture: a filled flag with its number.
    void flag(int e, double x) {
        c.drawstyle = 1;
        c.drawwidth = 14;
        c.forecolor = e == 14 ? rgb(255, 0, 0) : rgb(0, 255, 0);
        c.fontsize = 14;
        c.line(x - 10, 2, x + 10, 2);
        c.line(x - 10, 2, x, 17);
        c.line(x, 18, x + 10, 2);
        c.currentx = x - 12;
        c.currenty = 1;
        c.forecolor = rgb(0, 0, 0);
        c.fontbold = true;
        c.print(std::to_string(e - 10));
    }
};

} // namespace

namespace {

void sweep(Station& st, Side& side, Canvas& c, Variant variant, int span, std::int64_t first, int columns) {
    Sweep sweep{st, side, c, variant, span, first, columns, st.displaymode};
    const int style = c.drawstyle, width = c.drawwidth;
    Factors f;
    sweep.channels(f);
    sweep.latewaves(f);
    if (variant != Variant::zoom) sweep.events();
    c.drawstyle = style;
    c.drawwidth = width;
}

} // namespace

void loadall(Station& st) {
    if (st.picture1)
        sweep(st, st.zhu, *st.picture1, Variant::main, st.settings.viewspan, st.zhu.viewindex,
              st.settings.viewspan);
}

void loadalldb(Station& st) {
    if (st.picture6)
        sweep(st, st.cong, *st.picture6, Variant::comparison, st.settings.viewspan, st.cong.viewindex,
              st.settings.viewspan);
}

void loadallduotd(Station& st, int lastcolumn) {
    if (st.picture1)
        sweep(st, st.zhu, *st.picture1, Variant::amode, st.settings.viewspan, st.zhu.viewindex,
              std::clamp(lastcolumn + 1, 0, static_cast<int>(st.settings.viewspan)));
}

void loadallfangda(Station& st, double rulerx) {
    if (!st.picture9) return;
    st.picture9->clear();
    const double start = roundeven(st.settings.viewspan - (rulerx + 150) + st.zhu.viewindex);
    sweep(st, st.zhu, *st.picture9, Variant::zoom, 300, static_cast<std::int64_t>(std::max(start, 800.0)),
          300);
}

void loadjjxx(Station& st, const Side& side) {
    Canvas* picture = pictureof(st, side);
    if (!picture || st.settings.wholefile == 1) return;
    Canvas& c = *picture;
    const int style = c.drawstyle, width = c.drawwidth;
    c.forecolor = st.settings.color("biaochicolor");
    c.drawstyle = 3;
    c.drawwidth = 1;
    const bool zhjz = st.displaymode == "zhjz";
    const double k = zhjz ? 2 : 1, H = side.scaleheight, off = zhjz ? -380 : 0;
    const int viewspan = st.settings.viewspan;
    for (int i = 0; i < viewspan; ++i) {
        const std::int32_t p = side.mapat(static_cast<std::int64_t>(side.viewindex) + i);
        const bool joined =
            p >= 0 && p < static_cast<std::int64_t>(side.markflags.size()) && side.markflags[p] > 0;
        if (!joined || side.lastposition - p <= 1200) continue;
        const double x = viewspan - i, upper = H - 50 * k - 20 + off, lower = H - 20 + off;
        c.line(x - 10, upper, x + 10, lower);
        c.line(x + 10, upper, x - 10, lower);
    }
    c.drawstyle = style;
    c.drawwidth = width;
    c.forecolor = st.settings.color("gcolor");
}

} // namespace orvane

#include "curves/track.h"

#include "curves/curves.h"
#include "recording/hex.h"
#include "reports/index.h"
#include "station/station.h"
#include "station/vbval.h"

#include <algorithm>
#include <cmath>

namespace orvane {

namespace {

// The user scale of the canvas: 500 by 500 small, 1000 by 1000 big.
double trackscale(const Station& st) {
    return st.track.big ? 1000 : 500;
}

// Carries the line from fix FROM to element I with the slopes between fixes A and B.
void carry(Station::Track& t, std::size_t from, std::size_t a, std::size_t b, std::size_t i) {
    const double span = t.trackpos[b] - t.trackpos[a];
    // Two fixes at one position give no slope: the line stays at the fix.
    const double dlon = span != 0 ? (t.tracklon[b] - t.tracklon[a]) / span : 0;
    const double dlat = span != 0 ? (t.tracklat[b] - t.tracklat[a]) / span : 0;
    t.tracklon[i] = (t.trackpos[i] - t.trackpos[from]) * dlon + t.tracklon[from];
    t.tracklat[i] = (t.trackpos[i] - t.trackpos[from]) * dlat + t.tracklat[from];
}

} // namespace

double fixvalue(double v) {
    if (v == 0) return 0;
    const double whole = std::floor(v);
    return whole * 0.6 + v - whole;
}

void preparetrack(Station& st) {
    const Side& z = st.zhu;
    Station::Track& t = st.track;
    const auto n = static_cast<std::size_t>(std::max(0, z.gpscount));
    t.trackcount = static_cast<std::int32_t>(n);
    t.trackvalid = 0;
    for (auto* list : {&t.tracklon, &t.tracklat, &t.trackfix, &t.trackpos, &t.trackx, &t.tracky})
        list->assign(n + 1, 0);
    std::vector<std::size_t> fixes;
    for (std::size_t i = 0; i < n; ++i) {
        const std::string text = element(z.gpstext, static_cast<std::int64_t>(i));
        t.tracklat[i] = fixvalue(vbval(mid(text, 1, 2) + "." + mid(text, 3, 5)));
        t.tracklon[i] = fixvalue(vbval(mid(text, 10, 3) + "." + mid(text, 13, 5)));
        t.trackpos[i] = element(z.gpspos, static_cast<std::int64_t>(i));
        if (t.tracklon[i] != 0) {
            t.trackfix[i] = ++t.trackvalid;
            fixes.push_back(i);
        }
    }
    if (t.trackvalid < 2) {
        for (std::size_t i = 0; i < n; ++i) t.tracklon[i] = t.tracklat[i] = static_cast<double>(i + 1);
        return;
    }
    for (std::size_t f = 0; f + 1 < fixes.size(); ++f)
        for (std::size_t i = fixes[f] + 1; i < fixes[f + 1]; ++i)
            carry(t, fixes[f], fixes[f], fixes[f + 1], i);
    // Back from the first fix with the slopes of the first two, forward from the last with those of
    // the last two.
    for (std::size_t i = 0; i < fixes.front(); ++i) carry(t, fixes[0], fixes[0], fixes[1], i);
    const std::size_t last = fixes.back(), before = fixes[fixes.size() - 2];
    for (std::size_t i = last + 1; i < n; ++i) carry(t, last, before, last, i);
}

bool scaletrack(Station& st) {
    Station::Track& t = st.track;
    const auto n = static_cast<std::size_t>(t.trackcount);
    const double w = trackscale(st) - 90, h = trackscale(st) - 90;
    double minlon = 1000000, maxlon = 0, minlat = 1000000, maxlat = 0;
    for (std::size_t i = 0; i < n; ++i) {
        minlon = std::min(minlon, t.tracklon[i]);
        maxlon = std::max(maxlon, t.tracklon[i]);
        minlat = std::min(minlat, t.tracklat[i]);
        maxlat = std::max(maxlat, t.tracklat[i]);
    }
    if (minlon == maxlon && minlat == maxlat) {
        st.ui->message("信息太少23。。。无法生成曲线");
        return false;
    }
    const double sx = maxlon - minlon != 0 ? w / (maxlon - minlon) : 999999999;
    const double sy = maxlat - minlat != 0 ? h / (maxlat - minlat) : 999999999;
    const double scale = std::min(sx, sy);
    for (std::size_t i = 0; i < n; ++i) {
        // The track keeps its shape and is centred along the axis with room to spare.
        if (sy < sx) {
            t.trackx[i] = (t.tracklon[i] - minlon) * scale + 60 + (w - (maxlon - minlon) * scale) / 2;
            t.tracky[i] = (t.tracklat[i] - minlat) * scale + 30;
        } else {
            t.trackx[i] = (t.tracklon[i] - minlon) * scale + 30;
            t.tracky[i] = (t.tracklat[i] - minlat) * scale + 60 + (w - (maxlat - minlat) * scale) / 2;
        }
        // North up.
        t.tracky[i] = h - t.tracky[i] + 80;
    }
    return true;
}

void drawtrack(Station& st) {
    Station::Track& t = st.track;
    // A plain white sheet under the black line, as a map is.
    Canvas* c = canvasnamed(st, "picturegj");
    if (c) {
        c->scale(trackscale(st), 0, trackscale(st));
        c->beginbackground(0xFFFFFF);
        c->storebackground();
        c->clear();
    }
    if (c && t.trackcount > 0) {
        c->forecolor = 0;
        c->fontsize = 9;
        c->currentx = t.trackx[0];
        c->currenty = t.tracky[0] + 5;
        c->print("起点");
        for (std::size_t i = 0; i < static_cast<std::size_t>(t.trackcount); ++i) {
            c->forecolor = 0;
            if (i % 10 == 0) {
                c->drawwidth = 3;
                c->pset(t.trackx[i], t.tracky[i]);
            }
            // The last element's line runs to the element behind the track, which stays at 0.
            c->drawwidth = 1;
            c->line(t.trackx[i], t.tracky[i], t.trackx[i + 1], t.tracky[i + 1]);
            if (t.trackfix[i] > 0) {
                c->forecolor = 255;
                c->drawwidth = 3;
                c->pset((t.trackx[i] + t.trackx[i + 1]) * 0.5, (t.tracky[i] + t.tracky[i + 1]) * 0.5);
            }
        }
    }
    followtrack(st);
}

void followtrack(Station& st) {
    Station::Track& t = st.track;
    if (t.trackcount <= 0) return;
    // The last element at or before the replay's place; the first before them all.
    const double here = st.zhu.mapat(st.zhu.viewindex);
    const auto begin = t.trackpos.begin(), end = begin + t.trackcount;
    const auto after = std::upper_bound(begin, end, here);
    t.trackcursor = static_cast<std::int32_t>(after == begin ? 0 : after - begin - 1);
    t.Shape6x = t.trackx[static_cast<std::size_t>(t.trackcursor)];
    t.Shape6y = t.tracky[static_cast<std::size_t>(t.trackcursor)];
}

namespace {

// The canvas at its size with the track prepared, scaled and drawn; the timer runs while it shows.
void showat(Station& st, bool big) {
    st.track.big = big;
    st.track.visible = true;
    st.track.Timer1 = true;
    preparetrack(st);
    if (scaletrack(st)) drawtrack(st);
}

} // namespace

void showtrack(Station& st) {
    if (st.zhu.gpscount < 2) {
        st.ui->message("距离过短，无法查看轨迹！");
        return;
    }
    showat(st, false);
}

void bigtrack(Station& st) {
    showat(st, true);
}

void smalltrack(Station& st) {
    showat(st, false);
}

void closetrack(Station& st) {
    st.track.visible = false;
    st.track.Timer1 = false;
}

} // namespace orvane

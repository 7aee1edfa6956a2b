#include "replay/bofang.h"

#include "replay/transport.h"

#include "bmode/bmode.h"
#include "recording/hex.h"
#include "recording/panels.h"
#include "station/canvas.h"
#include "station/numbers.h"
#include "station/station.h"
#include "station/vbval.h"

namespace orvane {

namespace {

// Moves cursor C forward along LIST until HERE lies between its element and the next; true when
// the cursor had to move. OUTOFLIST is the value it takes when the list ends first.
bool follow(std::int32_t& c, const EventList<std::int32_t>& list, std::int32_t count, std::int32_t bound,
            std::int32_t here, std::int32_t outoflist) {
    auto holds = [&](std::int32_t i) {
        return i >= 0 && i + 1 <= bound && i + 1 < static_cast<std::int32_t>(list.size()) &&
               between(list[i], here, list[i + 1]);
    };
    if (holds(c) || c + 1 > bound) return false;
    std::int32_t i = std::max(c, 0);
    while (i <= count - 1 && !holds(i)) ++i;
    c = i <= count - 1 ? i : outoflist;
    return true;
}

// The position labels' slot of a sample between view indices A and B.
std::int32_t sampleinslot(const Side& side, std::int32_t guess, std::int32_t a, std::int32_t b) {
    if (guess >= 0 && guess < side.samplecount && between(a, side.samplepos[guess], b)) return guess;
    for (std::int32_t i = 0; i < side.samplecount; ++i)
        if (between(a, side.samplepos[i], b)) return i;
    return -1;
}

// The newest note of an analyst at POSITION, printed as its mark's name and its date and time.
void analysisnote(Station& st, std::int32_t position, double x, double y) {
    for (std::int32_t n = st.analysiscount + st.newpoints - 1; n >= 0; --n) {
        if (n >= static_cast<std::int32_t>(st.analysispos.size()) || st.analysispos[n] != position) continue;
        const std::string& note = st.analysislist[n];
        const int entry = static_cast<int>(vbval(mid(note, 2, 1)));
        if (entry < 1 || entry > 8) return;
        Canvas& c = *st.picture1;
        c.currentx = x;
        c.currenty = y;
        c.forecolor = rgb(0, 191, 255);
        c.print(mid(f1to8[entry - 1], 4, 100) + "(" + mid(note, 3, 8) + "-" + mid(note, 11, 2) + ":" +
                mid(note, 13, 2) + ":" + mid(note, 15, 2) + ")");
        return;
    }
}

// The GPS entry in force at POSITION: the last one recorded at or before it.
std::int32_t gpsinforce(const Side& side, std::int32_t position) {
    std::int32_t n = -1;
    for (std::int32_t k = 0; k < side.gpscount && k < static_cast<std::int32_t>(side.gpspos.size()); ++k) {
        if (side.gpspos[k] > position) break;
        n = k;
    }
    return n;
}

} // namespace

void positionlabels(Station& st, Side& side) {
    const bool english = st.language == "english";
    const std::int64_t here = side.mapat(side.viewindex);
    const std::string s = formatfixed(side.mileageat(here + 300), 4, 3);
    const std::string caption = english ? "Current Trip：" : side.main ? "当前里程:" : "当前里程：";
    st.form.labels[side.main ? "Label1" : "Label16"] =
        caption + mid(s, 1, 4) + (english ? "Km" : "公里") + mid(s, 6, 3) + (english ? "m" : "米") +
        (side.Grid2.size() > 1 && side.Grid2[1].size() > 2 ? side.Grid2[1][2] : "");
    Canvas* c = pictureof(st, side);
    if (!c) return;
    c->fontsize = 12;
    c->fontbold = true;
    c->forecolor = st.settings.color("biaochicolor");
    const bool zhjz = st.displaymode == "zhjz";
    const int risea = zhjz ? 0 : 12;
    const int marklift = english && !st.form.comparisonvisible ? 100 : 0;
    const int viewspan = st.settings.viewspan;
    double lasttick = 9999;
    std::int64_t gap = 0;
    for (int j = 1; j <= 5; ++j) {
        const double y = side.scaletop + side.scaleheight - 25 + risea - marklift - 10 - (zhjz ? 30 : 0);
        const std::int32_t a = side.mapat(static_cast<std::int64_t>(side.viewindex) + 286 * (j - 1));
        const std::int32_t b = side.mapat(static_cast<std::int64_t>(side.viewindex) + 286 * j);
        gap += static_cast<std::int64_t>(b) - a - 286;
        const std::int32_t i = sampleinslot(side, side.samplecursor + j - 1, a, b);
        if (i < 0 || gap < 0) continue;
        const double t = viewspan - (side.samplepos[i] - here) + static_cast<double>(gap);
        const std::string& clock = side.sampleclock[i];
        const bool labelled = vbval(mid(clock, 7, 8)) > 0 || here > 2000;
        if (labelled && lasttick - t > 100) {
            c->currentx = t;
            c->currenty = y;
            c->forecolor = st.settings.color("biaochicolor");
            c->print(clocktext(clock) + " " + formatfixed(side.samplespeed[i], 1, 1) + "km/h " +
                     mid(clock, 7, 4) + "km" + mid(clock, 11, 3) + "m");
            lasttick = t;
        }
        // Notes of an analyst belong to the main recording only.
        if (side.main)
            analysisnote(st, side.samplepos[i], viewspan - (side.samplepos[i] - here),
                         side.scaletop + side.scaleheight - 25 + risea - marklift - (zhjz ? 10 : 0));
    }
}

void bofang(Station& st, Side& side) {
    Canvas* c = pictureof(st, side);
    if (c) c->clear();
    if (side.main && st.Picture9visible && st.hooks.zoom) st.hooks.zoom(st); // the enlargement follows
    if (st.direction == -1) side.jobcursor = side.paramcursor = side.markcursor = side.samplecursor = 0;
    const std::int32_t here = side.mapat(side.viewindex);
    if (follow(side.jobcursor, side.jobpos, side.jobcount, 1000, here, side.jobcount - 1))
        applyjob(st, side, side.jobcursor);
    if (follow(side.paramcursor, side.parampos, side.paramcount, 10000, here, side.paramcount))
        applyparam(st, side, side.paramcursor);
    if (follow(side.markcursor, side.markpos, side.markcount, 10000, here + 300, side.markcount - 1))
        showgpsentry(st, side, gpsinforce(side, here + 300));
    if (follow(side.samplecursor, side.samplepos, side.samplecount, 100000, here, side.samplecount - 1) &&
        side.samplecursor >= 0) {
        if (side.main)
            st.form.labels["Label2_1"] = std::string(st.language == "english" ? "Speed：" : "探测速度：") +
                                         formatfixed(side.samplespeed[side.samplecursor], 1, 1) + "km/h";
        setcell(side.Grid2, 1, 0, clocktext(side.sampleclock[side.samplecursor]));
    }
    positionlabels(st, side);
    if (c) {
        const int width = c->drawwidth;
        c->drawwidth = std::max<int>(1, st.settings.diandx);
        side.main ? loadall(st) : loadalldb(st);
        loadjjxx(st, side);
        drawmarker(st, side, "zd");
        drawmarker(st, side, "qd");
        c->drawwidth = width;
    }
    if (!side.main) return;
    ++st.framecount;
    for (std::int32_t k = 0; k < side.quarterlast; ++k) {
        if (between(side.quarterindex[k], here, side.quarterindex[k + 1])) {
            st.form.labels["Ljls"] = "记录号:" + std::to_string(k + 1) + "/" +
                                     std::to_string(side.quarterlast) + "  " + st.form.labels["Lzygk"];
            break;
        }
    }
}

std::string clocktext(const std::string& clock) {
    return mid(clock, 1, 2) + ":" + mid(clock, 3, 2) + ":" + mid(clock, 5, 2);
}

void bofang(Station& st) {
    bofang(st, st.zhu);
}

void bofangdb(Station& st) {
    bofang(st, st.cong);
}

void gotoposition(Station& st, int seektarget) {
    Side& side = st.zhu;
    if (st.settings.reverseshow == 1 && st.settings.wholefile == 1) {
        side.viewindex = seektarget;
    } else {
        std::int64_t k =
            std::min<std::int64_t>(seektarget, static_cast<std::int64_t>(side.viewmap.size()) - 1);
        while (k > 0 && side.mapat(k) > seektarget) --k;
        side.viewindex = static_cast<std::int32_t>(std::max<std::int64_t>(k, 0));
    }
    if (side.viewindex < 600) side.viewindex = 600;
    side.jobcursor = side.paramcursor = side.markcursor = side.samplecursor = 0;
    bofang(st);
}

} // namespace orvane

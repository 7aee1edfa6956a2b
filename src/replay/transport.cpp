#include "replay/transport.h"

#include "recording/hex.h"
#include "replay/bofang.h"
#include "replay/viewmap.h"
#include "station/canvas.h"
#include "station/numbers.h"
#include "station/station.h"
#include "station/vbval.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvane {

namespace {

// A message of the transport in both languages.
struct Said {
    const char* china;
    const char* other;
};

void message(Station& st, Said said) {
    st.ui->message(english(st) ? said.other : said.china);
}

constexpr Said atend{atendmessage, "End"};
constexpr Said atstart{atstartmessage, "begin"};
// The comparison side's texts; two of them have a blank before the mark.
constexpr Said comparisonatstart{"已经播放到文件最初位置 ！", "begin"};
constexpr Said comparisonatend{"对比已经播放到文件最后位置 ！", "the 2nd end"};
constexpr Said comparisonfloor{"对比已经播放到文件最初位置！", "the 2nd begin"};

// The comparison side moves with the main one while it is shown and the sides are in step.
bool comparisonfollows(const Station& st) {
    return st.form.comparisonvisible && !st.asynchronous;
}

// Whether the view passed the end of its bar: viewindex / 300 as a real number above the maximum, so
// that a view inside the last 300 view indices past the maximum counts as past it.
bool pastbar(const Side& s) {
    return s.viewindex / 300.0 > s.scrollmax;
}

} // namespace

bool replaying(const Station& st) {
    const auto caption = st.form.captions.find("Command8");
    return caption != st.form.captions.end() && (caption->second == "播放暂停" || caption->second == "Pause");
}

void settle(Station& st, Side& s) {
    st.T2 = false;
    st.Picture5visible = false;
    s.jobcursor = s.paramcursor = s.markcursor = s.samplecursor = 0;
    bofang(st, s);
}

void setreplayspeed(Station& st) {
    static const int steps[] = {2, 3, 4, 5, 7, 300, 500, 700, 1000};
    const int value = std::clamp<int>(st.settings.bofsd, 1, 9);
    st.replaystep = static_cast<std::int16_t>(steps[value - 1]);
    if (value == 9 && st.settings.viewspan == 600) st.replaystep = 400; // Option8 "扩展"
    st.T1interval = value <= 5 ? 15 : 500;
}

void capexpanded(Station& st) {
    st.replaystep = std::min<std::int16_t>(st.replaystep, 400);
    st.settings.manualstep = std::min<std::int16_t>(st.settings.manualstep, 400);
}

void pressplay(Station& st) {
    if (replaying(st)) {
        st.T1 = false;
        st.form.captions["Command8"] = english(st) ? "Play" : "连续播放";
        return;
    }
    // The replay takes the room of the A-mode and the measurement: the panel, the timer, the marker
    // and the measuring line go, the read-out hides and the seek comes back.
    st.Picture5visible = false;
    st.T2 = false;
    for (Side* s : {&st.zhu, &st.cong}) {
        s->amodemarker.visible = s->measuremark.visible = false;
        s->Label14.visible = false;
    }
    st.Label10visible = false;
    st.seekshown = true;
    st.T1 = true;
    st.form.captions["Command8"] = english(st) ? "Pause" : "播放暂停";
}

namespace {

// The main side's part of a tick; false when the tick ends there.
bool tickmain(Station& st) {
    Side& s = st.zhu;
    if (st.direction == 1 && st.settings.reverseshow == 0) fzjjsz(st, s); // Option1
    st.Picture9visible = false;
    if (st.direction == -1 && s.viewindex < 1300) {
        message(st, {atstartmessage, "start"});
        st.T1 = false;
        return false;
    }
    if (s.viewindex >= s.lastposition) {
        message(st, atend);
        st.T1 = false;
        pressplay(st);
        return false;
    }
    s.viewindex += st.direction * st.replaystep;
    if (pastbar(s)) {
        s.viewindex = s.scrollmax * 300;
        bofang(st);
        message(st, atend);
        st.T1 = false;
        pressplay(st);
        return true;
    }
    bofang(st);
    return true;
}

// The comparison side's part: its timer stops before its message, not after.
void tickcomparison(Station& st) {
    Side& s = st.cong;
    if (st.direction == 1) fzjjsz(st, s);
    if (st.direction == -1 && s.viewindex < 1300) {
        st.ui->message(comparisonatstart.china); // this one has no English text
        st.T1 = false;
        return;
    }
    if (s.viewindex >= s.lastposition) {
        st.T1 = false;
        message(st, comparisonatend);
        if (replaying(st)) pressplay(st);
        return;
    }
    s.viewindex += st.direction * st.replaystep;
    if (s.viewindex / 300.0 >= s.scrollmax) { // the comparison ends at the bar's maximum already
        st.T1 = false;
        s.viewindex = s.scrollmax * 300;
        bofangdb(st);
        message(st, comparisonatend);
        return;
    }
    bofangdb(st);
}

} // namespace

void replaytick(Station& st) {
    const bool mainleft = st.asynchronous && st.playside == "cong";
    if (!mainleft && !tickmain(st)) return;
    if (!st.form.comparisonvisible || (st.asynchronous && st.playside == "zhu")) return;
    tickcomparison(st);
}

namespace {

// A step of AMOUNT view indices forward of SIDE, to the end of its bar at most.
void stepon(Station& st, Side& s, Said end, std::int32_t amount) {
    // Past the bar's end the view stands at the end anyway: the sum never leaves 32 bits.
    const std::int64_t ahead = std::int64_t{s.viewindex} + amount;
    s.viewindex = static_cast<std::int32_t>(
        std::max<std::int64_t>(std::min<std::int64_t>(ahead, std::int64_t{s.scrollmax} * 300 + 1), 600));
    if (pastbar(s)) {
        s.viewindex = s.scrollmax * 300;
        bofang(st, s);
        message(st, end);
        return;
    }
    settle(st, s);
}

// The other side follows a step forward unless it stands at an end of its file.
void followon(Station& st, Side& s, Said start, Said end, Said barend, std::int32_t amount) {
    if (st.direction == 1) fzjjsz(st, s);
    if (st.direction == -1 && s.viewindex < 1300) return message(st, start);
    if (s.viewindex >= s.lastposition) return message(st, end);
    stepon(st, s, barend, amount);
}

// A step of AMOUNT view indices back of SIDE, down to 600 at most.
void stepbackon(Station& st, Side& s, Said floor, std::int32_t amount) {
    const std::int64_t back = std::int64_t{s.viewindex} - amount;
    if (back >= 600) {
        s.viewindex = static_cast<std::int32_t>(back);
        return settle(st, s);
    }
    s.viewindex = 600;
    bofang(st, s);
    message(st, floor);
}

} // namespace

void stepforward(Station& st) {
    stepforwardby(st, st.settings.manualstep);
}

void stepback(Station& st) {
    stepbackby(st, st.settings.manualstep);
}

void stepforwardby(Station& st, std::int32_t amount) {
    stepon(st, st.zhu, atend, amount);
    if (comparisonfollows(st)) followon(st, st.cong, comparisonatstart, comparisonatend, atend, amount);
}

void stepbackby(Station& st, std::int32_t amount) {
    stepbackon(st, st.zhu, atstart, amount);
    if (comparisonfollows(st)) stepbackon(st, st.cong, comparisonfloor, amount);
}

void stepforwarddb(Station& st) {
    if (!st.form.comparisonvisible) return;
    stepon(st, st.cong, {"已经播放到文件最后位置 ！", "end"}, st.settings.manualstep);
    if (!st.asynchronous)
        followon(st, st.zhu, {atstartmessage, "begin"}, atend, atend, st.settings.manualstep);
}

void stepbackdb(Station& st) {
    if (!st.form.comparisonvisible) return;
    stepbackon(st, st.cong, comparisonfloor, st.settings.manualstep);
    if (!st.asynchronous) stepbackon(st, st.zhu, atstart, st.settings.manualstep);
}

namespace {

double kilometredifference(const Side& s, std::int64_t k, double target) {
    return std::fabs(static_cast<double>(s.mileageat(s.mapat(k))) * 1000 - target);
}

// The view index between 800 and lastposition - 400 nearest to TARGET metres, the first on ties;
// -1 when none comes within 10^8.
std::int64_t nearestkilometre(const Side& s, double target) {
    double best = 1e8;
    std::int64_t at = -1;
    for (std::int64_t k = 800; k <= static_cast<std::int64_t>(s.lastposition) - 400; ++k) {
        const double d = kilometredifference(s, k, target);
        if (d < best) best = d, at = k;
    }
    return at;
}

} // namespace

void seekkilometre(Station& st) {
    Side& s = st.zhu;
    if (st.T1) pressplay(st);
    const double target = vbval(st.Text1) * 1000;
    st.seekcount = 0;
    const std::int64_t last = static_cast<std::int64_t>(s.lastposition) - 400;
    for (std::int64_t k = 800; k <= last && st.seekcount < 100; ++k) {
        if (kilometredifference(s, k, target) < 2.0) {
            st.seekhits[st.seekcount++] = static_cast<std::int32_t>(k);
            k += 1000; // the next pass of the same kilometre lies at least 1001 view indices on
            if (k + 1 > last) break;
        }
    }
    if (st.seekcount == 0) {
        const std::int64_t at = nearestkilometre(s, target);
        if (at < 0) return; // nothing near: the view stays
        st.seekhits[0] = static_cast<std::int32_t>(at);
        st.seekcount = 1;
    }
    st.seekat = 1;
    s.viewindex = st.seekhits[0];
    settle(st, s);
}

void nextseekhit(Station& st) {
    if (st.seekcount == 0) return;
    st.seekat = static_cast<std::int16_t>(st.seekat + 1 > st.seekcount ? 1 : st.seekat + 1);
    st.zhu.viewindex = st.seekhits[st.seekat - 1];
    settle(st, st.zhu);
}

void seekkilometredb(Station& st) {
    if (st.T1) pressplay(st);
    Side& s = st.cong;
    const std::int64_t at = nearestkilometre(s, vbval(st.Text2) * 1000);
    if (at < 0) return;
    s.viewindex = static_cast<std::int32_t>(at);
    settle(st, s);
}

namespace {

// A marker at the pointer on SIDE's picture: its x, the position at the view's edge, the position
// under it.
void notemarker(Station& st, const Side& s, const char* kind, std::int32_t& x, std::int32_t& pos,
                std::int32_t& dist, std::int32_t& clip) {
    st.markerkind = kind;
    x = static_cast<std::int32_t>(st.pointerx);
    pos = s.mapat(s.viewindex);
    dist = clip = s.mapat(static_cast<std::int64_t>(s.viewindex) + st.settings.viewspan -
                          static_cast<std::int64_t>(st.pointerx));
}

} // namespace

void markstart(Station& st, Side& s) {
    notemarker(st, s, "qd", s.startx, s.startpos, s.startdist, st.clipstart);
    (s.main ? st.form.azdenabled : st.form.azddbenabled) = true;
    bofang(st, s);
}

void markend(Station& st, Side& s) {
    notemarker(st, s, "zd", s.endx, s.endpos, s.enddist, st.clipend);
    if (s.main) st.form.accenabled = true;
    bofang(st, s);
}

void drawmarker(Station& st, const Side& s, const char* kind) {
    Canvas* c = pictureof(st, s);
    if (!c || s.startx == 0) return;
    const std::int32_t here = s.mapat(s.viewindex);
    const double line0 = here - s.startpos + s.startx, line1 = here - s.endpos + s.endx;
    if (s.startx <= 0 || s.endx <= 0) return;
    const bool end = std::string(kind) == "zd";
    const double x = std::round(end ? line1 : line0);
    const int width = c->drawwidth;
    c->drawwidth = 2;
    c->forecolor = st.settings.color("biaochicolor");
    c->line(line0, 290, line1, 290);
    c->drawwidth = width;
    const std::int32_t d1 = s.startpos - s.startx, d2 = s.endpos - s.endx;
    const bool leftof = (d2 <= d1) == end;
    c->currentx = leftof ? x - 38 : x + 8;
    c->currenty = end ? 299 : st.displaymode == "fenjie" ? 273 : 261;
    c->fontsize = 12;
    c->print(formatfixed(std::abs(s.startdist - s.enddist) * 0.0035, 1, 3) + "米");
}

std::string kilometrenote(const Side& s) {
    const std::string note = formatfixed(s.mileageat(s.mapat(s.viewindex)), 4, 3);
    return mid(note, 1, 4) + "." + mid(note, 6, 3);
}

void keepplace(Station& st) {
    const std::string note = kilometrenote(st.zhu);
    rebuildmap(st, st.zhu);
    st.Text1 = note;
    seekkilometre(st);
    if (!st.form.comparisonvisible) return;
    const std::string notedb = kilometrenote(st.cong);
    rebuildmap(st, st.cong);
    st.Text2 = notedb;
    seekkilometredb(st);
}

void yybscs(Station& st) {
    if (st.analysiscount <= 0) return;
    const std::string& newest = st.analysislist[st.analysiscount - 1];
    gotoposition(st, static_cast<int>(hexvalue(mid(newest, 1, 6))));
}

} // namespace orvane

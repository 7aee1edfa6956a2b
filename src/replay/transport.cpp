#include "replay/transport.h"

#include "app/canvas.h"
#include "app/numbers.h"
#include "app/station.h"
#include "recording/hex.h"
#include "replay/bofang.h"
#include "replay/viewmap.h"
#include "stores/vbval.h"

#include <cmath>
#include <limits>

namespace orvane {

namespace {

bool english(const Station& st) {
    return st.language == "english";
}

void message(Station& st, const char* china, const char* other) {
    st.ui->message(english(st) ? other : china);
}

// The view comes to rest: the scroll bar, the A-mode stopped, the cursors from the start.
void settle(Station& st) {
    st.T2 = false;
    Side& s = st.zhu;
    s.jobcursor = s.paramcursor = s.markcursor = s.samplecursor = 0;
    bofang(st);
}

} // namespace

void setreplayspeed(Station& st) {
    static const int steps[] = {2, 3, 4, 5, 7, 300, 500, 700, 1000};
    const int value = std::clamp<int>(st.settings.bofsd, 1, 9);
    st.replaystep = static_cast<std::int16_t>(steps[value - 1]);
    if (value == 9 && st.settings.viewspan == 600) st.replaystep = 400; // Option8 "扩展"
    st.T1interval = value <= 5 ? 15 : 500;
}

void pressplay(Station& st) {
    const std::string pause = english(st) ? "Pause" : "播放暂停";
    const std::string play = english(st) ? "Play" : "连续播放";
    if (st.form.captions["Command8"] == pause) {
        st.T1 = false;
        st.form.captions["Command8"] = play;
        return;
    }
    st.T2 = false;
    st.T1 = true;
    st.form.captions["Command8"] = pause;
}

void replaytick(Station& st) {
    Side& s = st.zhu;
    if (st.playside == "cong" && st.asynchronous) return;
    if (st.direction == 1 && st.settings.reverseshow == 0) fzjjsz(st, s); // Option1
    if (st.direction == -1 && s.viewindex < 1300) {
        message(st, atstartmessage, "start");
        st.T1 = false;
        return;
    }
    if (s.viewindex >= s.lastposition) {
        message(st, atendmessage, "End");
        st.T1 = false;
        pressplay(st);
        return;
    }
    s.viewindex += st.direction * st.replaystep;
    if (s.viewindex / 300 > s.scrollmax) {
        s.viewindex = s.scrollmax * 300;
        bofang(st);
        message(st, atendmessage, "End");
        st.T1 = false;
        pressplay(st);
        return;
    }
    bofang(st);
}

void stepforward(Station& st) {
    Side& s = st.zhu;
    s.viewindex = std::max(s.viewindex + st.settings.manualstep, 600);
    if (s.viewindex / 300 > s.scrollmax) {
        s.viewindex = s.scrollmax * 300;
        bofang(st);
        message(st, atendmessage, "End");
        return;
    }
    settle(st);
}

void stepback(Station& st) {
    Side& s = st.zhu;
    s.viewindex -= st.settings.manualstep;
    if (s.viewindex >= 600) {
        settle(st);
        return;
    }
    s.viewindex = 600;
    bofang(st);
    message(st, atstartmessage, "begin");
}

void seekkilometre(Station& st) {
    Side& s = st.zhu;
    if (st.T1) pressplay(st);
    const double target = stores::vbval(st.Text1) * 1000;
    st.seekcount = 0;
    auto difference = [&](std::int64_t k) {
        const std::int64_t p = s.mapat(k);
        const float km = p >= 0 && p < s.gridrows ? s.mileage[p][0] : 0.0f;
        return std::fabs(static_cast<double>(km) * 1000 - target);
    };
    const std::int64_t last = static_cast<std::int64_t>(s.lastposition) - 400;
    for (std::int64_t k = 800; k <= last && st.seekcount < 100; ++k) {
        if (difference(k) < 2.0) {
            st.seekhits[st.seekcount++] = static_cast<std::int32_t>(k);
            k += 1000; // the next pass of the same kilometre lies at least 1001 view indices on
            if (k + 1 > last) break;
        }
    }
    if (st.seekcount == 0) {
        double best = 1e8;
        std::int64_t at = -1;
        for (std::int64_t k = 800; k <= last; ++k) {
            const double d = difference(k);
            if (d < best) best = d, at = k;
        }
        if (at < 0) return; // nothing near: the view stays
        st.seekhits[0] = static_cast<std::int32_t>(at);
        st.seekcount = 1;
    }
    st.seekat = 1;
    s.viewindex = st.seekhits[0];
    settle(st);
}

void nextseekhit(Station& st) {
    if (st.seekcount == 0) return;
    st.seekat = static_cast<std::int16_t>(st.seekat + 1 > st.seekcount ? 1 : st.seekat + 1);
    st.zhu.viewindex = st.seekhits[st.seekat - 1];
    settle(st);
}

namespace {

// A marker at the pointer: its x, the position at the view's edge, the position under it.
void notemarker(Station& st, const char* kind, std::int32_t& x, std::int32_t& pos, std::int32_t& dist,
                std::int32_t& clip) {
    const Side& s = st.zhu;
    st.markerkind = kind;
    x = static_cast<std::int32_t>(st.pointerx);
    pos = s.mapat(s.viewindex);
    dist = clip = s.mapat(static_cast<std::int64_t>(s.viewindex) + st.settings.viewspan -
                          static_cast<std::int64_t>(st.pointerx));
}

} // namespace

void markstart(Station& st) {
    notemarker(st, "qd", st.startx, st.startpos, st.startdist, st.clipstart);
    st.form.azdenabled = true;
    bofang(st);
}

void markend(Station& st) {
    notemarker(st, "zd", st.endx, st.endpos, st.enddist, st.clipend);
    st.form.accenabled = true;
    bofang(st);
}

void drawmarker(Station& st, const char* kind) {
    Canvas* c = st.picture1;
    if (!c || st.startx == 0) return;
    const std::int32_t here = st.zhu.mapat(st.zhu.viewindex);
    const double line0 = here - st.startpos + st.startx, line1 = here - st.endpos + st.endx;
    if (st.startx <= 0 || st.endx <= 0) return;
    const bool end = std::string(kind) == "zd";
    const double x = std::round(end ? line1 : line0);
    const int width = c->drawwidth;
    c->drawwidth = 2;
    c->forecolor = st.settings.color("biaochicolor");
    c->line(line0, 290, line1, 290);
    c->drawwidth = width;
    const std::int32_t d1 = st.startpos - st.startx, d2 = st.endpos - st.endx;
    const bool leftof = (d2 <= d1) == end;
    c->currentx = leftof ? x - 38 : x + 8;
    c->currenty = end ? 299 : st.displaymode == "fenjie" ? 273 : 261;
    c->fontsize = 12;
    c->print(formatfixed(std::abs(st.startdist - st.enddist) * 0.0035, 1, 3) + "米");
}

void keepplace(Station& st) {
    Side& s = st.zhu;
    const std::int64_t p = s.mapat(s.viewindex);
    const std::string note = formatfixed(p >= 0 && p < s.gridrows ? s.mileage[p][0] : 0.0f, 4, 3);
    rebuildmap(st, s);
    st.Text1 = mid(note, 1, 4) + "." + mid(note, 6, 3);
    seekkilometre(st);
}

void yybscs(Station& st) {
    if (st.analysiscount <= 0) return;
    const std::string& newest = st.analysislist[st.analysiscount - 1];
    gotoposition(st, static_cast<int>(hexvalue(mid(newest, 1, 6))));
}

} // namespace orvane

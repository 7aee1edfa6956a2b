// orvane-cli run: the user's actions, in order, through the table of controls, and the state they
// leave.
#include "amode/amode.h"
#include "app/startup.h"
#include "commands.h"
#include "curves/track.h"
#include "json.h"
#include "replay/transport.h"
#include "station/scriptedui.h"
#include "station/station.h"
#include "station/systemclock.h"

#include <cmath>
#include <stdexcept>

namespace orvane::cli {

namespace {

std::vector<std::string> split(const std::string& action) {
    std::vector<std::string> parts;
    std::size_t at = 0;
    for (std::size_t colon; (colon = action.find(':', at)) != std::string::npos; at = colon + 1)
        parts.push_back(action.substr(at, colon - at));
    parts.push_back(action.substr(at));
    return parts;
}

double real(const std::string& text, const std::string& action) {
    std::size_t used = 0;
    try {
        const double v = std::stod(text, &used);
        if (used == text.size()) return v;
    } catch (const std::exception&) {
    }
    throw ActionError("not a number in " + action);
}

int number(const std::string& text, const std::string& action) {
    const double v = real(text, action);
    if (v != std::floor(v) || std::fabs(v) > 2147483647.0)
        throw ActionError("not a whole number in " + action);
    return static_cast<int>(v);
}

// Everything of ACTION behind its kind and name: a text may hold colons of its own.
std::string rest(const std::string& action, const std::vector<std::string>& p) {
    return action.substr(p[0].size() + p[1].size() + 2);
}

} // namespace

bool runaction(Station& st, const std::string& action) {
    const std::vector<std::string> p = split(action);
    const std::string& kind = p[0];
    if (kind == "press" && (p.size() == 2 || p.size() == 3)) {
        press(st, p[1], p.size() == 3 ? p[2] : "");
    } else if (kind == "tick" && p.size() == 2) {
        for (int n = number(p[1], action); n > 0; --n) {
            if (st.T1) replaytick(st);
            if (st.T2) amodetick(st);
            if (st.track.Timer1) followtrack(st);
        }
    } else if (kind == "enter" && p.size() >= 3) {
        enter(st, p[1], rest(action, p));
    } else if (kind == "set" && p.size() >= 3) {
        setcontrol(st, p[1], rest(action, p));
    } else if (kind == "scroll" && p.size() == 3) {
        scroll(st, p[1], number(p[2], action));
    } else if (kind == "mouse" && p.size() == 6) {
        mouse(st, p[1], {p[2], p[3], real(p[4], action), real(p[5], action)});
    } else if (kind == "row" && p.size() == 3) {
        clickrow(st, p[1], number(p[2], action));
    } else if (kind == "dblclick" && (p.size() == 2 || p.size() == 3)) {
        dblclick(st, p[1], p.size() == 3 ? number(p[2], action) : -1);
    } else if (kind == "key" && p.size() == 3) {
        keypress(st, p[1], p[2]);
    } else if (kind == "select" && p.size() >= 3) {
        select(st, p[1], rest(action, p));
    } else if (kind == "clock" && p.size() == 2) {
        const auto time = clocktime(p[1]);
        auto* clock = dynamic_cast<SystemClock*>(st.clock);
        if (!time || !clock) throw ActionError("not a time YYYYMMDD-hhmmss in " + action);
        clock->stand(*time);
    } else if (kind == "close" && p.size() == 2) {
        if (p[1] != "Form28") {
            closeform(st, p[1]);
        } else {
            windowunload(st);
            return false; // the main window closed: the actions end
        }
    } else {
        throw ActionError("unknown action " + action);
    }
    return true;
}

namespace {

// The keys that each side has, with SUFFIX "db" behind them on the comparison side.
void sidestate(Json& j, const Side& s, const std::string& suffix) {
    const std::pair<const char*, std::int64_t> numbers[] = {
        {"viewindex", s.viewindex},   {"viewlength", s.viewlength},
        {"jobcursor", s.jobcursor},   {"paramcursor", s.paramcursor},
        {"markcursor", s.markcursor}, {"samplecursor", s.samplecursor},
        {"startx", s.startx},         {"startpos", s.startpos},
        {"startdist", s.startdist},   {"endx", s.endx},
        {"endpos", s.endpos},         {"enddist", s.enddist}};
    for (auto& [name, value] : numbers) j.key(name + suffix).value(value);
    j.key("HScrolljd" + suffix)
        .beginobject()
        .key("value")
        .value(s.viewindex / 300)
        .key("max")
        .value(s.scrollmax)
        .endobject();
    j.key("pinkongval" + suffix).beginarray();
    for (auto w : s.pinkongval) j.value(static_cast<std::int64_t>(w));
    j.endarray();
}

void lineshape(Json& j, const std::string& name, const LineShape& l) {
    j.key(name).beginobject();
    j.key("visible").value(l.visible);
    j.key("x1").value(l.x1).key("y1").value(l.y1).key("x2").value(l.x2).key("y2").value(l.y2);
    j.endobject();
}

// Every control of the open windows with what it shows, under its name.
void controlsstate(Json& j, const Station& st) {
    j.key("controls").beginobject();
    lineshape(j, "Lineyz(21)", st.zhu.amodemarker);
    lineshape(j, "Lineyz(22)", st.zhu.measuremark);
    if (st.form.comparisonvisible) lineshape(j, "Lineyzdb(21)", st.cong.amodemarker);
    for (const Control& c : st.controls.all()) {
        if (c.kind == ControlKind::grid || !st.controls.isopen(st, ControlTable::formof(c.name))) continue;
        j.key(c.name).beginobject();
        const std::string caption = controlcaption(st, c);
        if (!caption.empty() || c.caption) j.key("caption").value(caption);
        if (c.textof) j.key("text").value(c.textof(st));
        if (c.value) j.key("value").value(c.value(st));
        j.key("enabled").value(c.isenabled(st));
        j.key("visible").value(c.isvisible(st));
        j.endobject();
    }
    j.endobject();
    j.key("grids").beginobject();
    for (const Control& c : st.controls.all()) {
        if (c.kind != ControlKind::grid || !c.cells || !st.controls.isopen(st, ControlTable::formof(c.name)))
            continue;
        j.key(c.name).beginarray();
        for (const auto& row : c.cells(st)) {
            j.beginarray();
            for (const auto& cell : row) j.value(cell);
            j.endarray();
        }
        j.endarray();
    }
    j.endobject();
    j.key("open").beginarray();
    for (const std::string& form : openforms(st)) j.value(form);
    j.endarray();
}

} // namespace

std::string statejson(Station& st, const ScriptedUi& ui, const DumpRanges& ranges,
                      const std::vector<std::string>* workbooks, const std::vector<std::string>* pages) {
    Json j;
    j.beginobject();
    j.key("messages").beginarray();
    for (const auto& m : ui.messages) j.value(m);
    j.endarray();
    j.key("questions").beginarray();
    for (const auto& q : ui.questions) j.value(q);
    j.endarray();
    if (workbooks) {
        j.key("workbooks").beginarray();
        for (const auto& path : *workbooks) j.value(path);
        j.endarray();
    }
    if (pages) {
        j.key("pages").beginarray();
        for (const auto& path : *pages) j.value(path);
        j.endarray();
    }
    j.key("state").beginobject();
    sidestate(j, st.zhu, "");
    if (st.form.comparisonvisible) sidestate(j, st.cong, "db");
    j.key("replaystep").value(st.replaystep);
    j.key("manualstep").value(st.settings.manualstep);
    j.key("direction").value(st.direction);
    j.key("seekat").value(st.seekat);
    j.key("T1").value(st.T1).key("T2").value(st.T2);
    // The A-mode.
    j.key("amodechannel").value(st.amodechannel).key("amodeside").value(st.amodeside);
    j.key("allchannelview").value(st.allchannelview);
    j.key("amodecolumn").value(st.amodecolumn).key("amodefirst").value(st.amodefirst);
    j.key("amodelast").value(st.amodelast);
    j.key("cursorx").value(st.cursorx).key("cursorcolumn").value(st.cursorcolumn);
    j.key("paramindex").value(st.paramindex);
    j.key("gatevalues").beginarray();
    for (auto g : st.gatevalues) j.value(static_cast<std::int64_t>(g));
    j.endarray();
    j.key("echox").value(st.echox).key("latex").value(st.latex);
    j.key("scrollheld").value(st.scrollheld).key("clicky").value(st.clicky);
    j.key("T2interval").value(st.T2interval);
    j.key("dragarmed")
        .value(st.dragarmed)
        .key("pressx")
        .value(st.pressx)
        .key("oblique70")
        .value(st.oblique70);
    j.key("measurestart").value(st.measurestart).key("measureend").value(st.measureend);
    j.key("measuregrip").value(st.measuregrip);
    j.key("Picture9visible").value(st.Picture9visible).key("magnifierfactor").value(st.magnifierfactor);
    // The filter and the comparison.
    j.key("filteractive").value(st.filteractive).key("comparisonstore").value(st.comparisonstore);
    j.key("eventcount").value(st.eventcount).key("hitcount").value(st.hitcount);
    j.key("hitpos").beginarray();
    for (std::int32_t i = 0; i < st.hitcount; ++i) j.value(st.hitpos[i]);
    j.endarray();
    j.key("hitchannel").beginarray();
    for (std::int32_t i = 0; i < st.hitcount; ++i) j.value(st.hitchannel[i]);
    j.endarray();
    j.key("layoutchanged").value(st.layoutchanged).key("savedmode").value(st.savedmode);
    // The analyst's session and the clip.
    j.key("analysiscount").value(st.analysiscount).key("newpoints").value(st.newpoints);
    j.key("analysislist").beginarray();
    for (std::int32_t i = 0; i < st.analysiscount + st.newpoints; ++i) j.value(st.analysislist[i]);
    j.endarray();
    j.key("analysispos").beginarray();
    for (std::int32_t i = 0; i < st.analysiscount + st.newpoints; ++i) j.value(st.analysispos[i]);
    j.endarray();
    j.key("markcode").value(st.markcode).key("sessionstart").value(st.sessionstart);
    j.key("clipstart")
        .value(st.clipstart)
        .key("clipend")
        .value(st.clipend)
        .key("cliptarget")
        .value(st.cliptarget);
    j.key("Tmc").value(st.form.Tmc);
    // The curves and the track.
    const auto& cv = st.curves;
    j.key("curveend").value(cv.curveend).key("curvemargin").value(cv.curvemargin);
    j.key("curvechannel")
        .value(cv.curvechannel)
        .key("curvecolor")
        .value(static_cast<std::int64_t>(cv.curvecolor));
    j.key("speedfirst").value(cv.speedfirst);
    const auto& t = st.track;
    j.key("trackcount").value(t.trackcount).key("trackvalid").value(t.trackvalid);
    j.key("trackcursor").value(t.trackcursor).key("Timer1").value(t.Timer1);
    for (const auto& [name, list] : {std::pair{"tracklon", &t.tracklon},
                                     {"tracklat", &t.tracklat},
                                     {"trackfix", &t.trackfix},
                                     {"trackpos", &t.trackpos},
                                     {"trackx", &t.trackx},
                                     {"tracky", &t.tracky}}) {
        j.key(name).beginarray();
        for (std::int32_t i = 0; i < t.trackcount && i < static_cast<std::int32_t>(list->size()); ++i)
            j.value((*list)[static_cast<std::size_t>(i)]);
        j.endarray();
    }
    j.key("Shape6")
        .beginobject()
        .key("visible")
        .value(t.visible)
        .key("x")
        .value(t.Shape6x)
        .key("y")
        .value(t.Shape6y)
        .endobject();
    // The analysis index and the reports.
    j.key("Frame3visible").value(st.form.Frame3visible).key("SSTab1").value(st.form.SSTab1);
    auto rowpositions = [&j](const char* name, const std::vector<std::int32_t>& list, std::size_t rows) {
        j.key(name).beginarray();
        for (std::size_t i = 0; i + 1 < rows && i < list.size(); ++i) j.value(list[i]);
        j.endarray();
    };
    rowpositions("markrowpos", st.markrowpos, st.form.Grid1ts.size());
    rowpositions("handoverrowpos", st.handoverrowpos, st.form.Grid1ry.size());
    j.key("overspeedcount").value(st.overspeedcount);
    j.key("buildvariant").value(st.buildvariant).key("tarvikmode").value(st.tarvikmode);
    j.key("displaymode").value(st.displaymode).key("playside").value(st.playside);
    j.key("scratchpath").value(st.scratchpath).key("filepathdb").value(st.cong.filepath);
    j.key("seekhits").beginarray();
    for (int i = 0; i < st.seekcount; ++i) j.value(st.seekhits[i]);
    j.endarray();
    j.key("captions").beginobject();
    for (const auto& [name, text] : st.form.captions) j.key(name).value(text);
    j.endobject();
    j.key("labels").beginobject();
    for (const auto& [name, text] : st.form.labels) j.key(name).value(text);
    j.endobject();
    // The pictures going out: the notice's kind and the colours in force in memory, which a white
    // print changes until Label33.
    j.key("noticekind").value(st.noticekind);
    j.key("colors").beginobject();
    for (std::size_t i = 0; i < colorkeys.size(); ++i)
        j.key(colorkeys[i]).value(static_cast<std::int64_t>(st.settings.colorset[i]));
    j.endobject();
    controlsstate(j, st);
    j.endobject();
    j.key("written").beginarray();
    for (const std::string& path : st.written) j.value(path);
    j.endarray();
    if (ranges.cells) cellsjson(j, "cells", st.zhu, *ranges.cells);
    if (ranges.cellsdb) {
        // The comparison store, also while it only holds the filter's backup; none before it exists.
        if (st.comparisonstore == "yes")
            cellsjson(j, "cellsdb", st.cong, *ranges.cellsdb);
        else
            j.key("cellsdb").beginarray().endarray();
    }
    j.endobject();
    return j.text();
}

} // namespace orvane::cli

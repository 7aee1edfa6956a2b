// orvane-cli run: the user's actions on Form28, in order, and the state they leave.
#include "app/actions.h"
#include "app/station.h"
#include "commands.h"
#include "json.h"

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

int number(const std::string& text, const std::string& action) {
    std::size_t used = 0;
    try {
        const int n = std::stoi(text, &used);
        if (used == text.size()) return n;
    } catch (const std::exception&) {
    }
    throw ActionError("not a number in " + action);
}

} // namespace

void runaction(Station& st, const std::string& action) {
    const std::vector<std::string> p = split(action);
    const std::string& kind = p[0];
    if (kind == "press" && (p.size() == 2 || p.size() == 3))
        return press(st, p[1], p.size() == 3 ? p[2] : "");
    if (kind == "tick" && p.size() == 2) return tick(st, number(p[1], action));
    if (kind == "enter" && p.size() >= 3)
        return enter(st, p[1], action.substr(kind.size() + p[1].size() + 2));
    if (kind == "scroll" && p.size() == 3) return scroll(st, p[1], number(p[2], action));
    if (kind == "mouse" && p.size() == 6) {
        if (p[2] == "down") picturedown(st, p[1], p[3], number(p[4], action));
        return;
    }
    if (kind == "row" && p.size() == 3) throw ActionError("no list to click: " + p[1]);
    throw ActionError("unknown action " + action);
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

} // namespace

std::string statejson(Station& st, const std::vector<std::string>& messages) {
    Json j;
    j.beginobject();
    j.key("messages").beginarray();
    for (const auto& m : messages) j.value(m);
    j.endarray();
    j.key("state").beginobject();
    sidestate(j, st.zhu, "");
    if (st.form.comparisonvisible) sidestate(j, st.cong, "db");
    j.key("replaystep").value(st.replaystep);
    j.key("manualstep").value(st.settings.manualstep);
    j.key("direction").value(st.direction);
    j.key("seekat").value(st.seekat);
    j.key("T1").value(st.T1).key("T2").value(st.T2);
    j.key("seekhits").beginarray();
    for (int i = 0; i < st.seekcount; ++i) j.value(st.seekhits[i]);
    j.endarray();
    j.key("captions").beginobject();
    for (const auto& [name, text] : st.form.captions) j.key(name).value(text);
    j.endobject();
    j.key("labels").beginobject();
    for (const auto& [name, text] : st.form.labels) j.key(name).value(text);
    j.endobject();
    j.endobject();
    j.endobject();
    return j.text();
}

} // namespace orvane::cli

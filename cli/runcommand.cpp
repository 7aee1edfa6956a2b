// orvane-cli run: the user's actions on Form28, in order, and the state they leave.
#include "app/controls.h"
#include "app/station.h"
#include "bmode/alignment.h"
#include "bmode/bmode.h"
#include "commands.h"
#include "json.h"
#include "recording/zaodibo.h"
#include "replay/bofang.h"
#include "replay/transport.h"
#include "replay/viewmap.h"

#include <cstdlib>
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

// The channel check boxes by letter A..I.
int channelofcheck(const std::string& name) {
    static const char* const boxes[] = {"Check1", "Check2", "Check3",  "Check4", "Check5",
                                        "Check6", "Check7", "Check16", "Check17"};
    for (int k = 0; k < 9; ++k)
        if (name == boxes[k]) return k;
    return -1;
}

// A display control changed: the picture follows as the control's handler makes it. The options
// that change the map keep the view at its kilometre.
void redraw(Station& st, const std::string& name) {
    layout(st);
    background(st);
    if (name == "Option16" || name == "Option17" || name == "Option1" || name == "Option2")
        keepplace(st);
    else
        bofang(st);
}

// The controls of the alignment window while it is open.
bool pressalignment(Station& st, const std::string& name) {
    if (!st.alignment.open) return false;
    if (name == "Option1" || name == "Option2")
        alignmentmode(st, name == "Option2");
    else if (name == "Cmdbc")
        savealignment(st);
    else if (name == "Cmdsc")
        deletealignment(st);
    else if (name == "Formpk2")
        closealignment(st);
    else
        return false;
    return true;
}

void press(Station& st, const std::string& name, const std::string& button, const std::string& action) {
    const bool left = button.empty() || button == "left";
    if (pressalignment(st, name)) return;
    if (name == "Command3") return openalignment(st);
    if (name == "Command8") return pressplay(st);
    if (name == "Command34") return stepforward(st);
    if (name == "Command27") return stepback(st);
    if (name == "Command25") {
        st.direction = 1;
        return;
    }
    if (name == "Command26") {
        st.direction = -1;
        return;
    }
    if (name == "Label20") return left ? seekkilometre(st) : nextseekhit(st);
    if (name == "aqd") return markstart(st);
    if (name == "azd") {
        if (st.form.azdenabled) markend(st);
        return;
    }
    if (const int k = channelofcheck(name); k >= 0) {
        st.form.channelshown[k] = !st.form.channelshown[k];
        return bofang(st);
    }
    if (name.rfind("Option", 0) == 0) {
        setcontrol(st, name, "1");
        setreplayspeed(st);
        return redraw(st, name);
    }
    throw ActionError("no control to press: " + action);
}

void scroll(Station& st, const std::string& name, int value) {
    if (st.alignment.open && name.rfind("HScroll", 0) == 0) {
        const int channel = std::atoi(name.c_str() + 7) - 1; // HScroll1..HScroll8: A..H
        if (channel < 0 || channel > 7) throw ActionError("no alignment bar " + name);
        movealignment(st, channel, value);
        return replaytick(st); // the timer shows the change at a step of 0
    }
    if (name == "HScrolljd") {
        Side& s = st.zhu;
        s.viewindex = std::max(value * 300, 600);
        st.T2 = false;
        s.jobcursor = s.paramcursor = s.markcursor = s.samplecursor = 0;
        return bofang(st);
    }
    setcontrol(st, name, std::to_string(value));
    setreplayspeed(st);
    if (name == "HScroll10") {
        // A new loss limit marks the reportable losses again.
        markbottomloss(st, st.zhu);
        return keepplace(st);
    }
    bofang(st);
}

} // namespace

void runaction(Station& st, const std::string& action) {
    const std::vector<std::string> p = split(action);
    const std::string& kind = p[0];
    if (kind == "press" && (p.size() == 2 || p.size() == 3))
        return press(st, p[1], p.size() == 3 ? p[2] : "", action);
    if (kind == "tick" && p.size() == 2) {
        for (int n = number(p[1], action); n > 0; --n)
            if (st.T1) replaytick(st);
        return;
    }
    if (kind == "enter" && p.size() >= 3) {
        const std::string text = action.substr(kind.size() + p[1].size() + 2);
        if (p[1] != "Text1") return setcontrol(st, p[1], text);
        st.Text1 = text;
        return seekkilometre(st);
    }
    if (kind == "scroll" && p.size() == 3) return scroll(st, p[1], number(p[2], action));
    if (kind == "mouse" && p.size() == 6) {
        if (p[1] != "Picture1") throw ActionError("no canvas " + p[1]);
        if (p[2] == "down") st.pointerx = number(p[4], action);
        return;
    }
    if (kind == "row" && p.size() == 3) throw ActionError("no list to click: " + p[1]);
    throw ActionError("unknown action " + action);
}

std::string statejson(Station& st, const std::vector<std::string>& messages) {
    const Side& s = st.zhu;
    Json j;
    j.beginobject();
    j.key("messages").beginarray();
    for (const auto& m : messages) j.value(m);
    j.endarray();
    j.key("state").beginobject();
    const std::pair<const char*, std::int64_t> numbers[] = {{"viewindex", s.viewindex},
                                                            {"viewlength", s.viewlength},
                                                            {"replaystep", st.replaystep},
                                                            {"manualstep", st.settings.manualstep},
                                                            {"direction", st.direction},
                                                            {"jobcursor", s.jobcursor},
                                                            {"paramcursor", s.paramcursor},
                                                            {"markcursor", s.markcursor},
                                                            {"samplecursor", s.samplecursor},
                                                            {"seekat", st.seekat},
                                                            {"startx", st.startx},
                                                            {"startpos", st.startpos},
                                                            {"startdist", st.startdist},
                                                            {"endx", st.endx},
                                                            {"endpos", st.endpos},
                                                            {"enddist", st.enddist}};
    for (auto& [name, value] : numbers) j.key(name).value(value);
    j.key("T1").value(st.T1).key("T2").value(st.T2);
    j.key("HScrolljd")
        .beginobject()
        .key("value")
        .value(s.viewindex / 300)
        .key("max")
        .value(s.scrollmax)
        .endobject();
    j.key("seekhits").beginarray();
    for (int i = 0; i < st.seekcount; ++i) j.value(st.seekhits[i]);
    j.endarray();
    j.key("pinkongval").beginarray();
    for (auto w : s.pinkongval) j.value(static_cast<std::int64_t>(w));
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

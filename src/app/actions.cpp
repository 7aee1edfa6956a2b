#include "app/actions.h"

#include "app/controls.h"
#include "app/station.h"
#include "bmode/alignment.h"
#include "bmode/bmode.h"
#include "recording/zaodibo.h"
#include "replay/bofang.h"
#include "replay/transport.h"
#include "replay/viewmap.h"

#include <cstdlib>

namespace orvane {

namespace {

// The channel check boxes by channel A..I.
int channelofcheck(const std::string& name) {
    static const char* const boxes[] = {"Check1", "Check2", "Check3",  "Check4", "Check5",
                                        "Check6", "Check7", "Check16", "Check17"};
    for (int k = 0; k < 9; ++k)
        if (name == boxes[k]) return k;
    return -1;
}

// A display option changed: scale and background anew; the options that change the map keep the
// view at its kilometre.
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

} // namespace

void press(Station& st, const std::string& name, const std::string& button) {
    const bool left = button.empty() || button == "left";
    if (pressalignment(st, name)) return;
    if (name == "Command3") return openalignment(st);
    if (name == "Command8") return pressplay(st);
    if (name == "Command34") return stepforward(st);
    if (name == "Command27") return stepback(st);
    if (name == "Command25" || name == "Command26") {
        st.direction = name == "Command25" ? 1 : -1;
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
    if (name == "Option10" || name == "Option11") { // the auxiliary lines: hidden or shown
        st.form.auxlines = name == "Option11";
        background(st);
        return bofang(st);
    }
    if (name.rfind("Option", 0) == 0) {
        setcontrol(st, name, "1");
        setreplayspeed(st);
        return redraw(st, name);
    }
    throw ControlError("no control to press: " + name);
}

void scroll(Station& st, const std::string& name, int value) {
    if (st.alignment.open && name.rfind("HScroll", 0) == 0) {
        const int channel = std::atoi(name.c_str() + 7) - 1; // HScroll1..HScroll8: A..H
        if (channel < 0 || channel > 7) throw ControlError("no alignment bar " + name);
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

void enter(Station& st, const std::string& name, const std::string& text) {
    if (name != "Text1") return setcontrol(st, name, text);
    st.Text1 = text;
    seekkilometre(st);
}

void tick(Station& st, int n) {
    for (; n > 0; --n)
        if (st.T1) replaytick(st);
}

} // namespace orvane

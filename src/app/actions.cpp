#include "app/actions.h"

#include "app/controls.h"
#include "app/settings.h"
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

// The colour controls of the view and the row of color each one writes.
const char* colorofcontrol(const std::string& name) {
    static const std::pair<const char*, const char*> controls[] = {
        {"Lysa", "acolor"},           {"Lysb", "bcolor"},         {"Lysc", "ccolor"},
        {"Lysd", "dcolor"},           {"Lyse", "ecolor"},         {"Lysf", "fcolor"},
        {"Lysg", "gcolor"},           {"Lysh", "hcolor"},         {"Lysi", "icolor"},
        {"Combjs", "bxianbackcolor"}, {"Comcc", "formbackcolor"}, {"Command13", "biaochicolor"}};
    for (const auto& [control, key] : controls)
        if (name == control) return key;
    return nullptr;
}

// New colours: scale and background anew, both sides repainted.
void repaint(Station& st) {
    layout(st);
    background(st);
    bofang(st);
    if (st.form.comparisonvisible) bofangdb(st);
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
    if (name == "Command37") return stepforwarddb(st);
    if (name == "Command38") return stepbackdb(st);
    if (name == "Command25" || name == "Command26") {
        st.direction = name == "Command25" ? 1 : -1;
        return;
    }
    if (name == "Label20") return left ? seekkilometre(st) : nextseekhit(st);
    if (name == "Label21") return seekkilometredb(st);
    if (name == "qcqzd") { // "清除起止点": both markers gone
        st.zhu.startx = st.zhu.endx = 0;
        return bofang(st);
    }
    if (const char* key = colorofcontrol(name)) {
        if (choosecolor(st, key)) repaint(st);
        return;
    }
    if (name == "Command40" || name == "Command41") {
        colorpreset(st, name == "Command40" ? 40 : 41);
        return repaint(st);
    }
    if (name == "aqd") return markstart(st, st.zhu);
    if (name == "azd") {
        if (st.form.azdenabled) markend(st, st.zhu);
        return;
    }
    if (name == "aqddb" || name == "azddb") {
        if (!st.form.comparisonvisible) return;
        if (name == "aqddb") return markstart(st, st.cong);
        if (st.form.azddbenabled) markend(st, st.cong);
        return;
    }
    if (const int k = channelofcheck(name); k >= 0) {
        st.form.channelshown[k] = !st.form.channelshown[k];
        return bofang(st);
    }
    if (name == "Check8") { // "All": every channel shown, or none once all are
        st.form.channelshown.fill(!st.form.allchannelsshown());
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
    if (name == "HScrolljd" || name == "HScrolljddb") {
        Side& s = name == "HScrolljd" ? st.zhu : st.cong;
        if (!s.main && !st.form.comparisonvisible) return;
        s.viewindex = std::max(value * 300, 600);
        return settle(st, s);
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
    if (name == "Text1") {
        st.Text1 = text;
        return seekkilometre(st);
    }
    if (name == "Text2") {
        st.Text2 = text;
        return seekkilometredb(st);
    }
    setcontrol(st, name, text);
}

bool picturedown(Station& st, const std::string& canvas, const std::string& button, double x) {
    const bool main = canvas == "Picture1";
    if (!main && canvas != "Picture6") throw ControlError("no canvas " + canvas);
    st.playside = main ? "zhu" : "cong";
    st.pointerx = x;
    if (button == "left") {
        // The first click on a running replay only pauses it.
        if (replaying(st)) pressplay(st);
        st.T1 = false;
        return false;
    }
    if (button != "right") return false;
    if (st.language != "english") return true;
    st.form.captions["Command8"] = "连续播放";
    pressplay(st); // in English the right button starts the replay
    return false;
}

void tick(Station& st, int n) {
    for (; n > 0; --n)
        if (st.T1) replaytick(st);
}

} // namespace orvane

#include "amode/controls.h"

#include "amode/amode.h"
#include "station/station.h"

namespace orvane {

namespace {

bool panelshown(const Station& st) {
    return st.Picture5visible;
}

} // namespace

void registeramode(Station& st) {
    // The channel buttons A to I open the A-mode of their channel on the side in force.
    const char* const buttons[] = {"Command4",  "Command5",  "Command6",  "Command7", "Command9",
                                   "Command10", "Command11", "Command32", "Command33"};
    for (int k = 0; k < 9; ++k) {
        const std::string letter(1, static_cast<char>('A' + k));
        Control c = control(buttons[k], ControlKind::button, letter);
        c.visible = panelshown;
        c.click = [letter](Station& st, const std::string&) {
            st.amodechannel = letter;
            openamode(st);
        };
        st.controls.add(c);
    }
    Control all = control("Command39", ControlKind::button, "全");
    all.visible = panelshown;
    all.click = [](Station& st, const std::string&) { openallchannels(st); };
    st.controls.add(all);
    Control run = control("Command12", ControlKind::button, "播放暂停");
    run.visible = panelshown;
    run.click = [](Station& st, const std::string&) { pressamode(st); };
    st.controls.add(run);

    // The left button pauses a running A-mode, the right one runs a paused one; the other does nothing.
    Control picture = control("Picture3", ControlKind::canvas);
    picture.visible = panelshown;
    picture.mouse = [](Station& st, const MouseAct& act) {
        if (act.kind != "down") return;
        if ((act.button == "left" && !amodepaused(st)) || (act.button == "right" && amodepaused(st)))
            pressamode(st);
    };
    st.controls.add(picture);

    Control speed = control("HScroll1", ControlKind::scrollbar);
    speed.min = 1;
    speed.max = 9;
    speed.visible = panelshown;
    speed.value = [](const Station& st) { return static_cast<int>(st.amodespeed); };
    speed.change = [](Station& st, int value) {
        st.amodespeed = static_cast<std::int16_t>(value);
        st.T2interval = amodeinterval(value);
    };
    st.controls.add(speed);
    Control column = control("HScroll9", ControlKind::scrollbar);
    column.visible = panelshown;
    column.maximum = [](const Station& st) { return st.amodelast + 1; };
    column.value = [](const Station& st) { return st.amodecolumn; };
    column.focus = [](Station& st) { st.scrollheld = 1; };
    column.blur = [](Station& st) { st.scrollheld = 0; };
    column.change = movescan;
    st.controls.add(column);

    Control caption = control("Labelaxxs", ControlKind::label);
    caption.visible = panelshown;
    st.controls.add(caption);
    // The fixed captions of the panel, which the A-mode doesn't write.
    for (const auto& [name, text] : {std::pair{"Ls", "S:000mm"}, {"Ll", "L:000mm"}, {"Lh", "H:000mm"}}) {
        Control label = control(name, ControlKind::label, text);
        label.visible = panelshown;
        st.controls.add(label);
    }
    Control close = control("Label32", ControlKind::label, "关闭");
    close.visible = panelshown;
    close.click = [](Station& st, const std::string&) { closeamode(st); };
    st.controls.add(close);
}

} // namespace orvane

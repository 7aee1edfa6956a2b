#include "curves/controls.h"

#include "curves/curves.h"
#include "curves/track.h"
#include "station/station.h"

#include <array>
#include <tuple>
#include <utility>

namespace orvane {

namespace {

using Act = void (*)(Station&);

Control button(const std::string& name, const std::string& caption, std::function<void(Station&)> act) {
    Control c = control(name, ControlKind::button, caption);
    c.click = [act = std::move(act)](Station& st, const std::string&) { act(st); };
    return c;
}

// A curve canvas; MOVE takes the pointer's moves over it.
Control canvas(const std::string& name, void (*move)(Station&, double, double) = nullptr) {
    Control c = control(name, ControlKind::canvas);
    if (move)
        c.mouse = [move](Station& st, const MouseAct& act) {
            if (act.kind == "move") move(st, act.x, act.y);
        };
    return c;
}

// The floating read-out Label14 of a curve window.
Control readout(const std::string& name, Side::Readout Station::Curves::*which) {
    Control c = control(name, ControlKind::label);
    c.textof = [which](const Station& st) { return (st.curves.*which).text; };
    c.visible = [which](const Station& st) { return (st.curves.*which).visible; };
    return c;
}

// The scale's value labels Label1(0) to Label1(4) of a window: STEP, 2 STEP, ...
void scalelabels(Station& st, const std::string& form, int step) {
    for (int i = 1; i <= 5; ++i)
        st.controls.add(control(form + ".Label1(" + std::to_string(i - 1) + ")", ControlKind::label,
                                std::to_string(i * step)));
}

// The letter buttons A to I of a curve window, by their names in the order of the channels, and "全".
void letters(Station& st, const std::string& form, const std::array<const char*, 9>& names,
             void (*channel)(Station&, int), Act all) {
    for (int c = 0; c < 9; ++c)
        st.controls.add(button(form + "." + names[static_cast<std::size_t>(c)],
                               std::string(1, static_cast<char>('A' + c)),
                               [channel, c](Station& st) { channel(st, c); }));
    Control whole = button(form + ".Command3", "全", all);
    // In English only the curve of one channel at a time remains.
    whole.visible = [](const Station& st) { return !english(st); };
    st.controls.add(whole);
}

// What every curve window has: open while OPEN says so, the curve Picture1 with its read-out Label14
// under the pointer's moves, the scale Picture2 with the values of its labels STEP apart.
void curvewindow(Station& st, const std::string& form, bool Station::Curves::*open,
                 Side::Readout Station::Curves::*which, void (*move)(Station&, double, double), int step) {
    st.controls.addform({form, [open](const Station& st) { return st.curves.*open; },
                         [open](Station& st) { st.curves.*open = false; }});
    st.controls.add(canvas(form + ".Picture1", move));
    st.controls.add(canvas(form + ".Picture2"));
    st.controls.add(readout(form + ".Label14", which));
    scalelabels(st, form, step);
}

void gainwindow(Station& st) {
    curvewindow(st, "Form29", &Station::Curves::Form29open, &Station::Curves::gainreadout, gainreadout, 10);
    letters(st, "Form29",
            {"Command1", "Command2", "Command4", "Command5", "Command6", "Command7", "Command9", "Command10",
             "Command11"},
            gainchannel, gainall);
    const std::tuple<const char*, const char*, Act> doors[] = {
        {"Form29.Command12", "速度曲线", openspeedcurve},
        {"Form29.Command8", "积分值曲线", openintegralcurve}};
    for (const auto& [name, caption, act] : doors) {
        Control door = button(name, caption, act);
        door.visible = [](const Station& st) { return !english(st); };
        st.controls.add(door);
    }
}

void integralwindow(Station& st) {
    curvewindow(st, "Form8", &Station::Curves::Form8open, &Station::Curves::integralreadout, integralreadout,
                50);
    // The letters stand in another order of names than in Form29.
    letters(st, "Form8",
            {"Command4", "Command5", "Command6", "Command7", "Command9", "Command10", "Command11", "Command1",
             "Command2"},
            integralchannel, integralall);
    st.controls.add(button("Form8.Command8", "筛选", pressintegralsift));
    Control text = control("Form8.Text1", ControlKind::textbox);
    text.textof = [](const Station& st) { return st.curves.Text1; };
    text.text = [](Station& st, const std::string& t) { st.curves.Text1 = t; };
    st.controls.add(text);
    st.controls.add(canvas("Form8.Picture3"));
}

void speedwindow(Station& st) {
    curvewindow(st, "Form9", &Station::Curves::Form9open, &Station::Curves::speedreadout, speedreadout, 1);
    Control bar = control("Form9.HScrolljd", ControlKind::scrollbar);
    bar.value = [](const Station& st) { return st.curves.speedfirst; };
    bar.maximum = [](const Station& st) { return std::max(0, st.zhu.samplecount - 1); };
    bar.change = [](Station& st, int first) {
        st.curves.speedfirst = first;
        speedpage(st);
    };
    st.controls.add(bar);
    for (const auto& [name, text] : {std::pair{"Form9.Label2", &Station::Curves::speedfrom},
                                     std::pair{"Form9.Label3", &Station::Curves::speedto}}) {
        Control label = control(name, ControlKind::label);
        label.textof = [text = text](const Station& st) { return st.curves.*text; };
        st.controls.add(label);
    }
}

void replaylogwindow(Station& st) {
    st.controls.addform({"Form4", [](const Station& st) { return st.curves.Form4open; },
                         [](Station& st) { st.curves.Form4open = false; }});
    Control list = control("Form4.Grid1ts", ControlKind::grid);
    list.cells = [](const Station& st) { return st.curves.replaylog; };
    st.controls.add(list);
    st.controls.add(control("Form4.Label1", ControlKind::label, "本文件的回放操作"));
}

// The track's canvas over the main window with its three buttons.
void trackcontrols(Station& st) {
    Control open = actionbutton("Command22", "轨迹", showtrack);
    st.controls.add(open);
    Control entry = control("gpsqx", ControlKind::menuentry, "GPS曲线");
    entry.enabled = recordingloaded;
    entry.click = [](Station& st, const std::string&) { press(st, "Command22"); };
    st.controls.add(entry);
    Control picture = canvas("picturegj");
    picture.visible = [](const Station& st) { return st.track.visible; };
    st.controls.add(picture);
    const std::tuple<const char*, const char*, Act, bool> buttons[] = {
        {"Command30", "放", bigtrack, false},
        {"Command29", "缩", smalltrack, true},
        {"Command28", "关", closetrack, false}};
    for (const auto& [name, caption, act, big] : buttons) {
        Control b = button(name, caption, act);
        const std::string n = name;
        const bool whenbig = big;
        b.visible = [n, whenbig](const Station& st) {
            return st.track.visible && (n == "Command28" || st.track.big == whenbig);
        };
        st.controls.add(b);
    }
    Control place = control("Shape6", ControlKind::label);
    place.visible = [](const Station& st) { return st.track.visible; };
    st.controls.add(place);
}

} // namespace

void registercurves(Station& st) {
    st.controls.add(actionbutton("Command16", "增益曲线", opengaincurve));
    Control entry = control("azyqx", ControlKind::menuentry, "增益曲线");
    entry.enabled = recordingloaded;
    entry.click = [](Station& st, const std::string&) { opengaincurve(st); };
    st.controls.add(entry);
    Control log = control("Lyycs", ControlKind::label, "回放概况");
    log.enabled = recordingloaded;
    log.click = [](Station& st, const std::string&) { openreplaylog(st); };
    st.controls.add(log);
    gainwindow(st);
    integralwindow(st);
    speedwindow(st);
    replaylogwindow(st);
    trackcontrols(st);
}

} // namespace orvane

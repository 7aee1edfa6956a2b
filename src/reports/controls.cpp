#include "reports/controls.h"

#include "processing/session.h"
#include "reports/index.h"
#include "reports/markspeed.h"
#include "reports/notice.h"
#include "reports/printout.h"
#include "reports/quality.h"
#include "reports/rawsamples.h"
#include "station/station.h"

#include <tuple>

namespace orvane {

namespace {

// A list of the side panel: its cells, and a click on a row going there.
Control list(const std::string& name, Table Form28State::*cells, void (*go)(Station&, int)) {
    Control c = control(name, ControlKind::grid);
    c.cells = [cells](const Station& st) { return st.form.*cells; };
    c.row = [go](Station& st, int row) { go(st, row); };
    c.revision = [](const Station& st) { return st.form.listrevision; };
    return c;
}

// The index opened on tab TAB of the panel.
void openindex(Station& st, int tab) {
    indexload(st);
    st.form.SSTab1 = tab;
}

void registerindex(Station& st) {
    st.controls.add(actionbutton("Command1", "高  级", [](Station& st) {
        indexload(st);
        pointlist(st);
    }));
    for (const auto& [name, caption, tab] : {std::tuple{"asz", "设置", 4}, {"bjdcz", "标记点查找", 1}}) {
        Control entry = control(name, ControlKind::menuentry, caption);
        entry.enabled = recordingloaded;
        const int t = tab;
        entry.click = [t](Station& st, const std::string&) { openindex(st, t); };
        st.controls.add(entry);
    }
    Control tabs = control("SSTab1", ControlKind::tabs);
    tabs.max = 6;
    tabs.value = [](const Station& st) { return st.form.SSTab1; };
    tabs.change = [](Station& st, int tab) { st.form.SSTab1 = tab; };
    st.controls.add(tabs);

    st.controls.add(list("Grid1ts", &Form28State::Grid1ts, gotomarkrow));
    Control integral = list("Grid1jf", &Form28State::Grid1jf, gotointegralrow);
    integral.dblclick = [](Station& st, int) { integralexport(st); };
    st.controls.add(integral);
    st.controls.add(list("Grid1ry", &Form28State::Grid1ry, gotohandoverrow));

    const char* boxes[] = {"标记0", "标记1", "标记2", "标记3", "标记4", "道 岔", "公里校对"};
    for (std::size_t i = 0; i < 7; ++i) {
        Control box = control("Checkts(" + std::to_string(i) + ")", ControlKind::checkbox, boxes[i]);
        box.value = [i](const Station& st) { return st.form.Checkts[i] ? 1 : 0; };
        box.click = [i](Station& st, const std::string&) {
            st.form.Checkts[i] = !st.form.Checkts[i];
            markfilter(st);
        };
        st.controls.add(box);
    }
}

void registerreportbuttons(Station& st) {
    Control marks = actionbutton("Command19", "标记超速", markoverspeed);
    st.controls.add(marks);
    st.controls.add(actionbutton("Command24", "超速", pressoverspeed));
    // The daily report whatever the customer strings say: supervisors of every customer ask for it.
    st.controls.add(actionbutton("Commanddaily", "日台报告", pressdailyentry));
    // The job summary's label and the A-mode's caption are registered by their panels; the reports
    // give them their clicks.
    if (Control* overview = st.controls.edit("Lzygk")) {
        overview->click = [](Station& st, const std::string&) {
            if (recordingloaded(st)) pressjoboverview(st);
        };
    }
    if (Control* raw = st.controls.edit("Labelaxxs"))
        raw->click = [](Station& st, const std::string&) { pressrawsamples(st); };
}

// A button that a press of either mouse button acts on, telling which one it was.
Control pressbutton(const std::string& name, const std::string& caption,
                    void (*act)(Station&, const std::string& button)) {
    Control c = control(name, ControlKind::button, caption);
    c.enabled = recordingloaded;
    c.click = act;
    c.mouse = [act](Station& st, const MouseAct& mouse) {
        if (mouse.kind == "down") act(st, mouse.button);
    };
    return c;
}

// A menu entry of the picture's popup.
Control menuentry(const std::string& name, const std::string& caption, void (*act)(Station&)) {
    Control c = control(name, ControlKind::menuentry, caption);
    c.enabled = recordingloaded;
    c.click = [act](Station& st, const std::string&) { act(st); };
    return c;
}

// The notice, the print panel and the pictures going out.
void registerprinting(Station& st) {
    st.controls.add(pressbutton("Commanddydy", "打印", pressnotice));
    st.controls.add(pressbutton("Command15", "打  印", printpicture));
    st.controls.addform({"Form25", [](const Station& st) { return st.Form25open; }, closenotice});
    Control panel = control("Frame5", ControlKind::label);
    panel.visible = [](const Station& st) { return st.Frame5visible; };
    st.controls.add(panel);
    Control close = control("Label33", ControlKind::label, "关闭");
    close.visible = panel.visible;
    close.click = [](Station& st, const std::string&) { closeprintpanel(st); };
    st.controls.add(close);
    Control hide = control("Label43", ControlKind::label, "关闭");
    hide.visible = panel.visible;
    hide.click = [](Station& st, const std::string&) { st.Frame5visible = false; };
    st.controls.add(hide);
    Control closeindex = control("Label41", ControlKind::label, "关闭");
    closeindex.visible = [](const Station& st) { return st.form.Frame3visible; };
    closeindex.click = [](Station& st, const std::string&) { st.form.Frame3visible = false; };
    st.controls.add(closeindex);

    st.controls.add(menuentry("adytx", "打印图形", printshown));
    st.controls.add(menuentry("abctx", "保存图形", savewindowpicture));
    st.controls.add(menuentry("ajt", "截图", [](Station& st) { capturescreen(st, st.zhu); }));
    Control comparison = menuentry("qjtdb", "截图", [](Station& st) { capturescreen(st, st.cong); });
    comparison.visible = comparisonshown;
    st.controls.add(comparison);
    // The settings of the reverse marks stand on the settings tab of the side panel.
    st.controls.add(actionbutton("Command31", "倒车显示设置", [](Station& st) {
        st.form.Frame3visible = true;
        st.form.SSTab1 = 4;
    }));
    Control reverse = menuentry("dcxssz", "倒车显示设置", [](Station& st) { press(st, "Command31"); });
    st.controls.add(reverse);
}

} // namespace

void registerreports(Station& st) {
    // 工务段, 线别 and 分析日 of the notice.
    st.controls.add(formtext("Tgwd", &Form28State::Tgwd));
    st.controls.add(formtext("Txb", &Form28State::Txb));
    st.controls.add(formtext("Textdyrq", &Form28State::Textdyrq));
    Control search = formtext("Text3", &Form28State::Text3);
    search.visible = [](const Station& st) { return st.form.Text3visible; };
    search.enter = [](Station& st) { turnoutsearch(st, st.form.Text3); };
    st.controls.add(search);
    registerindex(st);
    registerreportbuttons(st);
    registerprinting(st);
}

} // namespace orvane

#include "replay/controls.h"

#include "bmode/bmode.h"
#include "recording/zaodibo.h"
#include "replay/bofang.h"
#include "replay/transport.h"
#include "replay/viewmap.h"
#include "replay/wholerun.h"
#include "station/station.h"
#include "stores/settingsstore.h"

#include <algorithm>

namespace orvane {

namespace {

// Taking the position bar stops a running replay; its moves then go to the view.
void takebar(Station& st) {
    if (st.T1 && !st.alignment.open && replaying(st)) pressplay(st);
}

Control positionbar(const std::string& name, bool main) {
    Control c = control(name, ControlKind::scrollbar);
    if (!main) c.visible = comparisonshown;
    c.enabled = recordingloaded;
    c.maximum = [main](const Station& st) { return (main ? st.zhu : st.cong).scrollmax; };
    // A jump may leave the view past the bar's last step; the bar then stands at its end.
    c.value = [main](const Station& st) {
        const Side& s = main ? st.zhu : st.cong;
        return std::min(s.viewindex / 300, s.scrollmax);
    };
    c.focus = takebar;
    c.change = [main](Station& st, int value) {
        takebar(st);
        Side& s = main ? st.zhu : st.cong;
        s.viewindex = std::max(value * 300, 600);
        settle(st, s);
    };
    return c;
}

void transport(Station& st) {
    Control play = actionbutton("Command8", "连续播放", pressplay);
    st.controls.add(play);
    for (const auto& [name, caption, direction] :
         {std::tuple{"Command25", "正向 ▶", 1}, {"Command26", "◀ 反向", -1}}) {
        Control c = control(name, ControlKind::button, caption);
        c.enabled = recordingloaded;
        c.click = [direction = direction](Station& st, const std::string&) {
            st.direction = static_cast<std::int16_t>(direction);
        };
        st.controls.add(c);
    }
    st.controls.add(actionbutton("Command34", "步进 ▶", stepforward));
    st.controls.add(actionbutton("Command27", "◀ 步退", stepback));
    using Act = void (*)(Station&);
    for (auto [name, caption, act] :
         {std::tuple<const char*, const char*, Act>{"Command37", "步进 ▶", stepforwarddb},
          {"Command38", "◀ 步退", stepbackdb}}) {
        Control c = actionbutton(name, caption, act);
        c.visible = comparisonshown;
        st.controls.add(c);
    }
    st.controls.add(positionbar("HScrolljd", true));
    st.controls.add(positionbar("HScrolljddb", false));
    st.controls.add(settingbar("HScroll8", "bofsd", "shuzhi", 1, 9, setreplayspeed));
    st.controls.add(settingbar("HScroll3", "shoudbjz", "shuzhi", 1, 2000, nullptr));
    // A new loss limit marks the reportable losses again and changes the map.
    st.controls.add(settingbar("HScroll10", "diandx", "apy", 1, 200, [](Station& st) {
        markbottomloss(st, st.zhu);
        keepplace(st);
    }));
    // In step both sides move together, out of step only the side last clicked.
    for (const auto& [name, caption, apart] :
         {std::tuple{"Option12", "同步", false}, {"Option13", "异步", true}}) {
        Control c = control(name, ControlKind::option, caption);
        c.visible = comparisonshown;
        c.value = [apart = apart](const Station& st) { return st.asynchronous == apart ? 1 : 0; };
        c.click = [apart = apart](Station& st, const std::string&) { st.asynchronous = apart; };
        st.controls.add(c);
    }
}

void seek(Station& st) {
    Control label = control("Label20", ControlKind::label, "指定里程:");
    label.enabled = recordingloaded;
    label.visible = [](const Station& st) { return st.seekshown; }; // a measurement's result stands there
    label.click = [](Station& st, const std::string& button) {
        button == "left" ? seekkilometre(st) : nextseekhit(st);
    };
    st.controls.add(label);
    Control box = control("Text1", ControlKind::textbox);
    box.visible = [](const Station& st) { return st.seekshown; };
    box.textof = [](const Station& st) { return st.Text1; };
    box.text = [](Station& st, const std::string& text) { st.Text1 = text; };
    box.enter = seekkilometre;
    st.controls.add(box);
    Control labeldb = control("Label21", ControlKind::label, "指定里程:");
    labeldb.visible = comparisonshown;
    labeldb.click = [](Station& st, const std::string&) { seekkilometredb(st); };
    st.controls.add(labeldb);
    Control boxdb = control("Text2", ControlKind::textbox);
    boxdb.visible = comparisonshown;
    boxdb.textof = [](const Station& st) { return st.Text2; };
    boxdb.text = [](Station& st, const std::string& text) { st.Text2 = text; };
    boxdb.enter = seekkilometredb;
    st.controls.add(boxdb);
}

// The entries of the popup menu a13 on each picture.
void markers(Station& st) {
    Control start = control("aqd", ControlKind::menuentry, "起点");
    start.click = [](Station& st, const std::string&) { markstart(st, st.zhu); };
    st.controls.add(start);
    Control end = control("azd", ControlKind::menuentry, "终点");
    end.enabled = [](const Station& st) { return st.form.azdenabled; };
    end.click = [](Station& st, const std::string&) { markend(st, st.zhu); };
    st.controls.add(end);
    Control clear = control("qcqzd", ControlKind::menuentry, "清除起止点");
    clear.click = [](Station& st, const std::string&) {
        st.zhu.startx = st.zhu.endx = 0;
        bofang(st);
    };
    st.controls.add(clear);
    Control startdb = control("aqddb", ControlKind::menuentry, "起点");
    startdb.visible = comparisonshown;
    startdb.click = [](Station& st, const std::string&) { markstart(st, st.cong); };
    st.controls.add(startdb);
    Control enddb = control("azddb", ControlKind::menuentry, "终点");
    enddb.visible = comparisonshown;
    enddb.enabled = [](const Station& st) { return st.form.azddbenabled; };
    enddb.click = [](Station& st, const std::string&) { markend(st, st.cong); };
    st.controls.add(enddb);
}

// The options that change the view map or the step keep the view at its kilometre.
void mapoptions(Station& st) {
    auto expanded = [](Station& st) {
        setreplayspeed(st);
        capexpanded(st);
        layout(st);
        background(st);
        keepplace(st);
    };
    auto compressed = [](Station& st) {
        setreplayspeed(st);
        layout(st);
        background(st);
        keepplace(st);
    };
    st.controls.add(settingoption("Option8", "扩展", "shoudbjz", "apy", 600, expanded));
    st.controls.add(settingoption("Option9", "压缩", "shoudbjz", "apy", 1200, compressed));
    st.controls.add(settingoption("Option16", "剪辑", "shoudbjz", "fpy", 0, keepplace));
    st.controls.add(settingoption("Option17", "全程", "shoudbjz", "fpy", 1, keepplace));
    st.controls.add(settingoption("Option1", "消除频繁倒车标记", "shoudbjz", "dpy", 0, keepplace));
    st.controls.add(settingoption("Option2", "显示所有倒车标记", "shoudbjz", "dpy", 1, keepplace));
}

void labels(Station& st) {
    for (const char* name : {"Label1", "Ljls"}) st.controls.add(formlabel(name));
    Control labeldb = formlabel("Label16");
    labeldb.visible = comparisonshown;
    st.controls.add(labeldb);
}

} // namespace

void registerreplay(Station& st) {
    st.hooks.rebuildmap = rebuildmap;
    st.hooks.bofang = [](Station& st, Side& side) { bofang(st, side); };
    transport(st);
    seek(st);
    markers(st);
    mapoptions(st);
    labels(st);
    registeroverview(st);
}

} // namespace orvane

#include "bmode/controls.h"

#include "bmode/alignment.h"
#include "bmode/bmode.h"
#include "station/station.h"
#include "stores/settingsstore.h"

namespace orvane {

namespace {

void redrawmain(Station& st) {
    st.hooks.bofang(st, st.zhu);
}

// Both sides drawn anew, the comparison while it is shown.
void redrawboth(Station& st) {
    st.hooks.bofang(st, st.zhu);
    if (st.form.comparisonvisible) st.hooks.bofang(st, st.cong);
}

// New colours or a new layout: scale and background anew, both sides repainted.
void repaint(Station& st) {
    layout(st);
    background(st);
    redrawboth(st);
}

// The background anew without the scale, so that a dragged ruler stays where it is.
void rebackground(Station& st) {
    background(st);
    redrawboth(st);
}

void channelboxes(Station& st) {
    static const char* const boxes[] = {"Check1", "Check2", "Check3",  "Check4", "Check5",
                                        "Check6", "Check7", "Check16", "Check17"};
    for (int k = 0; k < 9; ++k) {
        Control c = control(boxes[k], ControlKind::checkbox, std::string(1, static_cast<char>('A' + k)));
        c.value = [k](const Station& st) { return st.form.channelshown[k] ? 1 : 0; };
        c.enabled = recordingloaded;
        c.click = [k](Station& st, const std::string&) {
            st.form.channelshown[k] = !st.form.channelshown[k];
            redrawmain(st);
        };
        st.controls.add(c);
    }
    Control all = control("Check8", ControlKind::checkbox, "全部");
    all.value = [](const Station& st) { return st.form.allchannelsshown() ? 1 : 0; };
    all.enabled = recordingloaded;
    all.click = [](Station& st, const std::string&) { // every channel shown, or none once all are
        st.form.channelshown.fill(!st.form.allchannelsshown());
        redrawmain(st);
    };
    st.controls.add(all);
}

void displayoptions(Station& st) {
    struct Option {
        const char* name;
        const char* caption;
        const char* key;
        const char* field;
        std::int16_t value;
        void (*then)(Station&);
    };
    static const Option options[] = {
        {"Option3", "分", "zuhfj", "shuzhi", 2, repaint},
        {"Option4", "合", "zuhfj", "shuzhi", 1, repaint},
        {"Option5", "中", "zuhfj", "shuzhi", 3, repaint},
        {"Option6", "底部", "shoudbjz", "bpy", 0, redrawmain},
        {"Option7", "顶部", "shoudbjz", "bpy", 1, redrawmain},
        {"Option14", "显示", "shoudbjz", "cpy", 0, rebackground},
        {"Option15", "隐藏", "shoudbjz", "cpy", 1, rebackground},
        // The V shape draws a guide line of its own on the background.
        {"Option18", "｜型", "shoudbjz", "epy", 0, rebackground},
        {"Option19", "V型", "shoudbjz", "epy", 1, rebackground},
        {"Option20", "隐藏", "shoudbjz", "gpy", 0, redrawmain},
        {"Option21", "显示", "shoudbjz", "gpy", 1, redrawmain},
    };
    for (const Option& o : options) {
        Control c = settingoption(o.name, o.caption, o.key, o.field, o.value, o.then);
        // The comparison runs in the combined layout: the layout options hide while it is open.
        if (std::string(o.key) == "zuhfj")
            c.visible = [](const Station& st) { return !st.form.comparisonvisible; };
        st.controls.add(c);
    }
    // The auxiliary lines are no setting: hidden (Option10) or shown (Option11) until the end.
    for (const auto& [name, caption, shown] :
         {std::tuple{"Option10", "隐藏", false}, {"Option11", "显示", true}}) {
        Control c = control(name, ControlKind::option, caption);
        c.value = [shown = shown](const Station& st) { return st.form.auxlines == shown ? 1 : 0; };
        c.click = [shown = shown](Station& st, const std::string&) {
            st.form.auxlines = shown;
            background(st);
            redrawmain(st);
        };
        st.controls.add(c);
    }
    for (const char* name : {"HScroll7", "HScroll6"}) // both bars set the dot size
        st.controls.add(settingbar(name, "diandx", "shuzhi", 1, 10, redrawmain));
}

void colours(Station& st) {
    static const char* const channels[] = {"acolor", "bcolor", "ccolor", "dcolor", "ecolor",
                                           "fcolor", "gcolor", "hcolor", "icolor"};
    for (int k = 0; k < 9; ++k) {
        Control c = control(std::string("Lys") + static_cast<char>('a' + k), ControlKind::label);
        c.enabled = recordingloaded;
        const std::string key = channels[k];
        c.click = [key, k](Station& st, const std::string&) {
            if (!choosecolor(st, key)) return;
            repaint(st);
            // Stored as chosen, but the user is told: a channel must not vanish without a word.
            if (!nearbackground(st, st.settings.channelcolor[static_cast<std::size_t>(k)])) return;
            const std::string channel(1, static_cast<char>('A' + k));
            st.ui->message(english(st)
                               ? "The colour of channel " + channel +
                                     " is close to the background: its echoes will hardly show."
                               : "通道" + channel + "的颜色与背景色太接近，该通道的回波将几乎看不见！");
        };
        st.controls.add(c);
    }
    Control reset = control("Commandmr", ControlKind::button, "恢复默认设置");
    reset.click = [](Station& st, const std::string&) {
        if (!st.ui->askyesno(english(st) ? "Put every colour and display setting back to its default?"
                                         : "确实要把全部颜色和显示设置恢复为默认值吗？"))
            return;
        resetsettings(st);
        repaint(st);
    };
    st.controls.add(reset);
    for (const auto& [name, caption, key] : {std::tuple{"Combjs", "背景色", "bxianbackcolor"},
                                             {"Comcc", "窗口色", "formbackcolor"},
                                             {"Command13", "辅助线", "biaochicolor"}}) {
        Control c = control(name, ControlKind::button, caption);
        const std::string row = key;
        c.click = [row](Station& st, const std::string&) {
            if (choosecolor(st, row)) repaint(st);
        };
        st.controls.add(c);
    }
    for (const auto& [name, caption, preset] :
         {std::tuple{"Command40", "纯黑", 40}, {"Command41", "浅黄", 41}}) {
        Control c = control(name, ControlKind::button, caption);
        c.click = [preset = preset](Station& st, const std::string&) {
            colorpreset(st, preset);
            repaint(st);
        };
        st.controls.add(c);
    }
}

// The window Formpk2 over the side it was opened for.
void formpk2(Station& st) {
    st.controls.addform({"Formpk2", [](const Station& st) { return st.alignment.open; }, closealignment});
    static const char* const labels[] = {"Labea", "Labeb", "Labec",  "Labed",
                                         "Labee", "Labef", "Label2", "Label1"};
    for (int k = 0; k < 8; ++k) {
        st.controls.add(control(std::string("Formpk2.") + labels[k], ControlKind::label,
                                std::string(1, static_cast<char>('A' + k))));
        Control bar = control("Formpk2.HScroll" + std::to_string(k + 1), ControlKind::scrollbar);
        bar.min = -200;
        bar.max = 200;
        // A bar tells the change against the words at the opening.
        bar.value = [k](const Station& st) {
            const Side& side = st.alignment.comparison ? st.cong : st.zhu;
            return side.pinkongval[k] - side.pinkongbase[k];
        };
        bar.change = [k](Station& st, int value) {
            movealignment(st, k, value);
            st.hooks.bofang(st, alignedside(st)); // the picture follows each change
        };
        st.controls.add(bar);
    }
    st.controls.add(control("Formpk2.Labeg", ControlKind::label, "I"));
    Control reference = control("Formpk2.Labegg", ControlKind::label, "基准位置，不可调整");
    reference.caption = [](const Station& st) {
        return std::string(st.language == "english" ? "Reference,fixed" : "基准位置，不可调整");
    };
    st.controls.add(reference);
    // The mode in force shows by channel I's word; either mode closes the window.
    for (const auto& [name, caption, exact] :
         {std::tuple{"Formpk2.Option1", "拼孔", false}, {"Formpk2.Option2", "精确", true}}) {
        Control c = control(name, ControlKind::option, caption);
        c.value = [exact = exact](const Station& st) { return (st.zhu.pinkongval[8] == 0) == exact ? 1 : 0; };
        c.visible = alignmentstores;
        c.click = [exact = exact](Station& st, const std::string&) { alignmentmode(st, exact); };
        st.controls.add(c);
    }
    for (const auto& [name, caption, save] :
         {std::tuple{"Formpk2.Cmdbc", "保存", true}, {"Formpk2.Cmdsc", "删除", false}}) {
        Control c = control(name, ControlKind::button, caption);
        c.enabled = alignmentstores;
        c.click = [save = save](Station& st, const std::string&) {
            save ? savealignment(st) : deletealignment(st);
        };
        st.controls.add(c);
    }
}

void alignmentbuttons(Station& st) {
    Control main = control("Command3", ControlKind::button, "拼  孔");
    main.enabled = recordingloaded;
    main.click = [](Station& st, const std::string&) { openalignment(st, false); };
    st.controls.add(main);
    Control comparison = control("Command18", ControlKind::button, "拼孔");
    comparison.visible = [](const Station& st) { return st.form.comparisonvisible; };
    comparison.click = [](Station& st, const std::string&) { openalignment(st, true); };
    st.controls.add(comparison);
}

} // namespace

void registerbmode(Station& st) {
    // A new rail code fits the scale and redraws the rail.
    st.hooks.redrawrail = [](Station& st) {
        layout(st);
        background(st);
    };
    channelboxes(st);
    displayoptions(st);
    colours(st);
    alignmentbuttons(st);
    formpk2(st);
}

} // namespace orvane

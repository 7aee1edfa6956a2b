#include "processing/controls.h"

#include "amode/amode.h"
#include "processing/clip.h"
#include "processing/comparison.h"
#include "processing/filter.h"
#include "processing/pointer.h"
#include "processing/session.h"
#include "processing/zoom.h"
#include "replay/bofang.h"
#include "station/station.h"
#include "station/text.h"

namespace orvane {

namespace {

// Channels A to I: the threshold box and its check box.
const char* const filterboxes[] = {"Ttda", "Ttdb", "Ttdc", "Ttdd", "Ttde", "Ttdf", "Ttdg", "Ttdh", "Ttdi"};
const char* const filterchecks[] = {"Check9",  "Check10", "Check11", "Check12", "Check13",
                                    "Check14", "Check15", "Check18", "Check19"};

} // namespace

void tickfilter(Station& st, int channel) {
    const bool ticked = !st.form.filterchecked[channel];
    st.form.filterchecked[channel] = ticked;
    // An unticked channel is not filtered: its box reads 0 and rests; ticked again it keeps that text
    // until the user types a number.
    if (!ticked) st.form.filtertext[channel] = "0";
    st.form.filterenabled[channel] = ticked;
}

namespace {

// The pictures of both sides under the pointer, their grips and their read-outs.
void pointers(Station& st) {
    for (const auto& [name, main] : {std::pair{"Picture1", true}, {"Picture6", false}}) {
        Control c = control(name, ControlKind::canvas);
        c.enabled = recordingloaded;
        if (!main) c.visible = comparisonshown;
        c.mouse = [main = main](Station& st, const MouseAct& act) {
            Side& side = main ? st.zhu : st.cong;
            if (act.kind == "down") pointerdown(st, side, act.button, act.x, act.y);
            if (act.kind == "move") pointermove(st, side, act.x, act.y);
            if (act.kind == "up") pointerup(st, side, act.button, act.x, act.y);
        };
        st.controls.add(c);
        Control grip = control(main ? "Labelyz" : "Labelyzdb", ControlKind::label, "毫米");
        grip.enabled = recordingloaded;
        if (!main) grip.visible = comparisonshown;
        grip.mouse = [main = main](Station& st, const MouseAct& act) {
            Side& side = main ? st.zhu : st.cong;
            if (act.kind == "down") gripdown(st, side, act.button, act.x, act.y);
            if (act.kind == "move") gripmove(st, side, act.x);
            if (act.kind == "up") gripup(st);
        };
        st.controls.add(grip);
        Control readout = control(main ? "Label14" : "Label14db", ControlKind::label);
        readout.textof = [main = main](const Station& st) { return (main ? st.zhu : st.cong).Label14.text; };
        readout.visible = [main = main](const Station& st) {
            return (main ? st.zhu : st.cong).Label14.visible;
        };
        st.controls.add(readout);
    }
    Control result = control("Label10", ControlKind::label, "测量结果");
    result.textof = [](const Station& st) {
        const auto it = st.form.labels.find("Label10");
        return it == st.form.labels.end() ? std::string("测量结果") : it->second;
    };
    result.visible = [](const Station& st) { return st.Label10visible; };
    result.click = [](Station& st, const std::string&) { closemeasure(st); };
    st.controls.add(result);
    Control oblique = control("ax70", ControlKind::menuentry, "斜70度坐标");
    oblique.value = [](const Station& st) { return static_cast<int>(st.oblique70); };
    oblique.click = [](Station& st, const std::string&) { st.oblique70 = st.oblique70 ? 0 : 1; };
    st.controls.add(oblique);
    Control check = control("axjd", ControlKind::menuentry, "A显校对");
    check.enabled = recordingloaded;
    check.click = [](Station& st, const std::string&) { openallchannels(st); };
    st.controls.add(check);
}

// The enlarged view, the defect note and the magnifier.
void closerlook(Station& st) {
    st.hooks.zoom = drawenlargement;
    Control button = control("Command21", ControlKind::button, "放大");
    button.enabled = recordingloaded;
    button.click = [](Station& st, const std::string&) { enlarge(st); };
    button.mouse = [](Station& st, const MouseAct& act) { // a right release opens the magnifier
        if (act.kind == "up" && act.button == "right") openmagnifier(st);
    };
    st.controls.add(button);
    Control picture = control("Picture9", ControlKind::canvas);
    picture.visible = [](const Station& st) { return st.Picture9visible; };
    st.controls.add(picture);
    Control close = control("Label9", ControlKind::label, "关闭");
    close.visible = [](const Station& st) { return st.Picture9visible; };
    close.click = [](Station& st, const std::string&) { closeenlargement(st); };
    st.controls.add(close);
    Control note = control("Textbz", ControlKind::textbox);
    note.textof = [](const Station& st) { return st.Textbz; };
    note.text = [](Station& st, const std::string& text) {
        st.Textbz = text;
        drawdefectnote(st);
    };
    st.controls.add(note);
    for (const auto& [name, field] :
         {std::pair{"HScroll2", &Station::HScroll2}, {"VScroll1", &Station::VScroll1}}) {
        Control bar = control(name, ControlKind::scrollbar);
        bar.min = -300;
        bar.max = 300;
        bar.value = [field = field](const Station& st) { return st.*field; };
        bar.change = [field = field](Station& st, int value) {
            st.*field = value;
            drawdefectnote(st);
        };
        st.controls.add(bar);
    }
    Control entry = control("asssr", ControlKind::menuentry, "伤损输入");
    entry.visible = [](const Station&) { return false; }; // hidden when the window loads, for good
    st.controls.add(entry);
    st.controls.addform({"Form10", [](const Station& st) { return st.Form10open; },
                         [](Station& st) { st.Form10open = false; }});
    const char* const captions[] = {"0.5倍", "1倍", "2倍", "5倍"};
    for (int i = 0; i < 4; ++i) {
        Control option =
            control("Form10.Option1(" + std::to_string(i) + ")", ControlKind::option, captions[i]);
        option.value = [i](const Station& st) { return st.magnifierfactor == magnifierfactors[i] ? 1 : 0; };
        option.click = [i](Station& st, const std::string&) { magnifierfactor(st, i); };
        st.controls.add(option);
    }
}

// The filter's buttons and its list of hits; the button of the comparison and what it shows.
void filterandcomparison(Station& st) {
    st.controls.add(actionbutton("Command2", "处理", processfilter));
    Control cancel = control("Command14", ControlKind::button, "取消过滤");
    cancel.enabled = [](const Station& st) { return st.form.Command14enabled; };
    cancel.click = [](Station& st, const std::string&) { cancelfilter(st); };
    st.controls.add(cancel);
    Control hits = control("Grid1bj", ControlKind::grid);
    hits.cells = [](const Station& st) { return st.form.Grid1bj; };
    hits.row = gotohit;
    st.controls.add(hits);
    st.controls.add(actionbutton("Command17", "打开对比", presscomparison));
    Control details = control("Command20", ControlKind::button, "详细");
    details.visible = [](const Station& st) { return st.form.Command20visible; };
    details.enabled = [](const Station& st) { return st.form.Command20enabled; };
    st.controls.add(details);
    Control heading = control("Lzygkdb", ControlKind::label);
    heading.visible = comparisonshown;
    heading.textof = [](const Station& st) { return st.form.Lzygkdb; };
    st.controls.add(heading);
}

// The analyst's points and their list, the name box, saving a stretch.
void analysis(Station& st) {
    for (int i = 0; i < 8; ++i) {
        Control entry = control("f1to8(" + std::to_string(i) + ")", ControlKind::menuentry, f1to8[i]);
        entry.enabled = recordingloaded;
        entry.click = [i](Station& st, const std::string&) {
            st.markcode = static_cast<std::int16_t>(i + 1);
            addanalysispoint(st);
        };
        st.controls.add(entry);
    }
    Control choice = control("Combo3", ControlKind::combobox);
    choice.textof = [](const Station& st) { return st.form.Combo3; };
    choice.select = [](Station& st, const std::string& text) {
        for (const char* caption : f1to8)
            if (utf8of(utf32of(caption).substr(3)) == text || text == "全部") {
                st.form.Combo3 = text;
                pointlist(st);
                return;
            }
        throw ControlError("Combo3 没有这一项：" + text);
    };
    st.controls.add(choice);
    Control points = control("grid1bz", ControlKind::grid);
    points.cells = [](const Station& st) { return st.form.grid1bz; };
    points.row = gotopoint;
    st.controls.add(points);
    Control name = control("Tmc", ControlKind::textbox);
    name.textof = [](const Station& st) { return st.form.Tmc; };
    name.text = typeanalyst;
    st.controls.add(name);
    Control store = control("acc", ControlKind::menuentry, "存储");
    store.enabled = [](const Station& st) { return st.form.accenabled; };
    store.click = [](Station& st, const std::string&) { saveclip(st); };
    st.controls.add(store);
    Control reversing = control("Label6", ControlKind::label);
    reversing.visible = [](const Station& st) { return st.form.Label6.visible; };
    reversing.click = [](Station& st, const std::string&) { reversingclip(st); };
    st.controls.add(reversing);
}

} // namespace

void registerprocessing(Station& st) {
    analysis(st);
    pointers(st);
    closerlook(st);
    filterandcomparison(st);
    for (int k = 0; k < 9; ++k) {
        Control check =
            control(filterchecks[k], ControlKind::checkbox, std::string(1, static_cast<char>('A' + k)));
        check.value = [k](const Station& st) { return st.form.filterchecked[k] ? 1 : 0; };
        check.click = [k](Station& st, const std::string&) { tickfilter(st, k); };
        st.controls.add(check);
        Control box = control(filterboxes[k], ControlKind::textbox);
        box.textof = [k](const Station& st) { return st.form.filtertext[k]; };
        box.enabled = [k](const Station& st) { return st.form.filterenabled[k]; };
        box.text = [k](Station& st, const std::string& text) { st.form.filtertext[k] = text; };
        st.controls.add(box);
    }
}

} // namespace orvane

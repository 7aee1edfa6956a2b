#include "station/controls.h"

#include "station/station.h"

#include <charconv>

namespace orvane {

Control& ControlTable::add(Control c) {
    if (index_.count(c.name)) throw std::logic_error("control registered twice: " + c.name);
    index_[c.name] = controls_.size();
    controls_.push_back(std::move(c));
    return controls_.back();
}

void ControlTable::addform(FormEntry form) {
    forms_.push_back(std::move(form));
}

const Control* ControlTable::find(const std::string& name) const {
    auto it = index_.find(name);
    return it == index_.end() ? nullptr : &controls_[it->second];
}

Control* ControlTable::edit(const std::string& name) {
    auto it = index_.find(name);
    return it == index_.end() ? nullptr : &controls_[it->second];
}

std::string ControlTable::formof(const std::string& name) {
    const auto dot = name.find('.');
    return dot == std::string::npos ? "Form28" : name.substr(0, dot);
}

bool ControlTable::isopen(const Station& st, const std::string& form) const {
    if (form == "Form28") return true;
    for (const FormEntry& f : forms_)
        if (f.name == form) return !f.open || f.open(st);
    return false;
}

Control control(const std::string& name, ControlKind kind, const std::string& title) {
    Control c;
    c.name = name;
    c.kind = kind;
    c.title = title;
    return c;
}

bool recordingloaded(const Station& st) {
    return st.form.mainviewenabled;
}

bool comparisonshown(const Station& st) {
    return st.form.comparisonvisible;
}

Control actionbutton(const std::string& name, const std::string& caption, void (*act)(Station&)) {
    Control c = control(name, ControlKind::button, caption);
    c.enabled = recordingloaded;
    c.click = [act](Station& st, const std::string&) { act(st); };
    return c;
}

Control formlabel(const std::string& name) {
    Control c = control(name, ControlKind::label);
    c.textof = [name](const Station& st) {
        const auto it = st.form.labels.find(name);
        return it == st.form.labels.end() ? std::string() : it->second;
    };
    return c;
}

std::string controlcaption(const Station& st, const Control& c) {
    if (c.caption) return c.caption(st);
    const auto given = st.form.captions.find(c.name);
    return given != st.form.captions.end() ? given->second : c.title;
}

const Control& reach(const Station& st, const std::string& name) {
    const Control* c = st.controls.find(name);
    if (!c) throw ControlError("没有这个控件：" + name);
    const std::string form = ControlTable::formof(name);
    if (!st.controls.isopen(st, form)) throw ControlClosed("窗口 " + form + " 没有打开：" + name);
    return *c;
}

namespace {

// A control takes the user's acts only while it can be reached on the screen.
bool usable(const Station& st, const Control& c) {
    return c.isenabled(st) && c.isvisible(st);
}

int wholenumber(const Control& c, const std::string& text) {
    int n = 0;
    const char* end = text.data() + text.size();
    auto [at, error] = std::from_chars(text.data(), end, n);
    if (error != std::errc() || at != end) throw ControlError(c.name + " 要一个整数，不是 \"" + text + "\"");
    return n;
}

void movebar(Station& st, const Control& c, int value) {
    if (!c.change) throw ControlError(c.name + " 不是滚动条");
    if (value < c.min || value > c.rangemax(st))
        throw ControlError(c.name + " 的值 " + std::to_string(value) + " 超出范围 " + std::to_string(c.min) +
                           ".." + std::to_string(c.rangemax(st)));
    if (usable(st, c)) c.change(st, value);
}

void typetext(Station& st, const Control& c, const std::string& text) {
    if (!c.text) throw ControlError(c.name + " 不是文本框");
    if (usable(st, c)) c.text(st, text);
}

} // namespace

void press(Station& st, const std::string& name, const std::string& button) {
    const Control& c = reach(st, name);
    if (c.click && usable(st, c)) c.click(st, button.empty() ? "left" : button);
}

void setcontrol(Station& st, const std::string& name, const std::string& value) {
    const Control& c = reach(st, name);
    switch (c.kind) {
    case ControlKind::checkbox:
    case ControlKind::option: {
        const int wanted = wholenumber(c, value);
        if (wanted != 0 && wanted != 1) throw ControlError(c.name + " 只取 0 或 1：" + value);
        const int now = c.value ? c.value(st) : 0;
        // A click turns a check box either way, an option only on.
        if (wanted == now || (c.kind == ControlKind::option && wanted == 0)) return;
        if (c.click && usable(st, c)) c.click(st, "left");
        return;
    }
    case ControlKind::scrollbar:
    case ControlKind::tabs:
        return movebar(st, c, wholenumber(c, value));
    case ControlKind::textbox:
        return typetext(st, c, value);
    case ControlKind::combobox:
        if (c.select && usable(st, c)) c.select(st, value);
        return;
    default:
        throw ControlError(c.name + " 不能设置值");
    }
}

void scroll(Station& st, const std::string& name, int value) {
    movebar(st, reach(st, name), value);
}

void enter(Station& st, const std::string& name, const std::string& text) {
    const Control& c = reach(st, name);
    typetext(st, c, text);
    if (c.enter && usable(st, c)) c.enter(st);
}

void clickrow(Station& st, const std::string& name, int row) {
    const Control& c = reach(st, name);
    if (!c.row) throw ControlError(c.name + " 没有可点击的行");
    if (usable(st, c)) c.row(st, row);
}

void dblclick(Station& st, const std::string& name, int row) {
    const Control& c = reach(st, name);
    if (c.dblclick && usable(st, c)) c.dblclick(st, row);
}

void select(Station& st, const std::string& name, const std::string& text) {
    const Control& c = reach(st, name);
    if (c.kind != ControlKind::combobox) throw ControlError(c.name + " 不是组合框");
    if (c.select && usable(st, c)) c.select(st, text);
}

void mouse(Station& st, const std::string& name, const MouseAct& act) {
    const Control& c = reach(st, name);
    if (act.kind != "down" && act.kind != "move" && act.kind != "up")
        throw ControlError("鼠标动作只有 down、move、up：" + act.kind);
    if (c.mouse && usable(st, c)) c.mouse(st, act);
}

void keypress(Station& st, const std::string& name, const std::string& key) {
    const Control& c = reach(st, name);
    if (!c.key) throw ControlError("控件不接受按键：" + name);
    if (usable(st, c)) c.key(st, key);
}

void focus(Station& st, const std::string& name) {
    const Control& c = reach(st, name);
    if (c.focus && usable(st, c)) c.focus(st);
}

void closeform(Station& st, const std::string& form) {
    for (const FormEntry& f : st.controls.forms()) {
        if (f.name != form) continue;
        if (!st.controls.isopen(st, form)) throw ControlClosed("窗口 " + form + " 没有打开");
        if (f.close) f.close(st);
        return;
    }
    throw ControlError("没有这个窗口：" + form);
}

std::vector<std::string> openforms(const Station& st) {
    std::vector<std::string> open{"Form28"};
    for (const FormEntry& f : st.controls.forms())
        if (st.controls.isopen(st, f.name)) open.push_back(f.name);
    return open;
}

} // namespace orvane

#include "app/controls.h"

#include "app/numbers.h"
#include "app/settings.h"
#include "app/station.h"
#include "stores/vbval.h"

#include <algorithm>
#include <array>

namespace orvane {

namespace {

// An option of a group: choosing it stores VALUE in its row and field.
struct OptionControl {
    const char* name;
    const char* key;
    const char* field;
    std::int16_t value;
};

const OptionControl options[] = {
    {"Option3", "zuhfj", "shuzhi", 2},    {"Option4", "zuhfj", "shuzhi", 1},
    {"Option5", "zuhfj", "shuzhi", 3},    {"Option6", "shoudbjz", "bpy", 0},
    {"Option7", "shoudbjz", "bpy", 1},    {"Option8", "shoudbjz", "apy", 600},
    {"Option9", "shoudbjz", "apy", 1200}, {"Option14", "shoudbjz", "cpy", 0},
    {"Option15", "shoudbjz", "cpy", 1},   {"Option1", "shoudbjz", "dpy", 0},
    {"Option2", "shoudbjz", "dpy", 1},    {"Option18", "shoudbjz", "epy", 0},
    {"Option19", "shoudbjz", "epy", 1},   {"Option16", "shoudbjz", "fpy", 0},
    {"Option17", "shoudbjz", "fpy", 1},   {"Option20", "shoudbjz", "gpy", 0},
    {"Option21", "shoudbjz", "gpy", 1},
};

// A scroll bar whose value is its row and field.
struct ScrollControl {
    const char* name;
    const char* key;
    const char* field;
};

const ScrollControl scrollbars[] = {
    {"HScroll8", "bofsd", "shuzhi"}, {"HScroll6", "diandx", "shuzhi"},   {"HScroll7", "diandx", "shuzhi"},
    {"HScroll10", "diandx", "apy"},  {"HScroll3", "shoudbjz", "shuzhi"},
};

// The filter boxes and check boxes of channels A to I.
const std::array<const char*, 9> filterboxes = {"Ttda", "Ttdb", "Ttdc", "Ttdd", "Ttde",
                                                "Ttdf", "Ttdg", "Ttdh", "Ttdi"};
const std::array<const char*, 9> filterchecks = {"Check9",  "Check10", "Check11", "Check12", "Check13",
                                                 "Check14", "Check15", "Check18", "Check19"};

// The setting in memory that a row and field feed.
std::int16_t* memoryof(Settings& s, const std::string& key, const std::string& field) {
    if (key == "bofsd" && field == "shuzhi") return &s.bofsd;
    if (key == "diandx" && field == "shuzhi") return &s.diandx;
    if (key == "diandx" && field == "apy") return &s.losswavelimit;
    if (key == "zuhfj" && field == "shuzhi") return &s.zuhfj;
    if (key != "shoudbjz") return nullptr;
    if (field == "shuzhi") return &s.manualstep;
    if (field == "apy") return &s.viewspan;
    if (field == "bpy") return &s.markplace;
    if (field == "cpy") return &s.latewaveshown;
    if (field == "dpy") return &s.reverseshow;
    if (field == "epy") return &s.vshape;
    if (field == "fpy") return &s.wholefile;
    if (field == "gpy") return &s.integralshown;
    return nullptr;
}

const OptionControl* findoption(const std::string& name) {
    auto it = std::find_if(std::begin(options), std::end(options), [&](auto& o) { return name == o.name; });
    return it == std::end(options) ? nullptr : &*it;
}

int indexof(const std::array<const char*, 9>& names, const std::string& name) {
    auto it = std::find_if(names.begin(), names.end(), [&](const char* n) { return name == n; });
    return it == names.end() ? -1 : static_cast<int>(it - names.begin());
}

std::int16_t smallnumber(const std::string& name, const std::string& value) {
    auto v = toint16(stores::vbval(value));
    if (!v) throw ControlError(name + " 的值超出范围：" + value);
    return *v;
}

void chooseoption(Station& st, const OptionControl& o) {
    if (std::string(o.name) == "Option6")
        st.colordb->exec("update color set bpy=0 where weizhi='shoudbjz'");
    else
        writesetting(st, o.key, o.field, std::to_string(o.value));
    *memoryof(st.settings, o.key, o.field) = o.value;
    if (std::string(o.key) == "zuhfj")
        st.displaymode = o.value == 2 ? "fenjie" : o.value == 3 ? "zhjz" : "zuhe";
    // The expanded view steps at most 400 indices by hand.
    if (std::string(o.name) == "Option8")
        st.settings.manualstep = std::min<std::int16_t>(st.settings.manualstep, 400);
}

} // namespace

bool optionon(const Station& st, const std::string& name) {
    const OptionControl* o = findoption(name);
    if (!o) return false;
    Settings copy = st.settings;
    return *memoryof(copy, o->key, o->field) == o->value;
}

void setcontrol(Station& st, const std::string& name, const std::string& value) {
    if (const OptionControl* o = findoption(name)) {
        if (smallnumber(name, value) != 0 && !optionon(st, name)) chooseoption(st, *o);
        return;
    }
    for (const ScrollControl& s : scrollbars) {
        if (name != s.name) continue;
        std::int16_t v = smallnumber(name, value);
        writesetting(st, s.key, s.field, std::to_string(v));
        *memoryof(st.settings, s.key, s.field) = v;
        return;
    }
    if (int c = indexof(filterboxes, name); c >= 0) {
        st.form.filtertext[c] = value;
        return;
    }
    if (int c = indexof(filterchecks, name); c >= 0) {
        st.form.filterchecked[c] = smallnumber(name, value) != 0;
        return;
    }
    throw ControlError("没有这个控件：" + name);
}

void setsetting(Station& st, const std::string& rowfield, const std::string& value) {
    auto dot = rowfield.find('.');
    if (dot == std::string::npos) throw ControlError("设置应写作 行.字段：" + rowfield);
    const std::string key = rowfield.substr(0, dot);
    if (st.colordb->scalar("select count(*) from color where weizhi=?", {key}).number() == 0)
        throw ControlError("设置表 color 没有行 " + key);
    writesetting(st, key, rowfield.substr(dot + 1), value);
    loadsettings(st);
}

} // namespace orvane

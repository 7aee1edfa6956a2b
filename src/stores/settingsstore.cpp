#include "stores/settingsstore.h"
#include "stores/seedsql.h"

#include "station/numbers.h"
#include "station/station.h"

#include <algorithm>
#include <sstream>

namespace orvane {

namespace {

bool isfield(const std::string& field) {
    return std::find(colorfields.begin(), colorfields.end(), field) != colorfields.end();
}

// select <field> from color where weizhi= '<key>'. A missing row cannot be worked around: the start
// stops with the key named.
DbValue readfield(Station& st, const std::string& key, const std::string& field) {
    auto rows = st.colordb->rows("select " + field + " from color where weizhi= ?", {key});
    if (rows.empty()) throw SettingsError("设置表 color 缺少行 " + key + "（" + st.colordb->path() + "）");
    if (rows[0][0].isnull())
        throw SettingsError("设置 " + key + "." + field + " 为空（" + st.colordb->path() + "）");
    return rows[0][0];
}

std::int16_t readsmall(Station& st, const std::string& key, const std::string& field) {
    auto v = toint16(readfield(st, key, field).number());
    if (!v) throw SettingsError("设置 " + key + "." + field + " 超出范围（" + st.colordb->path() + "）");
    return *v;
}

std::uint32_t readcolor(Station& st, const std::string& key) {
    double v = roundeven(readfield(st, key, "shuzhi").number());
    if (!(v >= -2147483648.0 && v <= 4294967295.0))
        throw SettingsError("设置 " + key + ".shuzhi 超出范围（" + st.colordb->path() + "）");
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(v));
}

std::string cellorempty(const DbValue& v) {
    return v.isnull() ? std::string() : v.astext();
}

struct Preset {
    std::uint32_t background;
    std::uint32_t scale;
    std::array<std::uint32_t, 9> channels;
};

const Preset blackpreset = {rgb(0, 0, 0),
                            rgb(230, 230, 230),
                            {rgb(192, 0, 255), rgb(0, 0, 255), rgb(255, 255, 0), rgb(0, 255, 255),
                             rgb(255, 192, 0), rgb(255, 64, 255), rgb(0, 192, 0), rgb(255, 0, 0),
                             rgb(255, 255, 255)}};
const Preset yellowpreset = {rgb(255, 255, 192),
                             rgb(0, 0, 0),
                             {rgb(192, 0, 255), rgb(0, 255, 0), rgb(192, 64, 0), rgb(0, 192, 255),
                              rgb(0, 0, 0), rgb(255, 64, 255), rgb(0, 192, 0), rgb(0, 0, 255),
                              rgb(255, 0, 0)}};

} // namespace

std::array<std::string, 5> marknames(Station& st) {
    std::array<std::string, 5> names;
    for (int n = 0; n < 5; ++n) {
        const std::string key = "标记" + std::to_string(n);
        auto rows = st.gpsxdb->rows("select bjwb from biaoji where bjid= ?", {key});
        if (rows.empty())
            throw SettingsError("标记表 biaoji 缺少行 " + key + "（" + st.gpsxdb->path() + "）");
        names[n] = cellorempty(rows[0][0]);
    }
    return names;
}

void loadsettings(Station& st) {
    Settings s;
    for (std::size_t i = 0; i < colorkeys.size(); ++i) s.colorset[i] = readcolor(st, colorkeys[i]);
    for (std::size_t c = 0; c < 9; ++c) s.channelcolor[c] = s.colorset[colorindex("acolor") + c];

    s.bofsd = readsmall(st, "bofsd", "shuzhi");
    s.diandx = readsmall(st, "diandx", "shuzhi");
    s.zuhfj = readsmall(st, "zuhfj", "shuzhi");
    s.manualstep = readsmall(st, "shoudbjz", "shuzhi");
    s.viewspan = readsmall(st, "shoudbjz", "apy");
    s.markplace = readsmall(st, "shoudbjz", "bpy");
    s.latewaveshown = readsmall(st, "shoudbjz", "cpy");
    s.reverseshow = readsmall(st, "shoudbjz", "dpy");
    s.vshape = readsmall(st, "shoudbjz", "epy");
    s.integralshown = readsmall(st, "shoudbjz", "gpy");
    s.wholefile = readsmall(st, "shoudbjz", "fpy");
    s.losswavelimit = readsmall(st, "diandx", "apy");
    // The filter's thresholds are read at first activation; a table without their row stops the start
    // here, with the row named, rather than leave the filter boxes empty.
    readfield(st, "guolv", "shuzhi");

    if (s.zuhfj == 1)
        st.displaymode = "zuhe";
    else if (s.zuhfj == 2)
        st.displaymode = "fenjie";
    else if (s.zuhfj == 3)
        st.displaymode = "zhjz";
    // The English text set has no choice of mark place or reversal thinning; the table keeps the
    // user's values for a return to Chinese.
    if (st.language == "english") {
        s.markplace = 1;
        s.reverseshow = 1;
    }
    if (s.losswavelimit == 0) {
        s.losswavelimit = 25;
        st.colordb->exec("update color set apy='25' where weizhi='diandx'");
    }
    if (s.viewspan == 0) s.viewspan = 1200;

    s.biaojiname = marknames(st);
    for (int n = 1; n <= 37; ++n) {
        auto rows = st.gpsxdb->rows("select bj01,bj02 from biaojikc where xh= ?", {std::to_string(n)});
        if (rows.empty())
            throw SettingsError("标记表 biaojikc 缺少行 " + std::to_string(n) + "（" + st.gpsxdb->path() +
                                "）");
        s.biaojikcpair[n] = {cellorempty(rows[0][0]), cellorempty(rows[0][1])};
    }
    st.settings = s;
}

void writesetting(Station& st, const std::string& key, const std::string& field, const std::string& value) {
    if (!isfield(field)) throw SettingsError("设置表 color 没有字段 " + field);
    st.colordb->exec("update color set " + field + "=? where weizhi=?", {value, key});
}

void setcolor(Station& st, const std::string& key, std::uint32_t value) {
    if (colorindex(key) >= colorkeys.size()) return;
    writesetting(st, key, "shuzhi", std::to_string(value));
    st.settings.setcolor(key, value);
}

bool choosecolor(Station& st, const std::string& key) {
    const std::optional<std::uint32_t> chosen = st.ui->pickcolor(st.settings.color(key));
    if (!chosen) return false; // cancelled: the colour stays
    setcolor(st, key, *chosen);
    return true;
}

void colorpreset(Station& st, int preset) {
    const Preset& p = preset == 41 ? yellowpreset : blackpreset;
    setcolor(st, "bxianbackcolor", p.background);
    setcolor(st, "biaochicolor", p.scale);
    for (std::size_t c = 0; c < 9; ++c) setcolor(st, colorkeys[colorindex("acolor") + c], p.channels[c]);
}

void resetsettings(Station& st) {
    // Every row of the seed as a new station folder gets it, in one transaction: all or none.
    const std::string seed = stores::seed_color;
    st.colordb->exec("begin immediate");
    try {
        st.colordb->exec("delete from color");
        // Each row of the seed is one line of its own.
        std::istringstream lines(seed);
        for (std::string line; std::getline(lines, line);)
            if (line.rfind("insert into color ", 0) == 0) st.colordb->exec(line);
        st.colordb->exec("commit");
    } catch (...) {
        st.colordb->exec("rollback");
        throw;
    }
    loadsettings(st);
}

bool nearbackground(const Station& st, std::uint32_t colour) {
    const std::uint32_t back = st.settings.color("bxianbackcolor");
    double distance = 0;
    for (int shift : {0, 8, 16}) {
        const double d =
            static_cast<double>((colour >> shift) & 0xFF) - static_cast<double>((back >> shift) & 0xFF);
        distance += d * d;
    }
    return distance < 60.0 * 60.0;
}

void savefilterdefaults(Station& st) {
    // Channel H and I sit in shuzhi and shuzhibf, A to G in apy to gpy.
    writesetting(st, "guolv", "shuzhi", st.form.filtertext[7]);
    writesetting(st, "guolv", "shuzhibf", st.form.filtertext[8]);
    for (std::size_t c = 0; c < 7; ++c) writesetting(st, "guolv", colorfields[2 + c], st.form.filtertext[c]);
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

Control settingoption(const std::string& name, const std::string& caption, const std::string& key,
                      const std::string& field, std::int16_t value, std::function<void(Station&)> then) {
    Control c = control(name, ControlKind::option, caption);
    c.value = [key, field, value](const Station& st) {
        return *st.settings.field(key, field) == value ? 1 : 0;
    };
    c.click = [name, key, field, value, then](Station& st, const std::string&) {
        if (name == "Option6") // this one option writes its row with a number, not a text
            st.colordb->exec("update color set bpy=0 where weizhi='shoudbjz'");
        else
            writesetting(st, key, field, std::to_string(value));
        *st.settings.field(key, field) = value;
        if (key == "zuhfj") st.displaymode = value == 2 ? "fenjie" : value == 3 ? "zhjz" : "zuhe";
        if (then) then(st);
    };
    return c;
}

Control settingbar(const std::string& name, const std::string& key, const std::string& field, int min,
                   int max, std::function<void(Station&)> then) {
    Control c = control(name, ControlKind::scrollbar);
    c.min = min;
    c.max = max;
    c.value = [key, field](const Station& st) { return static_cast<int>(*st.settings.field(key, field)); };
    c.change = [key, field, then](Station& st, int value) {
        writesetting(st, key, field, std::to_string(value));
        *st.settings.field(key, field) = static_cast<std::int16_t>(value);
        if (then) then(st);
    };
    return c;
}

void registerstores(Station& st) {
    Control setdefault = control("Command36", ControlKind::button, "设为默认");
    setdefault.click = [](Station& st, const std::string&) { savefilterdefaults(st); };
    st.controls.add(setdefault);
}

} // namespace orvane

#include "app/desk.h"

#include "app/startup.h"
#include "processing/pointer.h"
#include "processing/safefile.h"
#include "processing/session.h"
#include "replay/bofang.h"
#include "replay/transport.h"
#include "replay/wholerun.h"
#include "station/numbers.h"
#include "station/station.h"
#include "station/text.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

namespace orvane {

namespace {

std::string recentfile(const std::string& folder) {
    return (fs::path(folder) / "recent.txt").string();
}

// A station as at start, keeping what the process keeps: its mode strings, its folder with the open
// databases and the settings read from them, the ports and pictures of the windows, the table of
// controls with the hooks, and the files written so far.
void startafresh(Station& st) {
    Station fresh;
    fresh.language = st.language;
    fresh.displaymode = st.displaymode;
    fresh.buildvariant = st.buildvariant;
    fresh.tarvikmode = st.tarvikmode;
    fresh.folder = st.folder;
    fresh.settings = st.settings;
    fresh.gpsxdb = std::move(st.gpsxdb);
    fresh.colordb = std::move(st.colordb);
    fresh.yqhbzdb = std::move(st.yqhbzdb);
    fresh.ui = st.ui;
    fresh.clock = st.clock;
    fresh.workbooks = st.workbooks;
    fresh.printer = st.printer;
    fresh.screen = st.screen;
    fresh.picture1 = st.picture1;
    fresh.picture6 = st.picture6;
    fresh.picture9 = st.picture9;
    fresh.picture3 = st.picture3;
    fresh.canvases = std::move(st.canvases);
    fresh.countinstances = std::move(st.countinstances);
    fresh.controls = std::move(st.controls);
    fresh.hooks = std::move(st.hooks);
    fresh.written = std::move(st.written);
    fresh.instancecount = 1;
    st = std::move(fresh);
}

} // namespace

std::vector<std::string> recentrecordings(const std::string& folder) {
    std::vector<std::string> paths;
    std::ifstream in(recentfile(folder));
    for (std::string line; std::getline(in, line) && std::ssize(paths) < recentlimit;)
        if (!line.empty()) paths.push_back(line);
    return paths;
}

void rememberrecording(Station& st, const std::string& path) {
    std::error_code ec;
    const fs::path whole = fs::absolute(trimblanks(path), ec);
    const std::string entry = ec ? trimblanks(path) : whole.lexically_normal().string();
    std::vector<std::string> paths = recentrecordings(st.folder);
    std::erase(paths, entry);
    paths.insert(paths.begin(), entry);
    if (std::ssize(paths) > recentlimit) paths.resize(recentlimit);
    std::string text;
    for (const std::string& p : paths) text += p + "\n";
    // The list is a convenience: a folder that can't take it leaves the list as it was.
    (void)commitfile(recentfile(st.folder), "", text);
    st.form.recent = paths;
}

bool recordingpathok(const std::string& path) {
    const std::string trimmed = trimblanks(path);
    std::error_code ec;
    return utf32of(trimmed).size() >= 4 && fs::is_regular_file(trimmed, ec) && extensionok(trimmed);
}

bool openrecording(Station& st, const std::string& path) {
    const std::string chosen = stripquotes(path);
    if (!recordingpathok(chosen)) {
        st.ui->message(chosen + "有误");
        return false;
    }
    if (st.activated) {
        for (const std::string& form : openforms(st))
            if (form != "Form28") closeform(st, form);
        st.T1 = st.T2 = false;
        if (!st.form.Tmc.empty() && !saveanalysis(st)) return false;
    }
    startafresh(st);
    loadpath(st, chosen);
    rememberrecording(st, chosen);
    windowactivate(st);
    return true;
}

std::string startpath(Station& st, const std::string& commandline) {
    if (!trimblanks(stripquotes(commandline)).empty()) return commandline;
    return st.ui->openfile(recordingfilter, "ktr").value_or("");
}

void picturekey(Station& st, const std::string& key) {
    const std::int32_t screen = st.settings.viewspan > 0 ? st.settings.viewspan : 1200;
    if (key == "Right" || key == "WheelDown") {
        press(st, "Command34");
    } else if (key == "Left" || key == "WheelUp") {
        press(st, "Command27");
    } else if (key == "PageDown" || key == "Shift+WheelDown") {
        stepforwardby(st, screen);
    } else if (key == "PageUp" || key == "Shift+WheelUp") {
        stepbackby(st, screen);
    } else if (key == "Home") {
        scroll(st, "HScrolljd", 0);
    } else if (key == "End") {
        scroll(st, "HScrolljd", st.zhu.scrollmax);
    } else if (key == "Space") {
        press(st, "Command8");
    } else if (key == "Ctrl+WheelUp") {
        setcontrol(st, "Option8", "1");
    } else if (key == "Ctrl+WheelDown") {
        setcontrol(st, "Option9", "1");
    } else if (key == "Escape") {
        if (st.Picture5visible)
            press(st, "Label32");
        else if (st.Picture9visible)
            press(st, "Label9");
    } else {
        throw ControlError("图像不接受这个按键：" + key);
    }
}

namespace {

// The sample in force at ROW: the last whose position is not past it.
std::int32_t sampleat(const Side& s, std::int32_t row) {
    std::int32_t found = 0;
    for (std::int32_t k = 0; k < s.samplecount && k < std::ssize(s.samplepos); ++k)
        if (s.samplepos[k] <= row) found = k;
    return found;
}

// The end of the run on the position bar, in view indices.
std::int64_t runend(const Side& s) {
    return std::max<std::int64_t>(1, std::int64_t{s.scrollmax} * 300);
}

std::string hoursminutes(double seconds) {
    const long whole = std::lround(std::max(0.0, seconds));
    std::ostringstream out;
    if (whole >= 3600) out << whole / 3600 << "时";
    out << (whole % 3600) / 60 << "分" << whole % 60 << "秒";
    return out.str();
}

} // namespace

std::string overviewtip(const Station& st, double x) {
    return st.overview.columns == 0 ? std::string() : readouttext(st, overviewkm(st, x), -1);
}

std::string statuspointer(const Station& st) {
    const Side::Readout& r = st.zhu.Label14;
    if (!r.visible) return "";
    const bool en = english(st);
    std::string text = readouttext(st, r.km, -1);
    if (st.zhu.samplecount > 0)
        text +=
            std::string(en ? "　T：" : "　时间：") + clocktext(st.zhu.sampleclock[sampleat(st.zhu, r.row)]);
    if (r.depth >= 0)
        text += std::string(en ? "　V：" : "　深度：") + formatfixed(r.depth, 1, 2) + (en ? "mm" : "毫米");
    return text;
}

std::string statusplace(const Station& st) {
    if (!recordingloaded(st)) return "";
    const double share = std::min(100.0, 100.0 * st.zhu.viewindex / static_cast<double>(runend(st.zhu)));
    return std::string(english(st) ? "Place: " : "位置：") + formatfixed(share, 1, 1) + "%";
}

std::string statusspeed(const Station& st) {
    if (!recordingloaded(st) || st.T1interval <= 0) return "";
    // A view index is one wheel step of 3.5 mm; a tick moves replaystep of them every T1interval ms.
    const double metres = st.replaystep * 3.5 / st.T1interval;
    const double left = std::max<std::int64_t>(0, runend(st.zhu) - st.zhu.viewindex) /
                        static_cast<double>(std::max<std::int16_t>(1, st.replaystep)) * st.T1interval / 1000;
    const bool en = english(st);
    return std::string(en ? "Replay: " : "回放速度：") + formatfixed(metres, 1, 2) +
           (en ? " m/s　left " : " 米/秒　剩余 ") + hoursminutes(left);
}

std::string statusfile(const Station& st) {
    if (st.zhu.filepath.empty()) return "";
    std::string text = fs::path(trimblanks(st.zhu.filepath)).filename().string();
    if (st.form.filesize >= 0) text += "  (" + formatfixed(st.form.filesize / 1048576.0, 1, 1) + " MB)";
    return text;
}

void registerdesk(Station& st) {
    Control open = control("Commandopen", ControlKind::button, "打开记录…");
    open.click = [](Station& st, const std::string&) {
        if (const auto path = st.ui->openfile(recordingfilter, "ktr")) openrecording(st, *path);
    };
    st.controls.add(open);
    for (int i = 0; i < recentlimit; ++i) {
        Control entry = control("Menurecent(" + std::to_string(i) + ")", ControlKind::menuentry);
        entry.caption = [i](const Station& st) {
            return i < std::ssize(st.form.recent) ? st.form.recent[i] : std::string();
        };
        entry.visible = [i](const Station& st) { return i < std::ssize(st.form.recent); };
        entry.click = [i](Station& st, const std::string&) {
            if (i < std::ssize(st.form.recent)) openrecording(st, std::string(st.form.recent[i]));
        };
        st.controls.add(entry);
    }
    if (Control* picture = st.controls.edit("Picture1"))
        picture->key = [](Station& st, const std::string& key) { picturekey(st, key); };
    using Reader = std::string (*)(const Station&);
    for (const auto& [name, reader] : {std::pair<const char*, Reader>{"Statuspointer", statuspointer},
                                       {"Statusplace", statusplace},
                                       {"Statusspeed", statusspeed},
                                       {"Statusfile", statusfile}}) {
        Control label = control(name, ControlKind::label);
        label.caption = reader;
        st.controls.add(label);
    }
    // Each bar's value with its unit beside it; the position bar's of its maximum.
    for (const auto& [bar, unit] : {std::pair{"HScroll8", "档"},
                                    {"HScroll7", "像素"},
                                    {"HScroll3", "点"},
                                    {"HScroll10", "点"},
                                    {"HScroll1", "档"},
                                    {"HScrolljd", "/"}}) {
        Control label = control(std::string(bar) + "value", ControlKind::label);
        label.caption = [bar = bar, unit = unit](const Station& st) {
            const Control& c = *st.controls.find(bar);
            const std::string value = std::to_string(c.value ? c.value(st) : 0);
            if (std::string(unit) == "/") return value + "/" + std::to_string(c.rangemax(st));
            return english(st) ? value : value + " " + unit;
        };
        st.controls.add(label);
    }
}

} // namespace orvane

#include "app/startup.h"

#include "app/desk.h"
#include "app/masterdata.h"

#include "stores/settingsstore.h"

#include "amode/controls.h"
#include "bmode/bmode.h"
#include "bmode/controls.h"
#include "curves/controls.h"
#include "processing/controls.h"
#include "processing/safefile.h"
#include "processing/session.h"
#include "recording/controls.h"
#include "recording/panels.h"
#include "recording/walk.h"
#include "replay/bofang.h"
#include "replay/controls.h"
#include "replay/transport.h"
#include "replay/wholerun.h"
#include "reports/controls.h"
#include "station/station.h"
#include "station/text.h"
#include "stores/stationfolder.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <filesystem>

namespace fs = std::filesystem;

namespace orvane {

namespace {

constexpr const char* seekhint =
    "如需查找里程相同点，请先点左键找到第一里程点，再点右键依次向后循环查找相同里程点";

// The caption pairs of the buttons whose caption is their state: the first of each pair at start.
void setbuttontexts(Station& st) {
    const bool english = st.language == "english";
    st.form.captions["Command8"] = english ? "Play" : "连续播放";
    st.form.captions["Command17"] = english ? "Double" : "打开对比";
    st.form.captions["Command20"] = english ? "Param" : "详细";
}

void setenglishcaptions(Station& st) {
    static const std::pair<const char*, const char*> english[] = {
        {"Command17", "Double"},     {"Command15", "Print"},   {"Command20", "Param"},
        {"Command1", "Set"},         {"Command18", "Shift"},   {"Command21", "Enlarge"},
        {"Labelyz", "mm"},           {"Labelyzdb", "mm"},      {"Label9", "close"},
        {"Frame1", "Param"},         {"Frame2", "Param"},      {"Labelaxxs", "A-mode"},
        {"Frame11", "Mode"},         {"lts1", "importing..."}, {"Option12", "Lock"},
        {"Labeltd", "All"},          {"Option13", "Unlock"},   {"Label32", "close"},
        {"Label2", "Speed"},         {"Label20", "Trip"},      {"Label21", "Trip"},
        {"Label5", "hand-step"},     {"Check8", "All"},        {"Frame6", "Mode set"},
        {"Combjs", "Back"},          {"Option3", "ungroup"},   {"Comcc", "Window"},
        {"Option4", "group"},        {"Command13", "Guides"},  {"Option5", "g-center"},
        {"Label3", "Size"},          {"Frame7", "Loca"},       {"Frame14", "Speed"},
        {"Option6", "bottom"},       {"Command8", "Pause"},    {"Option7", "top"},
        {"Command16", "Gain curve"}, {"Labellb", "close"},     {"Command3", "Shift"},
    };
    for (auto& [control, text] : english) st.form.captions[control] = text;
    st.form.lts1 = "importing...";
    for (int i = 0; i < 5; ++i) st.form.captions["SSTab1." + std::to_string(i)] = "backup";
    st.form.captions["SSTab1.5"] = "Set";
}

// First activation step 10: the filter boxes from row guolv, H and I first, then A to G.
void loadfilterboxes(Station& st) {
    static const std::pair<int, const char*> order[] = {{7, "shuzhi"}, {8, "shuzhibf"}, {0, "apy"},
                                                        {1, "bpy"},    {2, "cpy"},      {3, "dpy"},
                                                        {4, "epy"},    {5, "fpy"},      {6, "gpy"}};
    for (auto& [channel, field] : order) {
        DbValue v = st.colordb->scalar(std::string("select ") + field + " from color where weizhi= 'guolv'");
        if (v.number() != 0) {
            st.form.filtertext[channel] = v.astext();
            if (!st.form.filterchecked[channel]) tickfilter(st, channel);
        } else if (st.form.filterchecked[channel]) {
            tickfilter(st, channel); // unticked, as a click unticks it: the box reads 0 and rests
        }
    }
}

} // namespace

void pictureconstants(Station& st) {
    st.geometry = {0.0593, 0.0323, 0.777, 0.629, 0.0323, 0.707, 0.707, 0.0323, 0.0593};
    // The instrument's software takes 2 pi as 6.28; the angles keep that.
    const double degree = 6.28 / 360;
    st.cos18 = std::cos(18 * degree);
    st.sin18 = std::sin(18 * degree);
    st.cos70 = std::cos(70 * degree);
    st.sin60 = std::sin(60 * degree);
    st.quarter = 0.25;
}

std::string captionof(const std::string& buildvariant, const std::string& language) {
    if (language == "english") return "KRM-5T 2017-03-31-V1.1";
    if (buildvariant == "haerbin") return "KRM-5T/11型 2017-11-16-v1.0版";
    if (buildvariant == "longxi") return "KRM-5T/11型 2017-07-13-v1.1版";
    return "KRM-5T/11型 2017-11-15-v1.2版";
}

std::string stripquotes(const std::string& commandline) {
    std::string out;
    for (char c : commandline)
        if (c != '"') out.push_back(c);
    return out;
}

bool extensionok(const std::string& path) {
    std::u32string chars = utf32of(trimblanks(path));
    // Characters length-2 and length-1, counted from 1: the two before the last.
    if (chars.size() < 3) return false;
    char32_t a = chars[chars.size() - 3], b = chars[chars.size() - 2];
    auto upper = [](char32_t c) { return c >= U'a' && c <= U'z' ? c - 32 : c; };
    return upper(a) == U'K' && upper(b) == U'T';
}

int countprocesses(const std::string& exe, const std::string& procdir) {
    int count = 0;
    std::error_code ec;
    for (fs::directory_iterator it(procdir, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (name.empty() || !std::isdigit(static_cast<unsigned char>(name[0]))) continue;
        std::error_code linkerror;
        fs::path target = fs::read_symlink(it->path() / "exe", linkerror);
        if (!linkerror && target == fs::path(exe)) ++count;
    }
    return count;
}

int countthisprogram() {
    std::error_code ec;
    fs::path self = fs::read_symlink("/proc/self/exe", ec);
    return ec ? 1 : countprocesses(self.string());
}

void assemble(Station& st) {
    if (!st.controls.all().empty()) return;
    registerstores(st);
    registerrecording(st);
    registerbmode(st);
    registerreplay(st);
    registeramode(st);
    registerprocessing(st);
    registerreports(st);
    registercurves(st);
    registermasterdata(st);
    registerdesk(st);
}

void entry(Station& st, const std::string& folder, const std::string& language) {
    assemble(st);
    st.language = language;
    st.displaymode = "zuhe";
    st.buildvariant = "haerbin";
    st.tarvikmode = "feitarvik";
    st.folder = folder;
    stores::preparestationfolder(folder);
    stores::opendatabases(st, folder);
    loadsettings(st);
}

bool setvariant(Station& st, const std::string& text) {
    const auto colon = text.find(':');
    if (colon == std::string::npos || colon == 0) return false;
    const std::string tarvik = text.substr(colon + 1);
    if (tarvik != "tarvik" && tarvik != "feitarvik") return false;
    st.buildvariant = text.substr(0, colon);
    st.tarvikmode = tarvik;
    return true;
}

void windowload(Station& st, const std::string& commandline) {
    st.form.caption.clear();
    st.form.Tmc.clear();
    st.scratchpath = "deng";
    st.railoverride = "75";
    st.markstate = 1;

    st.instancecount = st.countinstances ? st.countinstances() : 1;
    if (st.instancecount > 1) {
        if (!st.ui->askyesno(secondinstancequestion)) {
            st.instancecount = 999;
            return;
        }
        // The user wants a second full instance: from here it is a station like any other.
        st.instancecount = 1;
    }
    loadpath(st, commandline);
}

void loadpath(Station& st, const std::string& commandline) {
    std::tm now = st.clock->now();
    char hhmmss[16];
    std::snprintf(hhmmss, sizeof hhmmss, "%02d%02d%02d", now.tm_hour, now.tm_min, now.tm_sec);
    st.sessionstart = hhmmss;

    st.zhu.filepath = stripquotes(commandline);
    const std::string trimmed = trimblanks(st.zhu.filepath);
    // What a killed save left beside the recording or in the station folder.
    sweeppartials(fs::path(trimmed).parent_path().empty() ? "." : fs::path(trimmed).parent_path().string());
    sweeppartials(st.folder);
    std::error_code ec;
    if (utf32of(trimmed).size() < 4 || !fs::exists(trimmed, ec) || fs::is_directory(trimmed, ec))
        st.ui->message(st.zhu.filepath + "有误");
    if (!extensionok(trimmed)) {
        st.ui->message(st.zhu.filepath + "有误");
        st.process.ended = true;
        st.process.exitstatus = 1;
        return;
    }

    st.form.Label20hint = seekhint;
    st.playside = "zhu";
    st.form.comparisonvisible = false;
    st.form.filesize = static_cast<std::int64_t>(fs::file_size(trimmed, ec));
    if (ec) st.form.filesize = -1;
    setbuttontexts(st);
    if (st.language == "english") setenglishcaptions(st);

    st.baseoffset = 800;
    pictureconstants(st);

    st.form.lines = combonames(*st.gpsxdb, "zyqjb");
    st.form.defects = combonames(*st.gpsxdb, "bz");
    st.form.filtercombo = {"全部"};
    setpanelheads(st);
}

void windowactivate(Station& st) {
    if (st.instancecount > 1) {
        st.process.ended = true;
        return;
    }
    if (st.activated) return;
    st.activated = true;
    st.railheight = {0, 280, 304, 352, 384};

    st.form.caption = captionof(st.buildvariant, st.language);

    st.form.pb1visible = true;
    st.form.lts1visible = true;
    walkfile(st, st.zhu);

    if (st.zhu.samplecount == 0) {
        st.form.lts1visible = false;
        st.form.pb1visible = false;
        st.ui->message(nodatamessage);
        return;
    }

    // The first rail code always differs from the one before, so the rail is drawn.
    st.previousrailcode.clear();
    st.zhu.railcode = "60";
    applyjob(st, st.zhu, 0);
    applyparam(st, st.zhu, 0);
    showgpsentry(st, st.zhu, 0);
    jobsummary(st);

    st.form.lts1visible = false;
    st.form.pb1visible = false;
    st.form.Text3visible = false;
    st.form.mainviewenabled = true;
    // The controls from the settings: the speed bar gives the step, and the expanded view, when in
    // force, caps the steps as its choice does.
    setreplayspeed(st);
    if (st.settings.viewspan == 600) capexpanded(st);
    loadfilterboxes(st);

    // The points of earlier sessions in the list of the tab "标注".
    pointlist(st);
    // The first picture, or the newest note of an earlier analysis.
    st.zhu.viewindex = 600;
    yybscs(st);
    bofang(st);
    updateoverview(st);
}

bool windowunload(Station& st) {
    // The analyst's session is kept unless the user chose to keep the window open to save it later.
    if (!st.form.Tmc.empty() && !saveanalysis(st)) return false;
    st.process.ended = true;
    return true;
}

} // namespace orvane

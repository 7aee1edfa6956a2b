// orvane-cli: the station's logic without a window, for batch work and end-to-end checks.
#include "amode/amode.h"
#include "app/startup.h"
#include "bmode/bmode.h"
#include "commands.h"
#include "json.h"
#include "processing/clip.h"
#include "replay/bofang.h"
#include "replay/transport.h"
#include "replay/viewmap.h"
#include "reports/notice.h"
#include "station/recordingcanvas.h"
#include "station/scriptedui.h"
#include "station/station.h"
#include "station/systemclock.h"
#include "stores/settingsstore.h"
#include "stores/stationfolder.h"

#include <QGuiApplication>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace {

constexpr const char* usage =
    "usage: orvane-cli settings|dump FILE [--cells FROM:TO] [--mileage FROM:TO] "
    "[--seed N] [--set NAME=VALUE]... "
    "[--answer TEXT]... [-o FILE]\n"
    "       orvane-cli frame FILE [--view N] [--seed N] [--set NAME=VALUE]... "
    "(--png OUT | --ops OUT)\n"
    "       orvane-cli clip FILE --from POSITION --to POSITION -o OUT.ktr\n"
    "       orvane-cli run FILE [--seed N] [--set NAME=VALUE]... [--answer TEXT]... "
    "[--do ACTION]... [--canvas NAME] [--png OUT] [--ops OUT] [--cells FROM:TO] [--cellsdb FROM:TO] "
    "[--clock YYYYMMDD-hhmmss] [--workbooks DIR] [--pages DIR] [--variant BUILD:TARVIK]\n"
    "       orvane-cli notice FILE [--view N] [--kind 复核|反馈] [--set NAME=VALUE]... -o OUT.pdf\n"
    "       orvane-cli report quality|daily|markspeed|overview|integral|rawsamples FILE... [--speed N] "
    "[--variant BUILD:TARVIK] [--set NAME=VALUE]... [--view N] [--jobs N] -o DIR";

// The canvases of the curve windows and of the track, with the size in pixels that their windows
// show them at.
const std::map<std::string, std::pair<int, int>> curvepixels = {
    {"Form29.Picture1", {1000, 400}}, {"Form29.Picture2", {40, 400}}, {"Form8.Picture1", {1000, 400}},
    {"Form8.Picture2", {40, 400}},    {"Form8.Picture3", {40, 400}},  {"Form9.Picture1", {1000, 400}},
    {"Form9.Picture2", {40, 400}},    {"picturegj", {620, 370}}};

struct Arguments {
    std::string command;
    std::vector<std::string> positional;
    std::optional<std::uint32_t> seed;
    std::vector<std::pair<std::string, std::string>> sets;
    std::vector<std::string> answers;
    std::string output;
    orvane::cli::DumpRanges ranges;
    std::int64_t view = 600;
    std::string png, ops;
    std::string canvas = "Picture1"; // the canvas that --png and --ops write
    std::vector<std::string> actions;
    std::optional<std::tm> clock;         // --clock: the station's clock stands there
    std::optional<std::int64_t> from, to; // clip: the two markers
    std::string workbooks;                // run: the folder of the workbooks handed over
    std::string pages;                    // run: the folder of the printed pages
    std::string kind = "复核";            // notice: its kind
    std::optional<std::string> variant;   // BUILD:TARVIK
    std::string speed = "3";              // report: the answer to the speed question
    int jobs = 1;                         // report: files at once
};

// FROM:TO as two whole numbers.
std::optional<std::pair<std::int64_t, std::int64_t>> range(const std::string& text) {
    auto colon = text.find(':');
    if (colon == std::string::npos) return std::nullopt;
    try {
        std::size_t a = 0, b = 0;
        std::int64_t from = std::stoll(text.substr(0, colon), &a),
                     to = std::stoll(text.substr(colon + 1), &b);
        if (a != colon || b != text.size() - colon - 1) return std::nullopt;
        return std::pair{from, to};
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

int badarguments(const std::string& why) {
    std::cerr << "orvane-cli: " << why << "\n" << usage << "\n";
    return 2;
}

int failed(const std::string& why) {
    std::cerr << "orvane-cli: " << why << "\n";
    return 1;
}

// Parses the command line; returns an error text when it is wrong.
std::optional<std::string> parse(int argc, char** argv, Arguments& a) {
    if (argc < 2) return "no command";
    a.command = argv[1];
    for (int i = 2; i < argc; ++i) {
        std::string arg = argv[i];
        auto next = [&]() -> std::optional<std::string> {
            if (i + 1 >= argc) return std::nullopt;
            return std::string(argv[++i]);
        };
        if (arg == "--seed") {
            auto v = next();
            if (!v) return "--seed needs a number";
            char* end = nullptr;
            unsigned long n = std::strtoul(v->c_str(), &end, 10);
            if (v->empty() || *end) return "--seed needs a number";
            a.seed = static_cast<std::uint32_t>(n);
        } else if (arg == "--set") {
            auto v = next();
            auto eq = v ? v->find('=') : std::string::npos;
            if (!v || eq == std::string::npos || eq == 0) return "--set needs NAME=VALUE";
            a.sets.emplace_back(v->substr(0, eq), v->substr(eq + 1));
        } else if (arg == "--answer") {
            auto v = next();
            if (!v) return "--answer needs a text";
            a.answers.push_back(*v);
        } else if (arg == "--cells" || arg == "--mileage" || arg == "--cellsdb") {
            auto v = next();
            auto r = v ? range(*v) : std::nullopt;
            if (!r) return arg + " needs FROM:TO";
            (arg == "--cells"     ? a.ranges.cells
             : arg == "--mileage" ? a.ranges.mileage
                                  : a.ranges.cellsdb) = r;
        } else if (arg == "--view") {
            auto v = next();
            char* end = nullptr;
            const long long n = v ? std::strtoll(v->c_str(), &end, 10) : 0;
            if (!v || v->empty() || *end || n < 0) return "--view needs a view index";
            a.view = n;
        } else if (arg == "--clock") {
            auto v = next();
            a.clock = v ? orvane::clocktime(*v) : std::nullopt;
            if (!a.clock) return "--clock needs YYYYMMDD-hhmmss";
        } else if (arg == "--from" || arg == "--to") {
            auto v = next();
            char* end = nullptr;
            const long long n = v ? std::strtoll(v->c_str(), &end, 10) : 0;
            if (!v || v->empty() || *end || n < 0 || n > 2147483647) return arg + " needs a position";
            (arg == "--from" ? a.from : a.to) = n;
        } else if (arg == "--do") {
            auto v = next();
            if (!v) return "--do needs an action";
            a.actions.push_back(*v);
        } else if (arg == "--canvas") {
            auto v = next();
            const bool picture =
                v && (*v == "Picture1" || *v == "Picture3" || *v == "Picture6" || *v == "Picture9");
            if (!v || (!picture && !curvepixels.contains(*v)))
                return "--canvas takes Picture1, Picture3, Picture6, Picture9, picturegj or a canvas of "
                       "Form29, "
                       "Form8 or Form9";
            a.canvas = *v;
        } else if (arg == "--png" || arg == "--ops") {
            auto v = next();
            if (!v) return arg + " needs a file";
            (arg == "--png" ? a.png : a.ops) = *v;
        } else if (arg == "--workbooks") {
            auto v = next();
            if (!v || v->empty()) return "--workbooks needs a folder";
            a.workbooks = *v;
        } else if (arg == "--pages") {
            auto v = next();
            if (!v || v->empty()) return "--pages needs a folder";
            a.pages = *v;
        } else if (arg == "--kind") {
            auto v = next();
            if (!v || (*v != "复核" && *v != "反馈")) return "--kind takes 复核 or 反馈";
            a.kind = *v;
        } else if (arg == "--variant") {
            auto v = next();
            if (!v) return "--variant needs BUILD:TARVIK";
            a.variant = *v;
        } else if (arg == "--speed") {
            auto v = next();
            if (!v) return "--speed needs a number";
            a.speed = *v;
        } else if (arg == "--jobs") {
            auto v = next();
            char* end = nullptr;
            const long n = v ? std::strtol(v->c_str(), &end, 10) : 0;
            if (!v || v->empty() || *end || n < 1 || n > 64) return "--jobs needs a number from 1 to 64";
            a.jobs = static_cast<int>(n);
        } else if (arg == "-o") {
            auto v = next();
            if (!v) return "-o needs a file";
            a.output = *v;
        } else if (arg.rfind("--", 0) == 0) {
            return "unknown option " + arg;
        } else {
            a.positional.push_back(arg);
        }
    }
    return std::nullopt;
}

int writeoutput(const Arguments& a, const std::string& text) {
    if (a.output.empty()) {
        std::cout << text << "\n";
        return 0;
    }
    std::ofstream out(a.output, std::ios::binary);
    out << text << "\n";
    if (!out) return failed("cannot write " + a.output);
    return 0;
}

// The --set changes, in the order given, each as the user's change of that control; nullopt when all
// went through, else the exit status. A settings row changed takes effect as after a restart of the
// station: scale, background, map and steps anew.
std::optional<int> applysets(orvane::Station& st, const Arguments& args) {
    bool restarted = false;
    for (const auto& [name, value] : args.sets) {
        try {
            // "row.field" of table color, unless a window has a control "Form.Name" of that name.
            if (name.find('.') != std::string::npos && !st.controls.find(name)) {
                orvane::setsetting(st, name, value);
                restarted = true;
            } else {
                orvane::setcontrol(st, name, value);
            }
        } catch (const std::invalid_argument& e) {
            return badarguments(e.what());
        } catch (const std::exception& e) {
            return failed(e.what());
        }
    }
    if (restarted && st.zhu.samplecount > 0) {
        orvane::layout(st);
        orvane::background(st);
        orvane::rebuildmap(st, st.zhu);
        orvane::setreplayspeed(st);
        if (st.settings.viewspan == 600) orvane::capexpanded(st);
    }
    return std::nullopt;
}

// The main side drawn at VIEW, kept between 600 and the end of its view map; the lists' cursors
// follow it from their start.
void showview(orvane::Station& st, std::int64_t view) {
    orvane::Side& side = st.zhu;
    side.viewindex = static_cast<std::int32_t>(
        std::clamp<std::int64_t>(view, 600, std::max<std::int64_t>(600, std::ssize(side.viewmap))));
    side.jobcursor = side.paramcursor = side.markcursor = side.samplecursor = 0;
    orvane::bofang(st);
}

// The A-mode opened as a plain click at the picture's middle opens it.
void openamodeatmiddle(orvane::Station& st) {
    st.amodechannel = " ";
    st.pointerx = 600;
    st.clicky = 200;
    orvane::openamode(st);
}

// The notice of the place at the view asked for, with the A-mode opened there, as OUT.pdf and
// OUT.json; the station is loaded and its controls set by frame.
int notice(orvane::Station& st, orvane::ScriptedUi& ui, const Arguments& args) {
    showview(st, args.view);
    openamodeatmiddle(st);
    st.noticekind = args.kind;
    if (auto failure = orvane::cli::writepage(orvane::noticepage(st), args.output)) return failed(*failure);
    orvane::cli::Json j;
    j.beginobject().key("pages").beginarray().value(args.output).endarray();
    j.key("messages").beginarray();
    for (const std::string& m : ui.messages) j.value(m);
    j.endarray().endobject();
    std::cout << j.text() << "\n";
    return 0;
}

// Loads the recording as the window's first activation does and sets the controls. frame puts the
// view at the view index asked for and draws the picture once; run performs the actions and prints
// the state they leave, also on a recording without samples, whose window refuses most acts.
int frame(orvane::Station& st, orvane::ScriptedUi& ui, const Arguments& args) {
    const std::string& file = args.positional[0];
    orvane::RecordingCanvas picture1, picture3, picture6, picture9;
    st.picture1 = &picture1;
    st.picture3 = &picture3;
    st.picture6 = &picture6;
    st.picture9 = &picture9;
    picture9.scale(300, 0, 410);
    std::map<std::string, orvane::RecordingCanvas> curves;
    for (const auto& [name, pixels] : curvepixels) st.canvases[name] = &curves[name];
    const orvane::RecordingCanvas& canvas = args.canvas == "Picture3"           ? picture3
                                            : args.canvas == "Picture6"         ? picture6
                                            : args.canvas == "Picture9"         ? picture9
                                            : curvepixels.contains(args.canvas) ? curves[args.canvas]
                                                                                : picture1;
    orvane::windowload(st, file);
    if (st.process.ended)
        return failed(ui.messages.empty() ? file + " cannot be opened" : ui.messages.back());
    orvane::windowactivate(st);
    const bool nodata = st.zhu.samplecount == 0;
    if (nodata && args.command != "run") return failed(file + ": " + orvane::nodatamessage);
    if (auto status = applysets(st, args)) return *status;
    std::string output;
    orvane::cli::PictureScreen screen(picture1);
    st.screen = &screen;
    if (args.command == "notice") return notice(st, ui, args);
    if (args.command == "run") {
        auto makefolder = [](const std::string& folder) {
            std::error_code ec;
            std::filesystem::create_directories(folder, ec);
            return std::filesystem::is_directory(folder);
        };
        std::optional<orvane::cli::FolderWorkbooks> workbooks;
        if (!args.workbooks.empty()) {
            if (!makefolder(args.workbooks)) return failed("cannot make the folder " + args.workbooks);
            st.workbooks = &workbooks.emplace(args.workbooks);
        }
        std::optional<orvane::cli::FolderPrinter> printer;
        if (!args.pages.empty()) {
            if (!makefolder(args.pages)) return failed("cannot make the folder " + args.pages);
            st.printer = &printer.emplace(args.pages);
        }
        if (!nodata) orvane::bofang(st);
        for (const std::string& action : args.actions) {
            try {
                if (!orvane::cli::runaction(st, action)) break;
            } catch (const std::invalid_argument& e) {
                return badarguments(e.what());
            } catch (const std::exception& e) {
                return failed(e.what());
            }
        }
        output = orvane::cli::statejson(st, ui, args.ranges, workbooks ? &workbooks->paths : nullptr,
                                        printer ? &printer->paths : nullptr);
    } else {
        showview(st, args.view);
    }
    if (!args.ops.empty()) {
        Arguments out = args;
        out.output = args.ops;
        if (int status = writeoutput(out, orvane::cli::opsjson(canvas))) return status;
    }
    if (!args.png.empty()) {
        orvane::cli::guiapplication();
        // A curve is painted at the size its window shows it; the big track at the big size.
        auto [width, height] =
            curvepixels.contains(args.canvas) ? curvepixels.at(args.canvas) : std::pair{0, 0};
        if (args.canvas == "picturegj" && st.track.big) std::tie(width, height) = std::pair{1000, 700};
        if (!orvane::cli::writepng(canvas, args.png, width, height))
            return failed("cannot write " + args.png);
    }
    return output.empty() ? 0 : writeoutput(args, output);
}

// The stretch between the two positions saved as acc saves it, to the file of -o.
int clip(orvane::Station& st, orvane::ScriptedUi& ui, const Arguments& args) {
    const std::string& file = args.positional[0];
    orvane::windowload(st, file);
    if (st.process.ended)
        return failed(ui.messages.empty() ? file + " cannot be opened" : ui.messages.back());
    orvane::windowactivate(st);
    if (st.zhu.samplecount == 0) return failed(file + ": " + orvane::nodatamessage);
    if (auto status = applysets(st, args)) return *status;
    st.clipstart = static_cast<std::int32_t>(*args.from);
    st.clipend = static_cast<std::int32_t>(*args.to);
    ui.answers.assign(1, args.output);
    const std::size_t said = ui.messages.size();
    orvane::saveclip(st);
    if (st.written.empty()) return failed(ui.messages.size() > said ? ui.messages.back() : "nothing written");
    orvane::cli::Json j;
    j.beginobject().key("written").beginarray();
    for (const std::string& path : st.written) j.value(path);
    j.endarray().key("messages").beginarray();
    for (const std::string& m : ui.messages) j.value(m);
    j.endarray().endobject();
    std::cout << j.text() << "\n";
    return 0;
}

// Starts a station as the program starts: the station folder, the language, the customer strings.
std::optional<std::string> startstation(orvane::Station& st, const Arguments& args) {
    const char* language = std::getenv("ORVANE_LANGUAGE");
    try {
        orvane::entry(st, orvane::stores::stationfolder(),
                      language && std::string(language) == "english" ? "english" : "china");
    } catch (const std::exception& e) {
        return e.what();
    }
    const char* fromenvironment = std::getenv("ORVANE_VARIANT");
    const std::string variant = args.variant ? *args.variant : fromenvironment ? fromenvironment : "";
    if (!variant.empty() && !orvane::setvariant(st, variant))
        return "--variant takes BUILD:TARVIK, TARVIK tarvik or feitarvik";
    return std::nullopt;
}

// report: each file in a station of its own, loaded as dump loads it, the controls set, the view
// placed; the workbook made as the report's control makes it.
int report(const Arguments& args) {
    orvane::cli::ReportRequest request;
    request.kind = args.positional[0];
    request.files.assign(args.positional.begin() + 1, args.positional.end());
    request.folder = args.output;
    request.speed = args.speed;
    request.jobs = args.jobs;
    auto prepare = [&args](orvane::Station& st, orvane::ScriptedUi& ui,
                           const std::string& file) -> std::optional<std::string> {
        auto* clock = dynamic_cast<orvane::SystemClock*>(st.clock);
        if (args.clock && clock) clock->stand(*args.clock);
        if (auto failed = startstation(st, args)) return failed;
        std::error_code ec;
        if (!std::filesystem::is_regular_file(file, ec)) return "无法读取文件：" + file;
        orvane::windowload(st, file);
        if (st.process.ended) return ui.messages.empty() ? file + " cannot be opened" : ui.messages.back();
        orvane::windowactivate(st);
        if (st.zhu.samplecount == 0) return std::string(orvane::nodatamessage);
        for (const auto& [name, value] : args.sets) orvane::setcontrol(st, name, value);
        showview(st, args.view);
        if (args.positional[0] == "rawsamples") openamodeatmiddle(st);
        return std::nullopt;
    };
    return orvane::cli::report(request, prepare);
}

} // namespace

int main(int argc, char** argv) {
    Arguments args;
    if (auto error = parse(argc, argv, args)) return badarguments(*error);
    if (args.command != "settings" && args.command != "dump" && args.command != "frame" &&
        args.command != "run" && args.command != "clip" && args.command != "report" &&
        args.command != "notice")
        return badarguments("unknown command " + args.command);
    if (args.command == "report") {
        static const char* kinds[] = {"quality", "daily", "markspeed", "overview", "integral", "rawsamples"};
        if (args.positional.size() < 2 || args.output.empty())
            return badarguments("report takes a kind, files and -o DIR");
        if (std::find(std::begin(kinds), std::end(kinds), args.positional[0]) == std::end(kinds))
            return badarguments("unknown report " + args.positional[0]);
        {
            // The station folder made once, before the files' stations open it side by side.
            orvane::Station first;
            orvane::ScriptedUi ui;
            orvane::SystemClock clock;
            first.ui = &ui;
            first.clock = &clock;
            if (auto failure = startstation(first, args)) return failed(*failure);
        }
        return report(args);
    }
    if ((args.command == "frame" || args.command == "run") && args.positional.size() != 1)
        return badarguments(args.command + " takes one file");
    if (args.command == "notice" && (args.positional.size() != 1 || args.output.empty()))
        return badarguments("notice takes one file and -o OUT.pdf");
    if (args.command == "frame" && args.png.empty() == args.ops.empty())
        return badarguments("frame writes either --png OUT or --ops OUT");
    if (args.command == "settings" && !args.positional.empty()) return badarguments("settings takes no file");
    if (args.command == "dump" && args.positional.size() != 1) return badarguments("dump takes one file");
    if (args.command == "clip" &&
        (args.positional.size() != 1 || !args.from || !args.to || args.output.empty()))
        return badarguments("clip takes one file, --from, --to and -o");

    orvane::Station st;
    orvane::ScriptedUi ui;
    ui.answers.assign(args.answers.begin(), args.answers.end());
    std::unique_ptr<orvane::SystemClock> clock = args.seed ? std::make_unique<orvane::SystemClock>(*args.seed)
                                                           : std::make_unique<orvane::SystemClock>();
    st.ui = &ui;
    st.clock = clock.get();
    if (args.clock) clock->stand(*args.clock);

    if (auto failure = startstation(st, args)) return failed(*failure);

    try {
        // A recording that can't be read at all (missing, a folder, no permission) fails with its
        // reason, not with the empty window it would leave.
        if (args.command != "settings") {
            const std::string& file = args.positional[0];
            std::error_code ec;
            if (!std::filesystem::is_regular_file(orvane::stripquotes(file), ec) ||
                !std::ifstream(orvane::stripquotes(file), std::ios::binary))
                return failed("无法读取文件：" + file);
        }
        if (args.command == "frame" || args.command == "run" || args.command == "notice")
            return frame(st, ui, args);
        if (args.command == "clip") return clip(st, ui, args);
        if (args.command == "dump") {
            const std::string& file = args.positional[0];
            orvane::windowload(st, file);
            if (st.process.ended)
                return failed(ui.messages.empty() ? file + " cannot be opened" : ui.messages.back());
            orvane::windowactivate(st);
            if (auto status = applysets(st, args)) return *status;
            return writeoutput(args, orvane::cli::dumpjson(st, file, ui.messages, args.ranges));
        }
        if (auto status = applysets(st, args)) return *status;
        return writeoutput(args, orvane::cli::settingsjson(st));
    } catch (const std::exception& e) {
        return failed(e.what());
    }
}

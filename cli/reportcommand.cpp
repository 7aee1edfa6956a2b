// orvane-cli report, and the workbooks that the station hands over during run: each workbook as an
// .xlsx file with its model as JSON beside it.
#include "commands.h"
#include "json.h"
#include "reports/index.h"
#include "reports/markspeed.h"
#include "reports/quality.h"
#include "reports/rawsamples.h"
#include "reports/workbook.h"
#include "reports/xlsx.h"
#include "station/scriptedui.h"
#include "station/station.h"
#include "station/systemclock.h"

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <mutex>
#include <stdexcept>
#include <thread>

namespace fs = std::filesystem;

namespace orvane::cli {

std::string workbookjson(const Workbook& book) {
    Json j;
    j.beginobject().key("sheets").beginarray();
    for (const Sheet& s : book.sheets()) {
        j.beginobject().key("name").value(s.name);
        j.key("cells").beginarray();
        for (const auto& [place, v] : s.cells) {
            j.beginarray().value(place.first).value(place.second);
            if (v.number)
                j.value(v.real);
            else
                j.value(v.text);
            j.endarray();
        }
        j.endarray().key("rowfonts").beginobject();
        for (const auto& [row, size] : s.rowfonts) j.key(std::to_string(row)).value(size);
        j.endobject().key("columnwidths").beginobject();
        for (const auto& [column, width] : s.columnwidths) j.key(column).value(width);
        j.endobject().key("borders").beginarray();
        for (const std::string& range : s.borders) j.value(range);
        j.endarray().endobject();
    }
    j.endarray().endobject();
    return j.text();
}

void writeworkbook(const Workbook& book, const std::string& xlsxpath) {
    if (auto failed = savexlsx(book, xlsxpath)) throw std::runtime_error(*failed);
    const std::string jsonpath = fs::path(xlsxpath).replace_extension(".json").string();
    std::ofstream out(jsonpath, std::ios::binary);
    out << workbookjson(book) << "\n";
    if (!out) throw std::runtime_error("cannot write " + jsonpath);
}

void FolderWorkbooks::show(const Workbook& book, const std::string&) {
    const std::string path = (fs::path(folder) / (std::to_string(paths.size() + 1) + ".xlsx")).string();
    writeworkbook(book, path);
    paths.push_back(path);
}

namespace {

// Keeps the one workbook that a report hands over.
class KeptWorkbook : public Workbooks {
  public:
    std::optional<Workbook> book;
    void show(const Workbook& b, const std::string&) override { book = b; }
};

// Makes the report KIND on the loaded station as its control would.
void makereport(Station& st, ScriptedUi& ui, const ReportRequest& request) {
    const std::string& kind = request.kind;
    ui.answers.assign(1, request.speed);
    if (kind == "quality") {
        pressoverspeed(st);
    } else if (kind == "daily") {
        pressdailyentry(st);
    } else if (kind == "markspeed") {
        markoverspeed(st);
    } else if (kind == "overview") {
        pressjoboverview(st);
    } else if (kind == "integral") {
        indexload(st);
        integralexport(st);
    } else if (kind == "rawsamples") {
        pressrawsamples(st);
    }
}

struct Outcome {
    std::string workbook;
    std::vector<std::string> messages;
    std::string failed;
    std::int32_t overspeed = 0;
    std::string length, workingtime, meanspeed;
};

Outcome onefile(const ReportRequest& request, const std::string& file, const Prepare& prepare) {
    Outcome o;
    try {
        Station st;
        ScriptedUi ui;
        SystemClock clock;
        st.ui = &ui;
        st.clock = &clock;
        KeptWorkbook kept;
        if (auto failed = prepare(st, ui, file)) {
            o.failed = *failed;
            return o;
        }
        st.workbooks = &kept;
        makereport(st, ui, request);
        o.messages = ui.messages;
        if (!kept.book) {
            o.failed = ui.messages.empty() ? "no workbook made" : ui.messages.back();
            return o;
        }
        o.workbook =
            (fs::path(request.folder) / (fs::path(file).stem().string() + "-" + request.kind + ".xlsx"))
                .string();
        writeworkbook(*kept.book, o.workbook);
        o.overspeed = st.overspeedcount;
        o.length = st.form.labels["Ltccd"];
        o.workingtime = st.form.labels["Lgzsj"];
        o.meanspeed = st.meanspeed;
    } catch (const std::exception& e) {
        o.workbook.clear();
        o.failed = e.what();
    }
    return o;
}

bool speedreport(const std::string& kind) {
    return kind == "quality" || kind == "daily" || kind == "markspeed";
}

} // namespace

int report(const ReportRequest& request, const Prepare& prepare) {
    std::error_code ec;
    fs::create_directories(request.folder, ec);
    if (ec || !fs::is_directory(request.folder)) {
        std::cerr << "orvane-cli: cannot make the folder " << request.folder << "\n";
        return 1;
    }
    const std::size_t n = request.files.size();
    std::vector<Outcome> outcomes(n);
    std::atomic<std::size_t> next{0};
    std::mutex progress;
    std::size_t done = 0;
    auto worker = [&] {
        for (std::size_t i; (i = next++) < n;) {
            outcomes[i] = onefile(request, request.files[i], prepare);
            const std::lock_guard lock(progress);
            ++done;
            std::cerr << "[" << done << "/" << n << "] " << request.files[i] << ": "
                      << (outcomes[i].failed.empty() ? outcomes[i].workbook : "failed: " + outcomes[i].failed)
                      << "\n";
        }
    };
    std::vector<std::thread> threads;
    const int jobs = std::max(1, std::min<int>(request.jobs, static_cast<int>(n)));
    for (int t = 1; t < jobs; ++t) threads.emplace_back(worker);
    worker();
    for (auto& t : threads) t.join();

    Json j;
    j.beginobject().key("reports").beginarray();
    bool anyfailed = false;
    for (std::size_t i = 0; i < n; ++i) {
        const Outcome& o = outcomes[i];
        if (!o.failed.empty()) {
            anyfailed = true;
            continue;
        }
        j.beginobject().key("file").value(request.files[i]).key("workbook").value(o.workbook);
        j.key("messages").beginarray();
        for (const std::string& m : o.messages) j.value(m);
        j.endarray().key("figures").beginobject();
        if (speedreport(request.kind)) j.key("overspeed").value(o.overspeed);
        j.key("length")
            .value(o.length)
            .key("workingtime")
            .value(o.workingtime)
            .key("meanspeed")
            .value(o.meanspeed);
        j.endobject().endobject();
    }
    j.endarray().key("failed").beginarray();
    for (std::size_t i = 0; i < n; ++i)
        if (!outcomes[i].failed.empty())
            j.beginobject()
                .key("file")
                .value(request.files[i])
                .key("reason")
                .value(outcomes[i].failed)
                .endobject();
    j.endarray().endobject();
    std::cout << j.text() << "\n";
    return anyfailed ? 1 : 0;
}

} // namespace orvane::cli

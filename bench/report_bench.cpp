// The analysis index and the reports on the large synthetic recording (the daily report among them),
// each with its .xlsx file written, and the quality summary of a supervisor's folder of 20 small recordings.
#include "generator.h"
#include "loadedstation.h"
#include "reports/daily.h"
#include "reports/index.h"
#include "reports/markspeed.h"
#include "reports/quality.h"
#include "reports/workbook.h"
#include "reports/xlsx.h"
#include "station/recordingcanvas.h"
#include "station/station.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <memory>

namespace {

namespace fs = std::filesystem;

const fs::path folder = fs::temp_directory_path() / "orvane-bench-report";

struct Loaded : LoadedStation {
    explicit Loaded(const std::string& path) : LoadedStation((folder / "station").string(), path) {}
};

Loaded& large() {
    static std::unique_ptr<Loaded> l = [] {
        fs::create_directories(folder);
        const std::string path = (folder / "20261122_large.ktr").string();
        ktrgen::writefile(path, ktrgen::generate(ktrgen::preset("large"), 1));
        return std::make_unique<Loaded>(path);
    }();
    return *l;
}

void IndexLoad(benchmark::State& state) {
    Loaded& l = large();
    for (auto _ : state) orvane::indexload(l.st);
    state.counters["marks"] = l.st.zhu.markcount;
    state.counters["gps"] = l.st.zhu.gpscount;
    state.counters["samples"] = l.st.zhu.samplecount;
}
BENCHMARK(IndexLoad)->Unit(benchmark::kMillisecond);

void QualitySummaryWithXlsx(benchmark::State& state) {
    Loaded& l = large();
    const std::string path = (folder / "quality.xlsx").string();
    for (auto _ : state) {
        const orvane::Workbook book = orvane::windowlayout(l.st, 2.5f);
        if (orvane::savexlsx(book, path)) state.SkipWithError("not written");
    }
    state.counters["overspeed"] = orvane::overspeedcount(l.st, 2.5f);
}
BENCHMARK(QualitySummaryWithXlsx)->Unit(benchmark::kMillisecond);

void MarkOverspeedWithXlsx(benchmark::State& state) {
    Loaded& l = large();
    orvane::indexload(l.st);
    const std::string path = (folder / "markspeed.xlsx").string();
    for (auto _ : state) {
        const orvane::Workbook book = orvane::markspeedbook(l.st, 2.5f);
        if (orvane::savexlsx(book, path)) state.SkipWithError("not written");
    }
}
BENCHMARK(MarkOverspeedWithXlsx)->Unit(benchmark::kMillisecond);

// The daily report as a careful user makes it: the index loaded once, then the report and its file.
void DailyReportWithXlsx(benchmark::State& state) {
    Loaded& l = large();
    orvane::indexload(l.st);
    const std::string path = (folder / "daily.xlsx").string();
    for (auto _ : state) {
        const orvane::Workbook book = orvane::dailybook(l.st, 2.5f);
        if (orvane::savexlsx(book, path)) state.SkipWithError("not written");
    }
    state.counters["integralrows"] = static_cast<double>(l.st.form.Grid1jf.size() - 1);
}
BENCHMARK(DailyReportWithXlsx)->Unit(benchmark::kMillisecond);

// Each file loaded into a station of its own, its summary made and written, as report quality does.
void ReportQualityTwentySmall(benchmark::State& state) {
    std::vector<std::string> files;
    fs::create_directories(folder);
    for (std::uint32_t seed = 1; seed <= 20; ++seed) {
        files.push_back((folder / ("small" + std::to_string(seed) + ".ktr")).string());
        if (!fs::exists(files.back()))
            ktrgen::writefile(files.back(), ktrgen::generate(ktrgen::preset("small"), seed));
    }
    for (auto _ : state) {
        for (const std::string& file : files) {
            Loaded l(file);
            const orvane::Workbook book = orvane::windowlayout(l.st, 3.0f);
            if (orvane::savexlsx(book, file + ".xlsx")) state.SkipWithError("not written");
        }
    }
}
BENCHMARK(ReportQualityTwentySmall)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();

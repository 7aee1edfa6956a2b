// The start of the station: a fresh folder with its three databases and the settings load, and the
// settings load alone on a folder that exists.
#include "app/startup.h"
#include "station/scriptedui.h"
#include "station/station.h"
#include "station/systemclock.h"
#include "station/vbval.h"
#include "stores/settingsstore.h"

#include <benchmark/benchmark.h>
#include <filesystem>

namespace {

std::filesystem::path benchfolder(const char* name) {
    return std::filesystem::temp_directory_path() / ("orvane-bench-" + std::string(name));
}

void FirstStart(benchmark::State& state) {
    const auto folder = benchfolder("first");
    for (auto _ : state) {
        state.PauseTiming();
        std::filesystem::remove_all(folder);
        state.ResumeTiming();
        orvane::Station st;
        orvane::entry(st, folder.string());
        benchmark::DoNotOptimize(st.settings.viewspan);
    }
    std::filesystem::remove_all(folder);
}
BENCHMARK(FirstStart)->Unit(benchmark::kMillisecond);

void LoadSettings(benchmark::State& state) {
    const auto folder = benchfolder("load");
    orvane::Station st;
    orvane::entry(st, folder.string());
    for (auto _ : state) {
        orvane::loadsettings(st);
        benchmark::DoNotOptimize(st.settings.viewspan);
    }
    std::filesystem::remove_all(folder);
}
BENCHMARK(LoadSettings)->Unit(benchmark::kMicrosecond);

void Val(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(orvane::vbval("  0012.5e1 km"));
}
BENCHMARK(Val);

} // namespace

BENCHMARK_MAIN();

// Each curve and the track of the large synthetic recording drawn on recorded canvases, and the gain
// curve painted as its window paints it.
#include "curves/curves.h"
#include "curves/track.h"
#include "generator.h"
#include "loadedstation.h"
#include "render/rastercanvas.h"
#include "reports/index.h"
#include "station/recordingcanvas.h"

#include <QGuiApplication>
#include <benchmark/benchmark.h>
#include <filesystem>
#include <map>
#include <memory>

namespace {

namespace fs = std::filesystem;

const fs::path folder = fs::temp_directory_path() / "orvane-bench-curves";

// The large recording, made once, with its curve canvases, the index loaded and the gain curve open.

struct Loaded : LoadedStation {
    std::map<std::string, orvane::RecordingCanvas> canvases;
    Loaded() : LoadedStation((folder / "station").string(), largerecording(folder)) {
        for (const char* name : {"Form29.Picture1", "Form29.Picture2", "Form8.Picture1", "Form8.Picture2",
                                 "Form8.Picture3", "Form9.Picture1", "Form9.Picture2", "picturegj"})
            st.canvases[name] = &canvases[name];
        orvane::indexload(st);
        orvane::opengaincurve(st);
    }
};

Loaded& large() {
    static std::unique_ptr<Loaded> l = std::make_unique<Loaded>();
    return *l;
}

void GainCurveAllChannels(benchmark::State& state) {
    Loaded& l = large();
    for (auto _ : state) orvane::gainall(l.st);
    state.counters["records"] = l.st.zhu.paramcount;
}
BENCHMARK(GainCurveAllChannels)->Unit(benchmark::kMillisecond);

void IntegralCurveAllChannels(benchmark::State& state) {
    Loaded& l = large();
    for (auto _ : state) orvane::integralall(l.st);
    state.counters["rows"] = static_cast<double>(l.st.form.Grid1jf.size() - 1);
}
BENCHMARK(IntegralCurveAllChannels)->Unit(benchmark::kMillisecond);

void SpeedCurvePage(benchmark::State& state) {
    Loaded& l = large();
    l.st.curves.speedmargin = orvane::pagesize * 0.08;
    for (auto _ : state) {
        l.st.curves.speedfirst = 10000;
        orvane::speedpage(l.st);
    }
}
BENCHMARK(SpeedCurvePage)->Unit(benchmark::kMillisecond);

void TrackPreparedScaledDrawn(benchmark::State& state) {
    Loaded& l = large();
    for (auto _ : state) orvane::showtrack(l.st);
    state.counters["entries"] = l.st.track.trackcount;
}
BENCHMARK(TrackPreparedScaledDrawn)->Unit(benchmark::kMillisecond);

// The integral curve of all channels painted at the window's size, as the window shows it.
void IntegralCurvePainted(benchmark::State& state) {
    Loaded& l = large();
    orvane::integralall(l.st);
    for (auto _ : state)
        benchmark::DoNotOptimize(orvane::renderrecorded(l.canvases["Form8.Picture1"], 1000, 400));
}
BENCHMARK(IntegralCurvePainted)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    // Text is painted with the fonts of a GUI application; no screen is needed.
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

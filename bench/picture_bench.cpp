// One redraw of the B-mode picture on the large synthetic recording (22 km, 6.29 million positions)
// beside the clear to the background alone, the clip map of the whole recording and a seek by
// kilometre.
#include "app/startup.h"
#include "bmode/bmode.h"
#include "generator.h"
#include "recording/walk.h"
#include "render/rastercanvas.h"
#include "replay/bofang.h"
#include "replay/transport.h"
#include "replay/viewmap.h"
#include "station/scriptedui.h"
#include "station/station.h"
#include "station/systemclock.h"

#include <QGuiApplication>
#include <benchmark/benchmark.h>
#include <cmath>
#include <fstream>
#include <memory>

namespace {

// The large recording, walked once, with every channel shown at a view span of 1200.
struct Loaded {
    orvane::ScriptedUi ui;
    orvane::SystemClock clock{1};
    orvane::Station st;
    std::unique_ptr<orvane::RasterCanvas> canvas;

    Loaded() {
        const std::string path = "/tmp/orvane-bench-large.ktr";
        const ktrgen::Recording r = ktrgen::generate(ktrgen::preset("large"), 1);
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(r.bytes.data()),
                   static_cast<std::streamsize>(r.bytes.size()));
        orvane::assemble(st);
        st.ui = &ui;
        st.clock = &clock;
        st.railheight = {0, 280, 304, 352, 384};
        pictureconstants(st);
        st.settings.viewspan = 1200;
        st.settings.diandx = 2;
        for (int k = 0; k < 9; ++k) st.settings.channelcolor[k] = 0x3050F0u + 0x101010u * k;
        canvas = std::make_unique<orvane::RasterCanvas>(1200, 410);
        st.picture1 = canvas.get();
        st.zhu.filepath = path;
        orvane::walkfile(st, st.zhu);
        st.zhu.railcode = "60";
        orvane::layout(st);
        orvane::background(st);
    }
};

Loaded& loaded() {
    static Loaded l;
    return l;
}

void Bofang(benchmark::State& state) {
    Loaded& l = loaded();
    std::int32_t view = 600;
    for (auto _ : state) {
        l.st.zhu.viewindex = view;
        orvane::bofang(l.st);
        view = view + 37 < l.st.zhu.viewlength - 1200 ? view + 37 : 600; // replay moves on
    }
    state.counters["viewlength"] = l.st.zhu.viewlength;
}
BENCHMARK(Bofang)->Unit(benchmark::kMicrosecond);

void ClearToBackground(benchmark::State& state) {
    Loaded& l = loaded();
    for (auto _ : state) l.canvas->clear();
}
BENCHMARK(ClearToBackground)->Unit(benchmark::kMicrosecond);

void ClipMap(benchmark::State& state) {
    Loaded& l = loaded();
    l.st.settings.wholefile = 0;
    l.st.settings.reverseshow = 1;
    for (auto _ : state) orvane::rebuildmap(l.st, l.st.zhu);
    state.counters["lastposition"] = l.st.zhu.lastposition;
}
BENCHMARK(ClipMap)->Unit(benchmark::kMillisecond);

// A seek to the kilometre in the middle of the recording on the whole-file map: every view index
// is looked at once.
void SeekKilometre(benchmark::State& state) {
    Loaded& l = loaded();
    l.st.settings.wholefile = 1;
    l.st.settings.reverseshow = 1;
    orvane::rebuildmap(l.st, l.st.zhu);
    const float middle = l.st.zhu.mileage[l.st.zhu.lastposition / 2][0];
    l.st.Text1 = std::to_string(middle);
    for (auto _ : state) orvane::seekkilometre(l.st);
    state.counters["hits"] = l.st.seekcount;
}
BENCHMARK(SeekKilometre)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv); // the labels of the picture need fonts
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

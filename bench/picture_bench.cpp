// One redraw of the B-mode picture on the large synthetic recording (22 km, 6.29 million positions)
// beside the clear to the background alone, the clip map of the whole recording and a seek by
// kilometre; one tick of the A-mode of one channel (with an echo and a late echo) and of all channels
// beside the clear of Picture3.
#include "amode/amode.h"
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
        ktrgen::writefile(path, ktrgen::generate(ktrgen::preset("large"), 1));
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

// The A-mode of channel G opened at the middle of the picture, its cells at the scan column given an
// echo and a late echo, so that every tick draws the whole trace with both shapes.
struct AModeOpen {
    orvane::RasterCanvas picture3{620, 430};
    AModeOpen() {
        Loaded& l = loaded();
        l.st.picture3 = &picture3;
        l.st.zhu.viewindex = 600;
        l.st.zhu.rulerx0 = 580;
        l.st.amodechannel = "G";
        orvane::openamode(l.st);
        l.st.zhu.channelscale[6] = 1;
        l.st.settings.latewaveshown = 0;
        for (std::int32_t c = 0; c <= l.st.amodelast + 1; ++c) {
            const std::int32_t row = l.st.zhu.mapat(l.st.zhu.viewindex + c + l.st.zhu.pinkongval[6]);
            l.st.zhu.rawgrid[row][6] = 40;    // the echo at 160
            l.st.zhu.samplegrid[row][10] = 5; // the late echo at 619
        }
    }
};

AModeOpen& amode() {
    static AModeOpen a;
    return a;
}

void AModeTick(benchmark::State& state) {
    Loaded& l = loaded();
    amode();
    for (auto _ : state) {
        if (l.st.amodecolumn >= l.st.amodelast) l.st.amodecolumn = 20;
        orvane::drawamodeframe(l.st, true);
    }
    state.counters["echox"] = l.st.echox;
    state.counters["latex"] = l.st.latex;
}
BENCHMARK(AModeTick)->Unit(benchmark::kMicrosecond);

void AllChannelTick(benchmark::State& state) {
    Loaded& l = loaded();
    amode();
    orvane::openallchannels(l.st);
    for (auto _ : state) {
        if (l.st.amodecolumn >= l.st.amodelast) l.st.amodecolumn = 20;
        orvane::allchanneltick(l.st);
    }
}
BENCHMARK(AllChannelTick)->Unit(benchmark::kMicrosecond);

void ClearPicture3(benchmark::State& state) {
    for (auto _ : state) amode().picture3.clear();
}
BENCHMARK(ClearPicture3)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv); // the labels of the picture need fonts
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

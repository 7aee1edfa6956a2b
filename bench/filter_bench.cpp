// The filter on a synthetic recording of just under 5 million positions with the thresholds the
// window starts with (256, channel E 1): the first processing (which saves the original cells), a
// second one (which starts again from them) and the cancel; and the walk of the same file into the
// comparison side beside the walk of the main side.
#include "app/startup.h"
#include "generator.h"
#include "processing/filter.h"
#include "recording/walk.h"
#include "scenario.h"
#include "station/scriptedui.h"
#include "station/station.h"
#include "station/systemclock.h"

#include <benchmark/benchmark.h>
#include <stdexcept>

namespace {

struct Loaded {
    orvane::ScriptedUi ui;
    orvane::SystemClock clock{1};
    orvane::Station st;
    std::string path = "/tmp/orvane-bench-filter.ktr";

    Loaded() {
        ktrgen::Scenario scenario = ktrgen::preset("large");
        scenario.lengthkm = 17.0;
        ktrgen::writefile(path, ktrgen::generate(scenario, 1));
        orvane::assemble(st);
        st.ui = &ui;
        st.clock = &clock;
        st.settings.viewspan = 1200;
        st.form.captions["Command17"] = "打开对比";
        st.zhu.filepath = path;
        orvane::walkfile(st, st.zhu);
        if (st.zhu.lastposition > orvane::filterstorelast)
            throw std::runtime_error("the recording passes the filter's store");
    }
};

Loaded& loaded() {
    static Loaded l;
    return l;
}

void counters(benchmark::State& state, const orvane::Station& st) {
    state.counters["lastposition"] = st.zhu.lastposition;
    state.counters["events"] = st.eventcount;
    state.counters["hits"] = st.hitcount;
}

void ProcessFirst(benchmark::State& state) {
    orvane::Station& st = loaded().st;
    for (auto _ : state) {
        orvane::processfilter(st);
        state.PauseTiming();
        orvane::cancelfilter(st);
        state.ResumeTiming();
    }
    counters(state, st);
}
BENCHMARK(ProcessFirst)->Unit(benchmark::kMillisecond);

void ProcessSecond(benchmark::State& state) {
    orvane::Station& st = loaded().st;
    orvane::processfilter(st);
    for (auto _ : state) orvane::processfilter(st);
    counters(state, st);
    orvane::cancelfilter(st);
}
BENCHMARK(ProcessSecond)->Unit(benchmark::kMillisecond);

void Cancel(benchmark::State& state) {
    orvane::Station& st = loaded().st;
    for (auto _ : state) {
        state.PauseTiming();
        orvane::processfilter(st);
        state.ResumeTiming();
        orvane::cancelfilter(st);
    }
    counters(state, st);
}
BENCHMARK(Cancel)->Unit(benchmark::kMillisecond);

void MainWalk(benchmark::State& state) {
    Loaded& l = loaded();
    for (auto _ : state) orvane::walkfile(l.st, l.st.zhu);
    state.counters["lastposition"] = l.st.zhu.lastposition;
}
BENCHMARK(MainWalk)->Unit(benchmark::kMillisecond);

void ComparisonWalk(benchmark::State& state) {
    Loaded& l = loaded();
    orvane::makecomparisonstore(l.st, orvane::comparisonstorelast, 0);
    l.st.cong.filepath = l.path;
    for (auto _ : state) orvane::walkfile(l.st, l.st.cong);
    state.counters["lastposition"] = l.st.cong.lastposition;
}
BENCHMARK(ComparisonWalk)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();

// Saving a clip of 1 km (about 286,000 positions) of the large synthetic recording, and the save of
// an analyst's session on a 150 MB recording beside cp of the same file: the copy dominates both.
#include "app/startup.h"
#include "generator.h"
#include "processing/clip.h"
#include "processing/session.h"
#include "recording/walk.h"
#include "station/scriptedui.h"
#include "station/station.h"
#include "station/systemclock.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

const fs::path folder = fs::temp_directory_path() / "orvane-bench-session";

struct Large {
    orvane::ScriptedUi ui;
    orvane::SystemClock clock{1};
    orvane::Station st;
    Large() {
        fs::create_directories(folder);
        const std::string path = (folder / "large.ktr").string();
        ktrgen::writefile(path, ktrgen::generate(ktrgen::preset("large"), 1));
        orvane::assemble(st);
        st.ui = &ui;
        st.clock = &clock;
        st.zhu.filepath = path;
        orvane::walkfile(st, st.zhu);
    }
};

void SaveClipOfOneKilometre(benchmark::State& state) {
    static Large l;
    const std::string target = (folder / "clip.ktr").string();
    l.st.scratchpath = target;
    for (auto _ : state) {
        state.PauseTiming();
        fs::remove(target);
        l.st.clipstart = 1000000;
        l.st.clipend = 1000000 + 286000;
        state.ResumeTiming();
        orvane::saveclip(l.st);
    }
    state.counters["bytes"] = static_cast<double>(fs::file_size(target));
}
BENCHMARK(SaveClipOfOneKilometre)->Unit(benchmark::kMillisecond);

// 150 MB of records, as far as the save is concerned a recording like any other.
const std::string& recording150() {
    static const std::string path = [] {
        fs::create_directories(folder);
        const std::string p = (folder / "20261122_083.ktr").string();
        std::ofstream out(p, std::ios::binary);
        const std::string block(1 << 20, '\x42');
        for (int i = 0; i < 150; ++i) out << block;
        return p;
    }();
    return path;
}

void SaveAnalysisOf150MB(benchmark::State& state) {
    orvane::ScriptedUi ui;
    orvane::SystemClock clock{1};
    orvane::Station st;
    st.ui = &ui;
    st.clock = &clock;
    st.folder = folder.string();
    st.zhu.filepath = recording150();
    st.zhu.samplepos.assign(2, 0);
    st.sessionstart = "000000";
    for (auto _ : state) {
        state.PauseTiming();
        st.form.Tmc = "张伟";
        st.analysiscount = 0;
        st.newpoints = 1;
        st.analysislist[0] = "0120261123101500";
        st.written.clear();
        state.ResumeTiming();
        orvane::saveanalysis(st);
        state.PauseTiming();
        for (const std::string& written : st.written)
            if (written != (folder / "record.txt").string()) fs::remove(written);
        state.ResumeTiming();
    }
}
BENCHMARK(SaveAnalysisOf150MB)->Unit(benchmark::kMillisecond);

void CpOf150MB(benchmark::State& state) {
    const std::string command = "cp '" + recording150() + "' '" + (folder / "copy.ktr").string() + "'";
    for (auto _ : state)
        if (std::system(command.c_str()) != 0) state.SkipWithError("cp failed");
    fs::remove(folder / "copy.ktr");
}
BENCHMARK(CpOf150MB)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();

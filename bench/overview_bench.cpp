// The overview strip of the large synthetic recording built from its grids, as after the walk, with
// the memory it keeps.
#include "generator.h"
#include "loadedstation.h"
#include "replay/wholerun.h"

#include <benchmark/benchmark.h>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

const fs::path folder = fs::temp_directory_path() / "orvane-bench-overview";

void OverviewOfTheLargeRecording(benchmark::State& state) {
    static LoadedStation loaded((folder / "station").string(), largerecording(folder));
    orvane::Station& st = loaded.st;
    for (auto _ : state) {
        st.overview.signature = 0; // built again each time
        benchmark::DoNotOptimize(orvane::updateoverview(st));
    }
    const orvane::Overview& o = st.overview;
    state.counters["viewindices"] = static_cast<double>(o.length);
    state.counters["bytes"] = static_cast<double>(o.echoes.capacity() * sizeof(o.echoes[0]) +
                                                  o.events.capacity() + o.km.capacity() * sizeof(float));
}
BENCHMARK(OverviewOfTheLargeRecording)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();

// The walk of a large recording beside a plain read of the same file and a walk that builds the
// hexadecimal text of every record and reads its fields from the text.
#include "app/startup.h"
#include "generator.h"
#include "recording/decoders.h"
#include "recording/hex.h"
#include "recording/walk.h"
#include "scenario.h"
#include "station/scriptedui.h"
#include "station/station.h"
#include "station/systemclock.h"

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

// About 100 MB: a parameter record, then detection records of 51 hits with a sample record
// every twenty, 12 steps a record.
const std::string& largerecording() {
    static const std::string path = [] {
        const fs::path file = fs::temp_directory_path() / "orvane-bench-walk.ktr";
        const std::size_t records = 400000;
        if (fs::exists(file) && fs::file_size(file) == records * 256) return file.string();
        std::ofstream out(file, std::ios::binary);
        std::array<std::uint8_t, 256> r{};
        r[0] = 0x43;
        const std::uint8_t kinds[9] = {0x47, 0x46, 0x49, 0x48, 0x4B, 0x4A, 0x25, 0x26, 0x00};
        for (int k = 0; k < 9; ++k) r[1 + k] = 1, r[165 + k] = kinds[k];
        out.write(reinterpret_cast<char*>(r.data()), 256);
        std::int32_t step = 0;
        for (std::size_t n = 1; n < records; ++n) {
            r.fill(0);
            if (n % 20 == 0) {
                r[0] = 0x4D;
                std::uint8_t* e = &r[1];
                e[0] = 0x10, e[3] = 0x01, e[4] = 0x23, e[7] = 0x25;
                e[8] = step >> 16, e[9] = step >> 8, e[10] = step;
            } else {
                r[0] = 0x42;
                for (int i = 0; i < 51; ++i) {
                    std::uint8_t* e = &r[1 + 5 * i];
                    std::int32_t s = step + i / 5;
                    e[0] = s >> 16, e[1] = s >> 8, e[2] = s;
                    e[3] = static_cast<std::uint8_t>(1 + i % 9);
                    e[4] = static_cast<std::uint8_t>(40 + i);
                }
                step += 12;
            }
            out.write(reinterpret_cast<char*>(r.data()), 256);
        }
        return file.string();
    }();
    return path;
}

void PlainRead(benchmark::State& state) {
    const std::string& path = largerecording();
    std::vector<char> block(1 << 20);
    for (auto _ : state) {
        std::ifstream in(path, std::ios::binary);
        std::size_t sum = 0;
        while (in.read(block.data(), block.size()) || in.gcount() > 0) sum += block[0] + in.gcount();
        benchmark::DoNotOptimize(sum);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(fs::file_size(path)));
}
BENCHMARK(PlainRead)->Unit(benchmark::kMillisecond);

// A station as the first activation leaves it before the walk, with the large recording as main.
struct FreshStation {
    orvane::ScriptedUi ui;
    orvane::SystemClock clock{1};
    orvane::Station st;
    FreshStation() {
        orvane::assemble(st);
        st.ui = &ui;
        st.clock = &clock;
        st.railheight = {0, 280, 304, 352, 384}; // as the first activation sets them
        st.zhu.filepath = largerecording();
    }
};

void Walk(benchmark::State& state) {
    const std::string& path = largerecording();
    std::int32_t last = 0;
    std::size_t gridbytes = 0;
    for (auto _ : state) {
        FreshStation f;
        orvane::walkfile(f.st, f.st.zhu);
        last = f.st.zhu.lastposition;
        gridbytes = f.st.zhu.samplegrid.bytes() + f.st.zhu.rawgrid.bytes() + f.st.zhu.mileage.bytes() +
                    f.st.zhu.lossmark.size() / 8;
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(fs::file_size(path)));
    state.counters["lastposition"] = last;
    state.counters["grid_bytes_per_position"] = static_cast<double>(gridbytes) / last;
    long peak = 0;
    if (FILE* f = std::fopen("/proc/self/status", "r")) {
        char line[256];
        while (std::fgets(line, sizeof line, f))
            if (std::strncmp(line, "VmHWM:", 6) == 0) peak = std::atol(line + 6);
        std::fclose(f);
    }
    state.counters["peak_rss_MB"] = peak / 1024.0;
}
BENCHMARK(Walk)->Unit(benchmark::kMillisecond);

// The walk of the small synthetic run (about 80 KB, 59,000 positions): what a supervisor's batch of
// short recordings waits for, a walk each.
void WalkSmall(benchmark::State& state) {
    static const std::string path = [] {
        const fs::path file = fs::temp_directory_path() / "orvane-bench-small.ktr";
        ktrgen::writefile(file.string(), ktrgen::generate(ktrgen::preset("small"), 2));
        return file.string();
    }();
    for (auto _ : state) {
        FreshStation f;
        f.st.zhu.filepath = path;
        orvane::walkfile(f.st, f.st.zhu);
        benchmark::DoNotOptimize(f.st.zhu.lastposition);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(fs::file_size(path)));
}
BENCHMARK(WalkSmall)->Unit(benchmark::kMillisecond);

// The walk step by step: reading and decoding, then each step after it, in milliseconds a walk.
void WalkPhases(benchmark::State& state) {
    using clock = std::chrono::steady_clock;
    std::map<std::string, double> ms;
    for (auto _ : state) {
        FreshStation f;
        auto t = clock::now();
        auto lap = [&](const std::string& name) {
            const auto now = clock::now();
            ms[name] += std::chrono::duration<double, std::milli>(now - t).count();
            t = now;
        };
        orvane::readrecords(f.st, f.st.zhu);
        lap("read_decode_ms");
        for (const orvane::WalkStep& step : orvane::walksteps()) {
            const bool on = step.run(f.st, f.st.zhu);
            std::string name = std::string(step.name) + "_ms";
            std::replace(name.begin(), name.end(), ' ', '_');
            lap(name);
            if (!on) break;
        }
    }
    for (const auto& [name, total] : ms)
        state.counters[name] = total / static_cast<double>(state.iterations());
}
BENCHMARK(WalkPhases)->Unit(benchmark::kMillisecond);

// The decoders alone on the records of one type, held in memory: detection (0x42), samples (0x4D).
// The parameter record comes first, as the detection decoder needs one.
void Decode(benchmark::State& state, std::uint8_t type) {
    std::ifstream in(largerecording(), std::ios::binary);
    const std::vector<std::uint8_t> file((std::istreambuf_iterator<char>(in)),
                                         std::istreambuf_iterator<char>());
    std::int64_t bytes = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto f = std::make_unique<FreshStation>();
        orvane::Side& side = f->st.zhu;
        orvane::readrecords(f->st, side); // the side as a walk leaves it, with its grids grown
        side.paramcount = side.samplecount = side.markcount = side.quartercount = 0;
        orvane::storeparam(f->st, side, file.data());
        state.ResumeTiming();
        for (std::size_t at = orvane::recordbytes; at + orvane::recordbytes <= file.size();
             at += orvane::recordbytes) {
            const std::uint8_t* record = file.data() + at;
            if (record[0] != type) continue;
            if (type == 0x42) orvane::decodedetection(f->st, side, record);
            if (type == 0x4D) orvane::decodesample(f->st, side, record);
            bytes += orvane::recordbytes;
        }
    }
    state.SetBytesProcessed(bytes);
}
BENCHMARK_CAPTURE(Decode, detection, 0x42)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Decode, sample, 0x4D)->Unit(benchmark::kMillisecond);

// The baseline: every record becomes its 512-character text, pair by pair, and every field is read
// back from the text.
void HexImageWalk(benchmark::State& state) {
    const std::string& path = largerecording();
    std::vector<std::int16_t> grid(static_cast<std::size_t>(6400001) * 13);
    for (auto _ : state) {
        std::ifstream in(path, std::ios::binary);
        std::array<std::uint8_t, 256> r{};
        std::int64_t cells = 0;
        while (in.read(reinterpret_cast<char*>(r.data()), 256)) {
            std::string hex;
            for (std::uint8_t b : r) hex += orvane::hexbyte(b);
            if (hex.substr(0, 2) != "42") continue;
            for (int i = 0; i <= 50; ++i) {
                std::string entry = hex.substr(10 * i + 2, 10);
                if (entry == "0000000000") break;
                long p = std::stol(entry.substr(0, 6), nullptr, 16) + 800;
                long code = std::stol(entry.substr(6, 2), nullptr, 16);
                long value = std::stol(entry.substr(8, 2), nullptr, 16);
                if (code >= 1 && code <= 9 && p <= 6400000) {
                    grid[static_cast<std::size_t>(p) * 13 + code - 1] =
                        static_cast<std::int16_t>(value * 0.0323);
                    ++cells;
                }
            }
        }
        benchmark::DoNotOptimize(cells);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(fs::file_size(path)));
}
BENCHMARK(HexImageWalk)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

BENCHMARK_MAIN();

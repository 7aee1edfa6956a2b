// fuzzseeds DIR: the first inputs of the fuzz targets under DIR/walk, DIR/replay and DIR/actions.
// Recordings of the small synthetic run and built records of every type, each with the samples
// that make a recording load; the acts name the controls of the replay by their place in the table.
#include "app/startup.h"
#include "generator.h"
#include "ktrbuilder.h"
#include "scenario.h"
#include "station/station.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using namespace orvane::testkit;

void save(const fs::path& folder, const std::string& name, const std::string& bytes) {
    fs::create_directories(folder);
    std::ofstream(folder / name, std::ios::binary) << bytes;
}

// A run of samples every 400 steps from FIRST, with hits of every channel between them.
KtrBuilder& run(KtrBuilder& b, std::int32_t first, int samples) {
    for (int n = 0; n < samples; ++n) {
        const std::int32_t step = first + 400 * n;
        b.samples({{.km = 12, .metres = 300 + n, .step = step}});
        std::vector<Hit> hits;
        for (int i = 0; i < 51; ++i)
            hits.push_back(
                {step + 8 * i, static_cast<std::uint8_t>(1 + i % 13), static_cast<std::uint8_t>(40 + i)});
        b.detection(hits);
    }
    return b;
}

std::vector<std::pair<std::string, std::string>> recordings() {
    std::vector<std::pair<std::string, std::string>> out;
    for (std::uint32_t seed : {1u, 2u}) {
        const ktrgen::Recording r = ktrgen::generate(ktrgen::preset("small"), seed);
        out.emplace_back("small" + std::to_string(seed), std::string(r.bytes.begin(), r.bytes.end()));
    }
    KtrBuilder plain;
    plain.job(Job{}).param();
    run(plain, 0, 6);
    out.emplace_back("plain", plain.bytes());

    // Events of every code: stops, marks, turnouts, losses, suppressions.
    KtrBuilder events;
    events.job(Job{}).param();
    run(events, 0, 2);
    events.detection({{900, 0xFF, 0x01},
                      {910, 0xFF, 0x02},
                      {920, 0xFF, 0x0A},
                      {930, 0xFF, 0x0F},
                      {940, 0xFF, 120},
                      {950, 0xFB, 5},
                      {960, 0xFC, 7},
                      {970, 0xFD, 30},
                      {980, 0xFE, 40},
                      {990, 0xF1, 60},
                      {1000, 0x97, 20},
                      {1010, 0x0A, 1},
                      {1020, 0x20, 1}});
    run(events, 1100, 2);
    out.emplace_back("events", events.bytes());

    // A restart, the second job type, GPS halves and the records of an earlier analysis.
    KtrBuilder kept;
    kept.job(Job{}).param();
    run(kept, 0, 3);
    kept.job(0x53, 100).job(0x57, 200);
    kept.sampleentries(
        {KtrBuilder::gpsfirst("0123456789ABCDEF01"), KtrBuilder::gpssecond("23456789ABCDEF012345")});
    run(kept, 300, 3);
    kept.analysis({{2000, 0x01}, {2400, 0x69}}).analyst(2000, "20261122", "101500", "113000");
    kept.analystname({0x5F20, 0x4E09}).zeros(2);
    out.emplace_back("kept", kept.bytes());

    // A parameter record with other kinds, multipliers and alignment words.
    KtrBuilder words;
    Param p;
    p.kinds = {0x12, 0x13, 0x0B, 0x0C, 0x0D, 0x2D, 0x44, 0x45, 0x00};
    p.scales = {0, 255, 7, 1, 2, 3, 4, 5, 6};
    p.words = {0, 20, 0xFFF0, 300, 0x8000, 0x7FFF, 5, 6, 7};
    words.job(Job{}).param(p);
    run(words, 0, 4);
    out.emplace_back("words", words.bytes());
    // The last record cut short.
    const std::string cut = plain.bytes();
    out.emplace_back("cut", cut.substr(0, cut.size() - 100));
    return out;
}

std::string header(int words, std::int32_t index) {
    std::string h;
    for (int k = 0; k < 9; ++k) h += std::string{static_cast<char>(words * k), 0};
    for (int k = 0; k < 4; ++k)
        for (int i = 0; i < 4; ++i) h += static_cast<char>((index * (k + 1)) >> (8 * i));
    return h;
}

// Acts as the actions target reads them: the act, the control's place (16 bits), its values.
std::string act(const orvane::Station& st, int what, const std::string& name,
                const std::string& values = "") {
    const auto& all = st.controls.all();
    std::size_t i = 0;
    while (i < all.size() && all[i].name != name) ++i;
    return std::string{static_cast<char>(what), static_cast<char>(i & 0xFF), static_cast<char>(i >> 8)} +
           values;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "fuzzseeds DIR\n");
        return 2;
    }
    const fs::path dir = argv[1];
    for (const auto& [name, bytes] : recordings()) {
        save(dir / "walk", name, bytes);
        save(dir / "replay", name, header(0, 700) + bytes);
        save(dir / "replay", name + "-shifted", header(40, 5000) + bytes);
    }
    orvane::Station st;
    orvane::assemble(st);
    const std::string tick = std::string{2, 0, 0, 40};
    save(dir / "actions", "play", act(st, 0, "Command8") + tick + act(st, 0, "Command8"));
    save(dir / "actions", "steps",
         act(st, 0, "Command34") + act(st, 0, "Command27") + act(st, 6, "Picture1", "\2"));
    save(dir / "actions", "scroll", act(st, 3, "HScrolljd", std::string("\x40\x00\x00\x00", 4)));
    save(dir / "actions", "seek", act(st, 4, "Text1", std::string("\4\1\2\3\4")) + act(st, 0, "Command2"));
    save(dir / "actions", "mouse",
         act(st, 5, "Picture1", std::string("\0\0\x10\x02\x20\x01", 6)) +
             act(st, 5, "Picture1", std::string("\2\0\x10\x03\x20\x01", 6)));
    std::printf("seeds written to %s\n", dir.c_str());
    return 0;
}

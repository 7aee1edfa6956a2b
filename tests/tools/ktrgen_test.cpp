// Synthetic recordings: their bytes, their repeatability, and that the station finds what they hold.
#include "generator.h"
#include "scenario.h"
#include "stationfixture.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sys/wait.h>

using namespace orvane;

namespace {

class Ktrgen : public testkit::StationTest {
  protected:
    void SetUp() override { st.railheight = {0, 280, 304, 352, 384}; }
    // Walks a recording as the main side.
    Side& load(const ktrgen::Recording& r) {
        return walkrecording(std::string(r.bytes.begin(), r.bytes.end()), st.zhu, "gen.ktr");
    }
    // What the station found against what the generator put there.
    void expectfound(const ktrgen::Recording& r) {
        const ktrgen::Truth& t = r.truth;
        Side& s = load(r);
        EXPECT_TRUE(ui.messages.empty());
        EXPECT_EQ(s.lastposition, t.lastposition);
        EXPECT_EQ(s.samplecount, t.samples);
        EXPECT_EQ(s.gpscount, t.gps);
        EXPECT_EQ(s.paramcount, t.params);
        EXPECT_EQ(s.jobcount, t.jobs);
        EXPECT_EQ(st.restartcount, static_cast<std::int32_t>(t.restarts.size()));
        EXPECT_EQ(s.fecount, static_cast<std::int32_t>(t.bottomloss.size()));
        ASSERT_EQ(s.markcount, static_cast<std::int32_t>(t.marks.size()));
        for (std::size_t i = 0; i < t.marks.size(); ++i) {
            EXPECT_EQ(s.markpos[i], t.marks[i].first) << i;
            EXPECT_EQ(s.marktext[i], t.marks[i].second) << i;
        }
        ASSERT_EQ(s.stopcount, static_cast<std::int32_t>(t.stops.size()));
        for (std::size_t i = 0; i < t.stops.size(); ++i) EXPECT_EQ(s.stoplist[i], t.stops[i]);
        for (std::size_t i = 0; i < t.restarts.size(); ++i)
            EXPECT_EQ(s.samplegrid[t.restarts[i]][9], 23) << "restart " << i;
        for (const auto& [kind, p] : t.defects) {
            bool echo = false;
            for (int d = -120; d <= 120 && !echo; ++d)
                for (int c = 0; c < 9; ++c) echo = echo || s.rawgrid[p + d][c] != 0;
            EXPECT_TRUE(echo) << kind << " at " << p;
        }
    }
};

TEST_F(Ktrgen, EveryRecordIsWholeAndOfAKnownType) {
    const ktrgen::Recording r = ktrgen::generate(ktrgen::preset("small"), 3);
    ASSERT_FALSE(r.bytes.empty());
    EXPECT_EQ(r.bytes.size() % 256, 0u);
    EXPECT_EQ(static_cast<std::int32_t>(r.bytes.size() / 256), r.truth.records);
    for (std::size_t i = 0; i < r.bytes.size(); i += 256) {
        const int type = r.bytes[i];
        EXPECT_TRUE(type == 0x42 || type == 0x43 || type == 0x45 || type == 0x4D || type == 0x53 ||
                    type == 0x57)
            << "record " << i / 256 << " type " << type;
    }
    EXPECT_EQ(r.bytes[0], 0x45);
    EXPECT_EQ(r.bytes[256], 0x43);
}

TEST_F(Ktrgen, SameSeedGivesTheSameBytesAndAnotherSeedOthers) {
    const auto a = ktrgen::generate(ktrgen::preset("small"), 11);
    const auto b = ktrgen::generate(ktrgen::preset("small"), 11);
    const auto c = ktrgen::generate(ktrgen::preset("small"), 12);
    EXPECT_EQ(a.bytes, b.bytes);
    EXPECT_NE(a.bytes, c.bytes);
    EXPECT_EQ(ktrgen::truthjson(a.truth), ktrgen::truthjson(b.truth));
}

TEST_F(Ktrgen, SmallPresetIsFoundAsWritten) {
    const auto r = ktrgen::generate(ktrgen::preset("small"), 1);
    EXPECT_EQ(r.truth.samples, 200);
    EXPECT_EQ(r.truth.restarts.size(), 1u);
    expectfound(r);
}

TEST_F(Ktrgen, DemoPresetHasEveryFeatureAndIsFoundAsWritten) {
    const auto r = ktrgen::generate(ktrgen::preset("demo"), 1);
    const ktrgen::Truth& t = r.truth;
    EXPECT_EQ(t.samples, 2000);
    EXPECT_GT(t.gps, 300);
    EXPECT_EQ(t.jobs, 3); // start, hand-over, restart
    EXPECT_EQ(t.defects.size(), 4u);
    EXPECT_EQ(t.stops.size(), 2u);
    EXPECT_GE(t.overspeed.size(), 2u);
    EXPECT_EQ(t.joints.size(), 78u);
    std::set<std::string> texts;
    for (const auto& m : t.marks) texts.insert(m.second);
    for (const char* text :
         {"0", "1", "2", "3", "4", "12345", "2051", "2173", "3157", "105", "107", "101", "103"})
        EXPECT_TRUE(texts.count(text)) << text;
    expectfound(r);
    // One suppression stretch among the GPS fixes.
    bool suppressed = false;
    for (std::int32_t k = 0; k < st.zhu.gpscount; ++k) suppressed = suppressed || st.zhu.suppressionon[k];
    EXPECT_TRUE(suppressed);
}

TEST_F(Ktrgen, LargePresetEndsBelowThePositionLimitAndLoads) {
    const auto r = ktrgen::generate(ktrgen::preset("large"), 1);
    EXPECT_GT(r.truth.lastposition, 6200000);
    EXPECT_LT(r.truth.lastposition, 6395000);
    expectfound(r);
}

TEST_F(Ktrgen, ScenarioFileChangesThePreset) {
    ktrgen::Scenario s = ktrgen::preset("demo");
    ktrgen::readscenario(s, ORVANE_SOURCE "/data/ktrgen/example.scn");
    EXPECT_EQ(s.lengthkm, 0.5);
    EXPECT_FALSE(s.countup);
    EXPECT_EQ(s.jointspacing, 12.5);
    EXPECT_EQ(s.rails.size(), 2u);
    EXPECT_EQ(s.defects.size(), 4u);
    EXPECT_EQ(s.instrument, "K0815");
    ktrgen::validate(s);
    const auto r = ktrgen::generate(s, 5);
    EXPECT_EQ(r.truth.restarts.size(), 2u);
    expectfound(r);
    EXPECT_EQ(st.zhu.jobrec[0].substr(126, 2), "44");         // the count direction byte: "D", counting down
    EXPECT_EQ(st.zhu.sampleclock[0].substr(6, 7), "0087600"); // kilometre 87.600, counting down
}

struct ProgramRun {
    int status;
    std::string err;
};

class KtrgenProgram : public testkit::StationTest {
  protected:
    ProgramRun ktrgen(const std::string& arguments) {
        const std::string command = ORVANE_KTRGEN " " + arguments + " 2>&1";
        ProgramRun r{-1, {}};
        FILE* pipe = popen(command.c_str(), "r");
        std::array<char, 4096> buf{};
        std::size_t n;
        while ((n = fread(buf.data(), 1, buf.size(), pipe)) > 0) r.err.append(buf.data(), n);
        const int status = pclose(pipe);
        r.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return r;
    }
};

TEST_F(KtrgenProgram, WritesTheRecordingAndItsTruth) {
    const ProgramRun r =
        ktrgen("--preset small --seed 4 --truth " + temp.file("t.json") + " -o " + temp.file("s.ktr"));
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_GT(std::filesystem::file_size(temp.file("s.ktr")), 0u);
    std::ifstream truth(temp.file("t.json"));
    std::string json((std::istreambuf_iterator<char>(truth)), std::istreambuf_iterator<char>());
    EXPECT_NE(json.find("\"preset\":\"small\",\"seed\":4"), std::string::npos) << json;
}

TEST_F(KtrgenProgram, BadOptionsGiveAClearErrorAndNoFile) {
    const std::pair<const char*, const char*> bad[] = {
        {"--length-km 30", "passes the position limit 6395000"},
        {"--speed -1:3", "speed must be MIN:MAX"},
        {"--preset huge", "unknown preset: huge"},
        {"--joint 10", "joint must be 12.5 or 25"},
        {"--rail 0:55", "rail weight must be 43, 50, 60 or 75"},
        {"--defect crack@100", "defect kind must be head, bolthole or web"},
        {"--length-km x", "not a number"},
        {"--colour red", "unknown option: colour"}};
    for (const auto& [arguments, reason] : bad) {
        const ProgramRun r = ktrgen(std::string(arguments) + " -o " + temp.file("bad.ktr"));
        EXPECT_EQ(r.status, 2) << arguments;
        EXPECT_NE(r.err.find(reason), std::string::npos) << arguments << ": " << r.err;
        EXPECT_FALSE(std::filesystem::exists(temp.file("bad.ktr"))) << arguments;
    }
}

} // namespace

// The analyst's session: points, the list, the save into a copy of the recording and its log, the
// name rules, crash safety; and saving a clip that reads back as a recording of its own.
#include "app/startup.h"
#include "generator.h"
#include "processing/clip.h"
#include "processing/safefile.h"
#include "processing/session.h"
#include "recordingfixture.h"
#include "scenario.h"
#include "station/controls.h"
#include "station/recordingcanvas.h"
#include "station/station.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace orvane;
namespace fs = std::filesystem;

namespace {

using testkit::contents;

class Session : public testkit::RecordingTest {
  protected:
    void SetUp() override {
        at(10, 0, 0);
        RecordingTest::SetUp();
        ui.messages.clear();
    }
    void at(int hour, int minute, int second) {
        clock.time.tm_year = 126, clock.time.tm_mon = 10, clock.time.tm_mday = 23;
        clock.time.tm_hour = hour, clock.time.tm_min = minute, clock.time.tm_sec = second;
    }
    // A new window on PATH: the station made anew, as a new start of the program makes it.
    void open(const std::string& path) {
        st.~Station();
        new (&st) Station();
        st.ui = &ui;
        st.clock = &clock;
        st.countinstances = [] { return 1; };
        entry(st, home);
        st.picture1 = &picture1;
        windowload(st, path);
        windowactivate(st);
        ui.messages.clear();
    }
    // A point of entry I at a view that has a sample in the left quarter.
    void point(int i) {
        st.zhu.viewindex = 20000;
        press(st, "f1to8(" + std::to_string(i) + ")");
    }
    std::vector<std::string> analysisfiles() const {
        std::vector<std::string> files;
        for (const auto& e : fs::directory_iterator(temp.path()))
            if (e.path().filename().string().size() >= 24) files.push_back(e.path().string());
        return files;
    }
};

TEST_F(Session, UnderAMinuteWithoutPointsLeavesNoTrace) {
    st.form.Tmc = "张伟";
    at(10, 0, 50);
    EXPECT_TRUE(windowunload(st));
    EXPECT_TRUE(st.written.empty());
    EXPECT_TRUE(analysisfiles().empty());
    EXPECT_FALSE(fs::exists(fs::path(home) / "record.txt"));
}

TEST_F(Session, UnderAMinuteWithPointsCopiesLogsAndWritesPointsButNoSessionRecord) {
    ui.answers = {"张伟"};
    point(1);
    ASSERT_EQ(st.newpoints, 1);
    EXPECT_EQ(ui.questions, std::vector<std::string>{analystprompt});
    EXPECT_EQ(st.form.Tmc, "张伟");
    EXPECT_EQ(st.analysislist[0].substr(0, 2), "02");
    EXPECT_EQ(st.analysislist[0].substr(2), "20261123100000");
    at(10, 0, 40);
    EXPECT_TRUE(windowunload(st));
    const std::string target = temp.file("20261122_083张伟20261123-100040.ktr");
    ASSERT_EQ(st.written.size(), 2u);
    EXPECT_EQ(st.written[0], target);
    const std::string copy = contents(target);
    ASSERT_EQ(copy.size(), bytes.size() + 256);
    EXPECT_EQ(copy.substr(0, bytes.size()), bytes);
    EXPECT_EQ(static_cast<unsigned char>(copy[bytes.size()]), 0x44);
    const std::string log = contents((fs::path(home) / "record.txt").string());
    EXPECT_EQ(log.substr(0, log.find("  ") + 2 + original.size()), "张伟  " + original);
    EXPECT_NE(log.find("  20261123  10:00:00  10:00:40  0时0分  "), std::string::npos) << log;
    EXPECT_EQ(log.substr(log.size() - 4), "km\r\n");
    // Its normal state is read-only.
    EXPECT_EQ(fs::status(fs::path(home) / "record.txt").permissions() & fs::perms::owner_write,
              fs::perms::none);
    EXPECT_EQ(contents(original), bytes); // the original untouched
}

TEST_F(Session, SixPointsBehindFifteenOldOnesGiveRecordsOfFiveAndOne) {
    st.form.Tmc = "张伟";
    st.analysiscount = 15;
    for (int i = 0; i < 15; ++i) st.analysislist[i] = "0120261101101010", st.analysispos[i] = 1000 + i;
    for (int i = 0; i < 6; ++i) point(i);
    ASSERT_EQ(st.newpoints, 6);
    at(10, 0, 30);
    ASSERT_TRUE(windowunload(st));
    const std::string copy = contents(st.written[0]);
    ASSERT_EQ(copy.size(), bytes.size() + 2 * 256);
    auto entries = [&](std::size_t record) {
        int n = 0;
        for (int i = 0; i < 20; ++i) {
            bool zero = true;
            for (int k = 0; k < 11; ++k)
                zero = zero && copy[bytes.size() + record * 256 + 1 + 11 * i + k] == 0;
            if (zero) break;
            ++n;
        }
        return n;
    };
    EXPECT_EQ(entries(0), 5);
    EXPECT_EQ(entries(1), 1);
}

TEST_F(Session, NamesReadBackFromTheFirstAnalysis) {
    for (const std::string name : std::vector<std::string>{"Zhang Wei", "张伟"}) {
        open(original);
        st.form.Tmc = name;
        point(0);
        at(10, 5, 0);
        ASSERT_TRUE(windowunload(st));
        const std::string target = st.written[0];
        at(10, 0, 0);
        open(target);
        EXPECT_EQ(st.form.Tmc, name);
        EXPECT_EQ(st.analystname, "分析员：" + name);
        EXPECT_EQ(st.analystcount, 1);
        EXPECT_EQ(st.analysiscount, 1);
        EXPECT_EQ(st.form.grid1bz.size(), 2u); // the earlier point in the list
        fs::remove(target);
    }
}

TEST_F(Session, ANameWithALowByteOfEightyOrBelowDoesNotReadBackTheSame) {
    st.form.Tmc = "丂"; // GBK 0x8140: the writer's high byte comes out one too small
    at(10, 5, 0);
    ASSERT_TRUE(windowunload(st));
    const std::string copy = contents(st.written[0]);
    const std::size_t name = bytes.size() + 256;
    EXPECT_EQ(static_cast<unsigned char>(copy[name]), 0x59);
    EXPECT_EQ(static_cast<unsigned char>(copy[name + 1]), 0x80);
    EXPECT_EQ(static_cast<unsigned char>(copy[name + 2]), 0x40);
}

TEST_F(Session, TheFirstTwoCharactersDecideTheAnalyst) {
    st.form.Tmc = "张伟";
    point(0);
    at(10, 2, 0);
    ASSERT_TRUE(windowunload(st));
    const std::string analysisfile = st.written[0];
    const std::size_t size = fs::file_size(analysisfile);
    open(analysisfile);
    st.form.Tmc = "张伟明"; // the same analyst by the first two characters: the same file
    point(1);
    at(10, 2, 30);
    ASSERT_TRUE(windowunload(st));
    EXPECT_EQ(st.written[0], analysisfile);
    EXPECT_EQ(fs::file_size(analysisfile), size + 256);
    open(analysisfile);
    EXPECT_EQ(st.analysiscount, 2);
    // Another analyst starts from the original.
    st.form.Tmc = "李明";
    at(10, 3, 0);
    ASSERT_TRUE(windowunload(st));
    EXPECT_EQ(st.written[0], temp.file("20261122_083李明20261123-100300.ktr"));
    EXPECT_EQ(contents(st.written[0]).substr(0, bytes.size()), bytes);
    EXPECT_EQ(fs::file_size(st.written[0]), bytes.size() + 256); // 0x58; the name only at an original's first
}

TEST_F(Session, AChangedAnalystWithoutTheOriginalLosesTheSessionWithTheMessage) {
    st.form.Tmc = "张伟";
    at(10, 2, 0);
    ASSERT_TRUE(windowunload(st));
    const std::string analysisfile = st.written[0];
    fs::remove(original);
    open(analysisfile);
    st.form.Tmc = "李明";
    at(10, 5, 0);
    EXPECT_TRUE(windowunload(st));
    EXPECT_EQ(ui.messages, std::vector<std::string>{temp.file("20261122_083.ktr") + changedanalyst});
    EXPECT_TRUE(st.written.empty());
}

TEST_F(Session, NamesAFileCannotCarryAreRefusedWhenTyped) {
    for (const std::string& bad : std::vector<std::string>{"a/b", "..", std::string(60, 'x'), "a\tb"}) {
        ui.messages.clear();
        setcontrol(st, "Tmc", bad);
        EXPECT_EQ(ui.messages.size(), 1u) << bad;
        EXPECT_TRUE(st.form.Tmc.empty()) << bad;
    }
    setcontrol(st, "Tmc", "张伟");
    EXPECT_EQ(st.form.Tmc, "张伟");
}

// A full disk, made by a limit on the size of the files this process writes.
TEST_F(Session, AFullTargetAsksForAnotherPlaceAndLosesNothing) {
    st.form.Tmc = "张伟";
    point(0);
    at(10, 5, 0);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const auto previous = std::signal(SIGXFSZ, SIG_IGN);
    rlimit full = before;
    full.rlim_cur = bytes.size() / 2;
    ::setrlimit(RLIMIT_FSIZE, &full);
    ui.answers = {"", "no"}; // the dialog cancelled, the session kept
    const bool closed = windowunload(st);
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, previous);
    EXPECT_FALSE(closed);
    EXPECT_FALSE(st.process.ended);
    EXPECT_EQ(st.newpoints, 1);
    ASSERT_FALSE(ui.messages.empty());
    EXPECT_NE(ui.messages[0].find(temp.file("20261122_083张伟20261123-100500.ktr")), std::string::npos)
        << ui.messages[0];
    EXPECT_TRUE(analysisfiles().empty()); // no partial file left
    // With room again the next close saves the kept session where it belongs.
    EXPECT_TRUE(windowunload(st));
    ASSERT_FALSE(st.written.empty());
    EXPECT_EQ(fs::file_size(st.written[0]), bytes.size() + 3 * 256); // 0x58, 0x59, 0x44
    EXPECT_EQ(contents(original), bytes);
}

TEST_F(Session, ATargetInTheWayIsNamedAndTheSessionGoesWhereTheUserChooses) {
    st.form.Tmc = "张伟";
    point(0);
    at(10, 5, 0);
    fs::create_directory(temp.file("20261122_083张伟20261123-100500.ktr")); // a folder in the way
    const std::string elsewhere = temp.file("saved.ktr");
    ui.answers = {elsewhere};
    EXPECT_TRUE(windowunload(st));
    EXPECT_NE(ui.messages[0].find("20261122_083张伟20261123-100500.ktr"), std::string::npos);
    EXPECT_EQ(st.written[0], elsewhere);
    EXPECT_EQ(fs::file_size(elsewhere), bytes.size() + 3 * 256);
}

TEST_F(Session, ADroppedSessionEndsTheWindow) {
    st.form.Tmc = "张伟";
    point(0);
    at(10, 5, 0);
    fs::create_directory(temp.file("20261122_083张伟20261123-100500.ktr")); // a folder in the way
    ui.answers = {"", "yes"};
    EXPECT_TRUE(windowunload(st));
    EXPECT_TRUE(st.process.ended);
    EXPECT_EQ(ui.questions.back(), "本次分析记录尚未保存，确实要放弃吗？");
}

TEST_F(Session, RowsOfTheListFollowTheChoiceAndAClickGoesThere) {
    st.form.Tmc = "张伟";
    point(0);
    point(1);
    point(1);
    ASSERT_EQ(st.form.grid1bz.size(), 4u);
    EXPECT_EQ(st.form.grid1bz[1][1], "阅");
    EXPECT_EQ(st.form.grid1bz[2][0], "2");
    EXPECT_EQ(st.form.grid1bz[1][3], "20261123-10:00:00");
    EXPECT_NE(st.form.grid1bz[1][2].find("km"), std::string::npos);
    select(st, "Combo3", "怀疑");
    ASSERT_EQ(st.form.grid1bz.size(), 3u);
    EXPECT_EQ(st.form.grid1bz[2][0], "2"); // numbered as listed
    clickrow(st, "grid1bz", 1);
    // The view stands at the last view index whose position is not past the point less 900.
    const std::int32_t target = st.pointlistpos[0] - 900;
    EXPECT_LE(st.zhu.mapat(st.zhu.viewindex), target);
    EXPECT_GT(st.zhu.mapat(st.zhu.viewindex + 1), target);
    // A point that lies on no sample leaves its place empty.
    st.analysispos[0] = 5;
    select(st, "Combo3", "全部");
    EXPECT_EQ(st.form.grid1bz[1][2], "");
}

TEST_F(Session, APointDuringAReplayOnlyGivesTheMessage) {
    st.form.Tmc = "张伟";
    st.T1 = true;
    point(0);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"请暂停播放B显和A显！"});
    EXPECT_EQ(st.newpoints, 0);
}

// A kill at any moment of a save leaves the target as it was or complete, never partial; what the
// killed save left behind is swept at the next start.
TEST(SafeFile, AKillDuringASaveLeavesTheTargetAsItWasOrComplete) {
    testkit::TempFolder temp;
    const std::string base = temp.file("base.ktr"), target = temp.file("target.ktr");
    std::ofstream(base, std::ios::binary) << std::string(16 << 20, 'b');
    std::ofstream(target, std::ios::binary) << "old";
    const std::string tail(256, 't');
    for (int moment = 0; moment < 20; ++moment) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            commitfile(target, base, tail);
            ::_exit(0);
        }
        ::usleep(static_cast<useconds_t>(moment * 1500));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        const auto size = fs::file_size(target);
        EXPECT_TRUE(size == 3 || size == (16u << 20) + 256) << moment << ": " << size;
        if (size != 3) std::ofstream(target, std::ios::binary) << "old";
    }
    sweeppartials(temp.path().string());
    for (const auto& e : fs::directory_iterator(temp.path()))
        EXPECT_EQ(e.path().string().find(partialsuffix), std::string::npos) << e.path();
}

TEST(SafeFile, ATargetThatIsAFolderIsRefusedWithTheReason) {
    testkit::TempFolder temp;
    fs::create_directory(temp.file("clip.ktr"));
    const auto failed = commitfile(temp.file("clip.ktr"), "", "x");
    ASSERT_TRUE(failed);
    EXPECT_NE(failed->find("clip.ktr"), std::string::npos);
}

} // namespace

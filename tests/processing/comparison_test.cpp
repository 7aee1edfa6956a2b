// Opening and closing a comparison: the refusals, the dialog and its cancel, the walk of the second
// recording into the comparison side, the two halves, the store shared with the filter, bad files.
#include "app/startup.h"
#include "generator.h"
#include "ktrbuilder.h"
#include "processing/comparison.h"
#include "processing/filter.h"
#include "replay/transport.h"
#include "scenario.h"
#include "station/controls.h"
#include "station/recordingcanvas.h"
#include "station/station.h"
#include "stationfixture.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

using namespace orvane;

namespace {

class ComparisonOpen : public testkit::StationTest {
  protected:
    RecordingCanvas picture1, picture6;
    std::string mainpath, otherpath;

    // A synthetic recording of LENGTHKM with SEED in the test's folder.
    std::string recording(const std::string& name, double lengthkm, std::uint32_t seed) {
        ktrgen::Scenario scenario = ktrgen::preset("small");
        scenario.lengthkm = lengthkm;
        const ktrgen::Recording rec = ktrgen::generate(scenario, seed);
        return writefile(name, std::string(rec.bytes.begin(), rec.bytes.end()));
    }
    void open(const std::string& language = "china") {
        start(language);
        st.picture1 = &picture1;
        st.picture6 = &picture6;
        mainpath = recording("main.ktr", 0.3, 2);
        otherpath = recording("other.ktr", 0.2, 5);
        windowload(st, mainpath);
        windowactivate(st);
        ASSERT_GT(st.zhu.samplecount, 0);
        ui.messages.clear();
    }
    void SetUp() override { open(); }
    // A comparison of PATH opened through the dialog.
    void compare(const std::string& path) {
        ui.answers = {path};
        press(st, "Command17");
    }
    // The main side stands as it stood, and replays.
    void expectmainuntouched(std::int32_t lastposition, std::int32_t viewindex) {
        EXPECT_EQ(st.zhu.lastposition, lastposition);
        EXPECT_EQ(st.zhu.viewindex, viewindex);
        EXPECT_EQ(st.form.captions["Command17"], "打开对比");
        EXPECT_FALSE(st.form.comparisonvisible);
        press(st, "Command8");
        EXPECT_TRUE(st.T1);
        press(st, "Command8");
    }
};

TEST_F(ComparisonOpen, PressDuringAReplayOnlyShowsTheMessage) {
    press(st, "Command8");
    ASSERT_TRUE(st.T1);
    compare(otherpath);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"请暂停播放B显和A显！"});
    EXPECT_TRUE(st.T1);
    EXPECT_EQ(st.form.captions["Command17"], "打开对比");
    EXPECT_EQ(ui.answers.size(), 1u); // no dialog
    EXPECT_EQ(st.layoutchanged, 0);
}

TEST_F(ComparisonOpen, WithTheFilterActiveItRefusesInChineseWords) {
    press(st, "Command2");
    ASSERT_TRUE(reach(st, "Command14").isenabled(st));
    compare(otherpath);
    EXPECT_EQ(ui.messages,
              std::vector<std::string>{"过滤处理模式中不支持对比播放，如需对比播放，请先取消过滤！"});
    EXPECT_EQ(st.form.captions["Command17"], "打开对比");
}

TEST_F(ComparisonOpen, CancellingTheDialogLeavesTheCaptionTheModeAndThePictures) {
    st.displaymode = "fenjie";
    ui.answers.clear();
    press(st, "Command17");
    EXPECT_EQ(ui.messages, std::vector<std::string>{});
    EXPECT_EQ(st.form.captions["Command17"], "打开对比");
    EXPECT_EQ(st.displaymode, "fenjie");
    EXPECT_FALSE(st.form.comparisonvisible);
    EXPECT_FALSE(st.form.lts1visible);
    EXPECT_FALSE(st.form.pb1visible);
    EXPECT_EQ(st.layoutchanged, 1);
    EXPECT_TRUE(reach(st, "Picture1").isvisible(st));
    EXPECT_FALSE(reach(st, "Picture6").isvisible(st));
}

TEST_F(ComparisonOpen, OpeningWalksTheSecondRecordingBelowTheFirst) {
    st.displaymode = "fenjie";
    st.form.accenabled = true;
    const std::string kilometre = kilometrenote(st.zhu);
    compare(otherpath);
    EXPECT_EQ(ui.messages, std::vector<std::string>{otherpath});
    EXPECT_EQ(st.form.captions["Command17"], "关闭对比");
    EXPECT_TRUE(st.form.comparisonvisible);
    EXPECT_EQ(st.displaymode, "zuhe");
    EXPECT_EQ(st.savedmode, "fenjie");
    EXPECT_EQ(st.comparisonstore, "yes");
    EXPECT_EQ(st.cong.gridlast, 6000000);
    EXPECT_EQ(st.cong.filepath, otherpath);
    EXPECT_GT(st.cong.samplecount, 0);
    EXPECT_EQ(st.Text2, kilometre);
    EXPECT_FALSE(st.form.accenabled);
    EXPECT_EQ(st.form.Lzygkdb, "机号：51207日期：26.11.22");
    for (const char* shown : {"Picture6", "Command18", "Command20", "Option12", "Option13", "Label21",
                              "Text2", "HScrolljddb", "Command37", "Command38", "Lzygkdb"})
        EXPECT_TRUE(reach(st, shown).isvisible(st)) << shown;
    for (const char* hidden : {"Option3", "Option4", "Option5"})
        EXPECT_FALSE(reach(st, hidden).isvisible(st)) << hidden;
    EXPECT_FALSE(st.form.lts1visible);
    EXPECT_FALSE(st.form.pb1visible);
    EXPECT_FALSE(picture6.ops.empty()); // the comparison drawn at its kilometre
}

// A recording without job records keeps it there: no job of its own comes over it.
TEST_F(ComparisonOpen, TheStartTimeOfTheComparisonStandsInItsJobPanel) {
    testkit::KtrBuilder b;
    b.param().samples({testkit::Sample{.hour = 7, .minute = 5, .second = 9, .step = 0},
                       testkit::Sample{.hour = 7, .minute = 5, .second = 12, .step = 400}});
    b.detection({{100, 1, 50}});
    compare(writefile("nojob.ktr", b.bytes()));
    ASSERT_TRUE(st.form.comparisonvisible);
    EXPECT_EQ(st.cong.Grid2[1][3], "07:05:09");
}

TEST_F(ComparisonOpen, ClosingGivesTheWindowBackToTheMainRecording) {
    st.displaymode = "zhjz";
    compare(otherpath);
    st.playside = "cong";
    press(st, "Command17");
    EXPECT_EQ(st.form.captions["Command17"], "打开对比");
    EXPECT_EQ(st.displaymode, "zhjz");
    EXPECT_FALSE(st.form.comparisonvisible);
    EXPECT_EQ(st.playside, "zhu");
    EXPECT_FALSE(reach(st, "Command20").isenabled(st));
    EXPECT_FALSE(reach(st, "Command18").isvisible(st));
    EXPECT_FALSE(st.form.accenabled); // nothing enables it again
    EXPECT_EQ(st.comparisonstore, "yes");
}

TEST_F(ComparisonOpen, ProcessingAfterAClosedComparisonOverwritesItsStore) {
    compare(otherpath);
    press(st, "Command17");
    std::vector<std::int16_t> original;
    for (std::int64_t p = 0; p <= st.zhu.lastposition; ++p)
        for (int c = 0; c < 9; ++c) original.push_back(st.zhu.samplegrid[p][c]);
    press(st, "Command2");
    EXPECT_EQ(st.cong.gridlast, 6000000); // the comparison made the store
    std::vector<std::int16_t> backup;
    for (std::int64_t p = 0; p <= st.zhu.lastposition; ++p)
        for (int c = 0; c < 9; ++c) backup.push_back(st.cong.samplegrid[p][c]);
    EXPECT_EQ(backup, original);
    EXPECT_GT(st.eventcount, 0);
}

TEST_F(ComparisonOpen, ASecondComparisonClearsOnlyThreeColumns) {
    const std::string longer = recording("longer.ktr", 0.3, 7);
    compare(longer);
    press(st, "Command17");
    const std::int32_t longend = st.cong.lastposition;
    compare(otherpath);
    const std::int32_t shortend = st.cong.lastposition;
    ASSERT_LT(shortend + 1000, longend);
    int stale = 0;
    for (std::int64_t p = shortend + 500; p <= std::min(longend, st.zhu.lastposition); ++p) {
        for (int c = 0; c < 3; ++c) ASSERT_EQ(st.cong.samplegrid[p][c], 0) << p << " " << c;
        // Cells of the first comparison beyond what the shorter second one writes.
        for (int c = 3; c < 9; ++c) stale += st.cong.samplegrid[p][c] != 0;
    }
    EXPECT_GT(stale, 0); // the first comparison's cells stay in the other columns
}

TEST_F(ComparisonOpen, AScratchRecordingOpensWithoutTheDialogAndIsDeletedOnClosing) {
    const std::string scratch = recording("scratch.ktr", 0.2, 9);
    st.scratchpath = scratch;
    press(st, "Command17");
    EXPECT_TRUE(ui.messages.empty()); // no dialog, no name shown
    EXPECT_EQ(st.cong.filepath, scratch);
    EXPECT_TRUE(st.form.comparisonvisible);
    press(st, "Command17");
    EXPECT_FALSE(std::filesystem::exists(scratch));
    EXPECT_EQ(st.scratchpath, "deng");
}

TEST_F(ComparisonOpen, TheOpenRecordingItselfComparesWithItself) {
    compare(mainpath);
    EXPECT_TRUE(st.form.comparisonvisible);
    EXPECT_EQ(st.cong.lastposition, st.zhu.lastposition);
    EXPECT_EQ(st.cong.samplecount, st.zhu.samplecount);
}

TEST_F(ComparisonOpen, BadFilesGiveAMessageAndLeaveTheMainSideReplaying) {
    const std::int32_t last = st.zhu.lastposition, view = st.zhu.viewindex;
    std::filesystem::create_directory(temp.file("folder.ktr"));
    std::string random(256 * 40 + 17, '\0');
    std::uint32_t x = 12345;
    for (char& c : random) c = static_cast<char>((x = x * 1103515245 + 12345) >> 24);
    const std::string randomfile = writefile("random.ktr", random);
    const std::string emptyfile = writefile("empty.ktr", "");
    const std::pair<std::string, std::string> cases[] = {
        {temp.file("missing.ktr"), temp.file("missing.ktr") + "有误"},
        {emptyfile, "对比文件没有数据：" + emptyfile},
        {temp.file("folder.ktr"), "无法读取文件：" + temp.file("folder.ktr")},
    };
    for (const auto& [path, said] : cases) {
        ui.messages.clear();
        compare(path);
        EXPECT_EQ(ui.messages, (std::vector<std::string>{path, said})) << path;
        expectmainuntouched(last, view);
    }
    compare(randomfile); // whatever its bytes say, the station stands
    if (st.form.comparisonvisible) press(st, "Command17");
    expectmainuntouched(last, view);
}

TEST_F(ComparisonOpen, ATruncatedRecordingOpensAsFarAsItGoes) {
    std::ifstream in(otherpath, std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(in)), {});
    const std::string cut = writefile("cut.ktr", bytes.substr(0, bytes.size() / 2 + 100));
    compare(cut);
    EXPECT_TRUE(st.form.comparisonvisible);
    EXPECT_GT(st.cong.samplecount, 0);
}

TEST_F(ComparisonOpen, PositionsBeyondTheStoreOfTheFilterCloseAgainWithTheBound) {
    const std::int32_t last = st.zhu.lastposition, view = st.zhu.viewindex;
    press(st, "Command2");
    press(st, "Command14"); // the filter made the store for 5,000,000 rows
    testkit::KtrBuilder b;
    b.param().job(testkit::Job{}).samples({testkit::Sample{.step = 0}});
    b.detection({{5000500, 1, 50}});
    const std::string far = writefile("far.ktr", b.bytes());
    ui.messages.clear();
    compare(far);
    ASSERT_EQ(ui.messages.size(), 2u);
    EXPECT_NE(ui.messages[1].find(far), std::string::npos) << ui.messages[1];
    EXPECT_NE(ui.messages[1].find("5000000"), std::string::npos) << ui.messages[1];
    expectmainuntouched(last, view);
}

class ComparisonEnglish : public ComparisonOpen {
  protected:
    void SetUp() override { open("english"); }
};

TEST_F(ComparisonEnglish, CaptionsAndHeadingInEnglishAndThePauseMessage) {
    st.T1 = true; // a replay runs
    compare(otherpath);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"Please pause at first!"});
    st.T1 = false;
    ui.messages.clear();
    compare(otherpath);
    EXPECT_EQ(st.form.captions["Command17"], "Single");
    EXPECT_EQ(st.form.Lzygkdb, " M/C:51207Date:26.11.22");
    EXPECT_EQ(st.form.lts1, "importing...");
    press(st, "Command2"); // the filter refuses in Chinese also here
    EXPECT_EQ(ui.messages.back(), "在打开对比模式下，不支持处理！");
    press(st, "Command17");
    EXPECT_EQ(st.form.captions["Command17"], "Double");
}

TEST_F(ComparisonEnglish, WithTheFilterActiveItRefusesInChineseWords) {
    press(st, "Command2");
    compare(otherpath);
    EXPECT_EQ(ui.messages,
              std::vector<std::string>{"过滤处理模式中不支持对比播放，如需对比播放，请先取消过滤！"});
}

} // namespace

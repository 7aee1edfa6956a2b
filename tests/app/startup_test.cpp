#include "app/startup.h"
#include "generator.h"
#include "stationfixture.h"
#include "stores/settingsstore.h"

#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>

using namespace orvane;

class Startup : public testkit::StationTest {
  protected:
    void SetUp() override { start(); }
};

TEST_F(Startup, NoCommandLineIsRefusedAndEndsTheProcess) {
    windowload(st, "");
    EXPECT_EQ(ui.messages, (std::vector<std::string>{"有误", "有误"}));
    EXPECT_TRUE(st.process.ended);
    EXPECT_NE(st.process.exitstatus, 0);
}

TEST_F(Startup, QuotedPathWithSpacesWorks) {
    std::filesystem::create_directories(temp.path() / "rail data");
    std::string path = writefile("rail data/run one.ktr", std::string(256, '\0'));
    windowload(st, "\"" + path + "\"");
    EXPECT_EQ(st.zhu.filepath, path);
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_FALSE(st.process.ended);
}

TEST_F(Startup, EveryQuoteOfTheArgumentGoes) {
    EXPECT_EQ(stripquotes("\"a\"b\" c\""), "ab c");
}

TEST_F(Startup, LowerCaseExtensionPasses) {
    std::string path = writefile("run.ktr", "");
    windowload(st, path);
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_FALSE(st.process.ended);
    EXPECT_TRUE(extensionok("X.KTR"));
    EXPECT_TRUE(extensionok("x.Ktr  "));
}

TEST_F(Startup, WrongExtensionEndsTheProcessAfterTheMessage) {
    std::string path = writefile("run.txt", "");
    windowload(st, path);
    EXPECT_EQ(ui.messages, std::vector<std::string>{path + "有误"});
    EXPECT_TRUE(st.process.ended);
    EXPECT_NE(st.process.exitstatus, 0);
}

TEST_F(Startup, MissingFileWithTheRightExtensionGoesOnAfterTheMessage) {
    std::string path = temp.file("absent.ktr");
    windowload(st, path);
    EXPECT_EQ(ui.messages, std::vector<std::string>{path + "有误"});
    EXPECT_FALSE(st.process.ended);
}

TEST_F(Startup, OnlyTheTwoCharactersBeforeTheLastCount) {
    EXPECT_TRUE(extensionok("数据.ktx")); // "kt" then any last character
    EXPECT_FALSE(extensionok("数据.tr"));
    EXPECT_FALSE(extensionok("kt"));
    EXPECT_TRUE(extensionok("路线KT中"));
}

TEST_F(Startup, SecondInstanceAnsweredNoEndsWithoutLoading) {
    std::string path = writefile("run.ktr", std::string(512, '\0'));
    st.countinstances = [] { return 2; };
    ui.answers = {"no"};
    windowload(st, path);
    EXPECT_EQ(ui.questions, std::vector<std::string>{"播放程序已经处于运行中，确实要打开吗？"});
    EXPECT_EQ(st.instancecount, 999);
    EXPECT_TRUE(st.zhu.filepath.empty()); // the rest of the load was skipped
    windowactivate(st);
    EXPECT_TRUE(st.process.ended);
    EXPECT_FALSE(st.activated);
    EXPECT_TRUE(ui.messages.empty()); // no walk, so no "没有数据！"
}

TEST_F(Startup, SecondInstanceAnsweredYesOpensAFullInstance) {
    std::string path = writefile("run.ktr", std::string(512, '\0'));
    st.countinstances = [] { return 2; };
    ui.answers = {"yes"};
    windowload(st, path);
    EXPECT_EQ(st.zhu.filepath, path);
    windowactivate(st);
    EXPECT_FALSE(st.process.ended);
    EXPECT_TRUE(st.activated);
}

TEST_F(Startup, ARecordingWithoutSamplesShowsNoData) {
    std::string path = writefile("run.ktr", "");
    windowload(st, path);
    windowactivate(st);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"没有数据！"});
    EXPECT_FALSE(st.form.pb1visible);
    EXPECT_FALSE(st.form.lts1visible);
    EXPECT_FALSE(st.form.mainviewenabled);
    EXPECT_FALSE(st.process.ended);
}

TEST_F(Startup, WindowLoadSetsItsStrings) {
    windowload(st, writefile("run.ktr", ""));
    EXPECT_EQ(st.scratchpath, "deng");
    EXPECT_EQ(st.railoverride, "75");
    EXPECT_EQ(st.markstate, 1);
    EXPECT_EQ(st.playside, "zhu");
    EXPECT_EQ(st.sessionstart, "090507");
    EXPECT_EQ(st.form.Label20hint,
              "如需查找里程相同点，请先点左键找到第一里程点，再点右键依次向后循环查找相同里程点");
    EXPECT_EQ(st.form.captions["Command8"], "连续播放");
    EXPECT_EQ(st.form.captions["Command17"], "打开对比");
    EXPECT_EQ(st.baseoffset, 800);
    EXPECT_DOUBLE_EQ(st.cos18, std::cos(18 * 6.28 / 360));
    EXPECT_EQ(st.form.filtercombo.front(), "全部");
    EXPECT_EQ(st.form.lines.size(), 4u);
    EXPECT_EQ(st.form.lines.front(), "京哈线");
}

TEST_F(Startup, EnglishCaptionsReplaceTheChineseOnes) {
    Station english;
    english.ui = &ui;
    english.clock = &clock;
    english.countinstances = [] { return 1; };
    entry(english, home, "english");
    windowload(english, writefile("run.ktr", ""));
    EXPECT_EQ(english.form.captions["Command8"], "Pause");
    EXPECT_EQ(english.form.captions["Command17"], "Double");
    EXPECT_EQ(english.form.captions["Option5"], "g-center");
    EXPECT_EQ(english.form.lts1, "importing...");
    windowactivate(english);
    EXPECT_EQ(english.form.caption, "KRM-5T 2017-03-31-V1.1");
}

TEST_F(Startup, CaptionFollowsTheBuildVariant) {
    EXPECT_EQ(captionof("haerbin", "china"), "KRM-5T/11型 2017-11-16-v1.0版");
    EXPECT_EQ(captionof("longxi", "china"), "KRM-5T/11型 2017-07-13-v1.1版");
    EXPECT_EQ(captionof("hu", "china"), "KRM-5T/11型 2017-11-15-v1.2版");
    windowload(st, writefile("run.ktr", ""));
    windowactivate(st);
    EXPECT_EQ(st.form.caption, "KRM-5T/11型 2017-11-16-v1.0版");
}

TEST_F(Startup, ProcessesAreCountedByTheirExecutable) {
    auto proc = temp.path() / "proc";
    for (auto [pid, exe] : {std::pair{"101", "/opt/orvane/orvane"},
                            {"102", "/opt/orvane/orvane"},
                            {"103", "/usr/bin/bash"},
                            {"self", "/opt/orvane/orvane"}}) {
        std::filesystem::create_directories(proc / pid);
        std::filesystem::create_symlink(exe, proc / pid / "exe");
    }
    EXPECT_EQ(countprocesses("/opt/orvane/orvane", proc.string()), 2);
    EXPECT_GE(countthisprogram(), 1);
}

TEST_F(Startup, ClosingTheWindowEndsTheProcess) {
    windowunload(st);
    EXPECT_TRUE(st.process.ended);
}

TEST_F(Startup, ExpandedViewInForceAtTheStartCapsTheHandStep) {
    writesetting(st, "shoudbjz", "apy", "600");
    writesetting(st, "shoudbjz", "shuzhi", "600");
    loadsettings(st);
    const ktrgen::Recording rec = ktrgen::generate(ktrgen::preset("small"), 2);
    windowload(st, writefile("small.ktr", std::string(rec.bytes.begin(), rec.bytes.end())));
    windowactivate(st);
    EXPECT_EQ(st.settings.viewspan, 600);
    EXPECT_EQ(st.settings.manualstep, 400);
    EXPECT_EQ(st.replaystep, 7); // speed 5 of the seeded settings, below the cap
    // The cap holds in memory: the table keeps the user's hand step.
    EXPECT_EQ(st.colordb->scalar("select shuzhi from color where weizhi='shoudbjz'").number(), 600);
}

TEST_F(Startup, FilterBoxesComeFromTheirRowAndAZeroUnticksItsChannel) {
    st.colordb->exec("update color set apy='0', shuzhibf='40' where weizhi='guolv'");
    const ktrgen::Recording rec = ktrgen::generate(ktrgen::preset("small"), 2);
    windowload(st, writefile("small.ktr", std::string(rec.bytes.begin(), rec.bytes.end())));
    windowactivate(st);
    EXPECT_FALSE(st.form.filterchecked[0]);
    EXPECT_FALSE(st.form.filterenabled[0]);
    EXPECT_EQ(st.form.filtertext[0], "0");
    EXPECT_TRUE(st.form.filterchecked[8]);
    EXPECT_EQ(st.form.filtertext[8], "40");
    EXPECT_EQ(st.form.filtertext[4], "1");
}

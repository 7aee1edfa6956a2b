// The analyst's desk without a window: opening another recording, the recordings opened last, the
// keys and the wheel on the picture, the overview of the whole run, the status bar, the settings
// that can't lock a user out.
#include "../processing/recordingfixture.h"
#include "app/desk.h"
#include "app/startup.h"
#include "replay/transport.h"
#include "replay/wholerun.h"
#include "station/controls.h"
#include "station/numbers.h"
#include "station/station.h"
#include "stores/settingsstore.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

using namespace orvane;
namespace fs = std::filesystem;

namespace {

class Desk : public testkit::RecordingTest {
  protected:
    void SetUp() override {
        clock.time.tm_year = 126, clock.time.tm_mon = 10, clock.time.tm_mday = 23;
        clock.time.tm_hour = 9;
        RecordingTest::SetUp();
        ui.messages.clear();
    }
    // Another recording beside the first.
    std::string second() {
        const ktrgen::Recording rec = ktrgen::generate(ktrgen::preset("small"), 7);
        return writefile("20261123_101.ktr", std::string(rec.bytes.begin(), rec.bytes.end()));
    }
};

TEST_F(Desk, StartWithoutAPathOffersTheOpenDialogAndACancelLeadsToTheErrorMessages) {
    Station fresh;
    ScriptedUi asked;
    fresh.ui = &asked;
    fresh.clock = &clock;
    entry(fresh, (temp.path() / "another").string());
    const std::string path = startpath(fresh, "");
    EXPECT_EQ(path, "");
    windowload(fresh, path);
    EXPECT_EQ(asked.messages, (std::vector<std::string>{"有误", "有误"}));
    EXPECT_TRUE(fresh.process.ended);
    EXPECT_EQ(fresh.process.exitstatus, 1);
}

TEST_F(Desk, StartWithoutAPathTakesTheChosenRecording) {
    ui.answers = {original};
    EXPECT_EQ(startpath(st, "  "), original);
    EXPECT_EQ(startpath(st, "\"" + original + "\""), "\"" + original + "\""); // a path given is kept
}

TEST_F(Desk, OpeningAnotherRecordingSavesTheAnalystsSessionAndLoadsItAsAtStart) {
    st.form.Tmc = "张三";
    keypress(st, "Picture1", "PageDown");
    clock.time.tm_min = 20; // twenty minutes of work: the session is saved
    const std::string next = second();
    ASSERT_TRUE(openrecording(st, next));
    EXPECT_TRUE(std::any_of(st.written.begin(), st.written.end(), [](const std::string& path) {
        return fs::path(path).filename().string().find("张三") != std::string::npos;
    }));
    EXPECT_EQ(st.zhu.filepath, next);
    EXPECT_EQ(st.zhu.viewindex, 600);
    EXPECT_EQ(st.form.Tmc, "");
    EXPECT_TRUE(st.activated);
    EXPECT_GT(st.zhu.samplecount, 0);
    EXPECT_EQ(st.form.caption, "KRM-5T/11型 2017-11-16-v1.0版");
    EXPECT_EQ(st.form.recent.front(), fs::absolute(next).lexically_normal().string());
    EXPECT_GT(st.overview.columns, 0);
}

TEST_F(Desk, OpeningAPathThatFailsItsTestsKeepsTheOpenRecording) {
    const std::string text = writefile("notes.txt", "x");
    EXPECT_FALSE(openrecording(st, text));
    EXPECT_EQ(ui.messages, std::vector<std::string>{text + "有误"});
    EXPECT_EQ(st.zhu.filepath, original);
    EXPECT_FALSE(openrecording(st, temp.file("missing.ktr")));
    EXPECT_EQ(st.zhu.filepath, original);
}

TEST_F(Desk, TheOpenButtonAsksForTheRecordingAndACancelChangesNothing) {
    press(st, "Commandopen");
    EXPECT_EQ(st.zhu.filepath, original);
    const std::string next = second();
    ui.answers = {next};
    press(st, "Commandopen");
    EXPECT_EQ(st.zhu.filepath, next);
    // The first is now the second entry of the menu of recent recordings; its entry opens it again.
    EXPECT_EQ(controlcaption(st, reach(st, "Menurecent(0)")), fs::absolute(next).lexically_normal().string());
    EXPECT_FALSE(reach(st, "Menurecent(2)").isvisible(st));
}

TEST_F(Desk, TheRecentListKeepsTheLastTenNewestFirstEachOnce) {
    for (int i = 0; i < 12; ++i) rememberrecording(st, "/data/run" + std::to_string(i) + ".ktr");
    rememberrecording(st, "/data/run5.ktr");
    const std::vector<std::string> paths = recentrecordings(st.folder);
    ASSERT_EQ(paths.size(), 10u);
    EXPECT_EQ(paths[0], "/data/run5.ktr");
    EXPECT_EQ(paths[1], "/data/run11.ktr");
    EXPECT_EQ(paths[9], "/data/run2.ktr");
    EXPECT_EQ(std::count(paths.begin(), paths.end(), "/data/run5.ktr"), 1);
    EXPECT_EQ(st.form.recent, paths);
}

TEST_F(Desk, ArrowsAndTheWheelTakeTheHandStepWithItsEndMessages) {
    const int step = st.settings.manualstep;
    keypress(st, "Picture1", "Right");
    EXPECT_EQ(st.zhu.viewindex, 600 + step);
    keypress(st, "Picture1", "WheelDown");
    EXPECT_EQ(st.zhu.viewindex, 600 + 2 * step);
    keypress(st, "Picture1", "Left");
    EXPECT_EQ(st.zhu.viewindex, 600 + step);
    keypress(st, "Picture1", "WheelUp");
    EXPECT_EQ(st.zhu.viewindex, 600);
    keypress(st, "Picture1", "WheelUp");
    EXPECT_EQ(st.zhu.viewindex, 600);
    EXPECT_EQ(ui.messages, std::vector<std::string>{atstartmessage});
}

TEST_F(Desk, PageKeysAndShiftWheelMoveAScreenHomeAndEndTheEnds) {
    const int screen = st.settings.viewspan;
    keypress(st, "Picture1", "PageDown");
    EXPECT_EQ(st.zhu.viewindex, 600 + screen);
    keypress(st, "Picture1", "Shift+WheelDown");
    EXPECT_EQ(st.zhu.viewindex, 600 + 2 * screen);
    keypress(st, "Picture1", "Shift+WheelUp");
    EXPECT_EQ(st.zhu.viewindex, 600 + screen);
    keypress(st, "Picture1", "PageUp");
    EXPECT_EQ(st.zhu.viewindex, 600);
    keypress(st, "Picture1", "End");
    EXPECT_EQ(st.zhu.viewindex, st.zhu.scrollmax * 300);
    keypress(st, "Picture1", "PageDown");
    EXPECT_EQ(st.zhu.viewindex, st.zhu.scrollmax * 300);
    EXPECT_EQ(ui.messages, std::vector<std::string>{atendmessage});
    keypress(st, "Picture1", "Home");
    EXPECT_EQ(st.zhu.viewindex, 600);
}

TEST_F(Desk, SpacePlaysAndPausesCtrlWheelExpandsAndCompresses) {
    keypress(st, "Picture1", "Space");
    EXPECT_TRUE(replaying(st));
    EXPECT_TRUE(st.T1);
    keypress(st, "Picture1", "Space");
    EXPECT_FALSE(replaying(st));
    keypress(st, "Picture1", "Ctrl+WheelUp");
    EXPECT_EQ(st.settings.viewspan, 600);
    keypress(st, "Picture1", "Ctrl+WheelDown");
    EXPECT_EQ(st.settings.viewspan, 1200);
}

TEST_F(Desk, EscapeClosesTheAModeThenTheEnlargedView) {
    st.Picture5visible = true;
    st.Picture9visible = true;
    keypress(st, "Picture1", "Escape");
    EXPECT_FALSE(st.Picture5visible);
    EXPECT_TRUE(st.Picture9visible);
    keypress(st, "Picture1", "Escape");
    EXPECT_FALSE(st.Picture9visible);
}

TEST_F(Desk, AStepNearTheLargestViewIndexStopsAtTheEndWithoutOverflow) {
    st.zhu.viewindex = 2147483000;
    press(st, "Command34");
    EXPECT_EQ(st.zhu.viewindex, st.zhu.scrollmax * 300);
    EXPECT_EQ(ui.messages, std::vector<std::string>{atendmessage});
    st.zhu.viewindex = 2147483000;
    EXPECT_EQ(reach(st, "HScrolljd").value(st), st.zhu.scrollmax); // the bar stands at its end
    keypress(st, "Picture1", "PageUp");
    EXPECT_EQ(st.zhu.viewindex, 2147483000 - st.settings.viewspan);
}

TEST_F(Desk, AKeyThePictureDoesNotTakeIsRefused) {
    EXPECT_THROW(keypress(st, "Picture1", "F5"), ControlError);
    EXPECT_THROW(keypress(st, "Command8", "Space"), ControlError);
    EXPECT_EQ(st.zhu.viewindex, 600);
}

TEST_F(Desk, TheOverviewMarksStandWhereTheTruthPutThem) {
    const ktrgen::Recording rec = ktrgen::generate(ktrgen::preset("small"), 2);
    const Overview& o = st.overview;
    ASSERT_GT(o.columns, 0);
    EXPECT_EQ(o.length, std::ssize(st.zhu.viewmap));
    // The view index of a position: the first that reaches it.
    auto columnof = [&](std::int32_t position) {
        const auto at = std::lower_bound(st.zhu.viewmap.begin(), st.zhu.viewmap.end(), position);
        return static_cast<std::size_t>((at - st.zhu.viewmap.begin()) * o.columns / o.length);
    };
    int marks = 0;
    for (const auto& [position, text] : rec.truth.marks) {
        // The mark column's value: above 1949 and below 12000 a turnout, else a mark.
        const int value = std::stoi(text);
        const std::uint8_t kind = value > 1949 && value < 12000 ? Overview::turnout : Overview::mark;
        EXPECT_TRUE(o.events[columnof(position)] & kind) << position << " " << text;
        ++marks;
    }
    EXPECT_GT(marks, 0);
    for (std::int32_t stop : rec.truth.stops)
        EXPECT_TRUE(o.events[columnof(stop + 300)] & Overview::reversal);
    for (std::int32_t restart : rec.truth.restarts)
        EXPECT_TRUE(o.events[columnof(restart)] & Overview::restart) << restart;
    // Echoes of every group somewhere in the run.
    std::array<std::uint64_t, 3> total{};
    for (const auto& e : o.echoes)
        for (int g = 0; g < 3; ++g) total[g] += e[g];
    EXPECT_GT(total[0] + total[1] + total[2], 0u);
}

TEST_F(Desk, AClickOnTheOverviewGoesToTheKilometreUnderIt) {
    const Overview& o = st.overview;
    const double x = o.columns * 0.5;
    mouse(st, "Overview", {"down", "left", x, 0});
    const long k = overviewindex(st, x);
    const std::int32_t middle = st.zhu.viewindex - st.settings.viewspan / 2;
    EXPECT_NEAR(middle, k, 1);
    EXPECT_FALSE(overviewtip(st, x).empty());
    EXPECT_NE(overviewtip(st, x).find("公里+"), std::string::npos);
    // A drag goes on while the button holds, and stops after its release.
    mouse(st, "Overview", {"move", "none", o.columns * 0.25, 0});
    EXPECT_NEAR(st.zhu.viewindex - st.settings.viewspan / 2, overviewindex(st, o.columns * 0.25), 1);
    mouse(st, "Overview", {"up", "left", o.columns * 0.25, 0});
    const std::int32_t rested = st.zhu.viewindex;
    mouse(st, "Overview", {"move", "none", o.columns * 0.75, 0});
    EXPECT_EQ(st.zhu.viewindex, rested);
}

TEST_F(Desk, TheOverviewIsBuiltAgainOnlyWhenItsSourceChanges) {
    EXPECT_FALSE(updateoverview(st));
    setcontrol(st, "Option17", "1"); // the whole file: another map
    setcontrol(st, "Option16", "1");
    st.hitcount = 0;
    ++st.eventcount;
    EXPECT_TRUE(updateoverview(st));
    EXPECT_FALSE(updateoverview(st));
}

TEST_F(Desk, TheStatusBarTellsThePlaceTheSpeedTheFileAndThePointer) {
    EXPECT_EQ(controlcaption(st, reach(st, "Statusfile")),
              "20261122_083.ktr  (" + formatfixed(static_cast<double>(bytes.size()) / 1048576.0, 1, 1) +
                  " MB)");
    const double share = 100.0 * 600 / (st.zhu.scrollmax * 300.0);
    EXPECT_EQ(statusplace(st), "位置：" + formatfixed(share, 1, 1) + "%");
    const double metres = st.replaystep * 3.5 / st.T1interval;
    EXPECT_EQ(statusspeed(st).rfind("回放速度：" + formatfixed(metres, 1, 2) + " 米/秒　剩余 ", 0), 0u);
    EXPECT_EQ(statuspointer(st), "");
    mouse(st, "Picture1", {"move", "none", 600, 100});
    ASSERT_TRUE(st.zhu.Label14.visible);
    const std::string pointer = statuspointer(st);
    EXPECT_EQ(pointer.rfind("水平：", 0), 0u);
    EXPECT_NE(pointer.find("时间："), std::string::npos);
    EXPECT_NE(pointer.find("深度："), std::string::npos);
    EXPECT_EQ(controlcaption(st, reach(st, "HScroll8value")), std::to_string(st.settings.bofsd) + " 档");
    EXPECT_EQ(controlcaption(st, reach(st, "HScrolljdvalue")), "2/" + std::to_string(st.zhu.scrollmax));
}

TEST_F(Desk, ResetPutsEveryColourRowBackAfterAYes) {
    setcolor(st, "acolor", 1);
    writesetting(st, "bofsd", "shuzhi", "9");
    ui.answers = {"no"};
    press(st, "Commandmr");
    EXPECT_EQ(st.settings.color("acolor"), 1u);
    ui.answers = {"yes"};
    press(st, "Commandmr");
    EXPECT_EQ(st.settings.color("acolor"), 16711872u);
    EXPECT_EQ(st.settings.channelcolor[0], 16711872u);
    EXPECT_EQ(st.settings.bofsd, 5);
    EXPECT_EQ(st.colordb->scalar("select shuzhi from color where weizhi='acolor'").number(), 16711872);
    EXPECT_EQ(st.colordb->scalar("select count(*) from color").number(),
              st.colordb->scalar("select count(distinct weizhi) from color").number());
}

TEST_F(Desk, AChannelColourNearTheBackgroundIsStoredAndWarnedAbout) {
    ui.answers = {"1"}; // nearly the black background
    press(st, "Lysa");
    EXPECT_EQ(st.settings.channelcolor[0], 1u);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"通道A的颜色与背景色太接近，该通道的回波将几乎看不见！"});
    ui.messages.clear();
    ui.answers = {"65280"};
    press(st, "Lysa");
    EXPECT_EQ(st.settings.channelcolor[0], 65280u);
    EXPECT_TRUE(ui.messages.empty());
}

} // namespace

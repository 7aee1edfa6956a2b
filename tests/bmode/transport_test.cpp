// The replay transport of the main view.
#include "replay/transport.h"
#include "replay/viewmap.h"
#include "station/controls.h"
#include "station/station.h"
#include "viewfixture.h"

#include <gtest/gtest.h>

using namespace orvane;

namespace {

class Transport : public testkit::ViewTest {
  protected:
    void SetUp() override {
        prepareview(200000);
        st.settings.manualstep = 500;
        st.settings.bofsd = 1;
        setreplayspeed(st);
    }
};

TEST_F(Transport, SpeedTableGivesStepsAndIntervals) {
    const std::pair<int, int> table[] = {{2, 15},    {3, 15},    {4, 15},    {5, 15},    {7, 15},
                                         {300, 500}, {500, 500}, {700, 500}, {1000, 500}};
    for (int v = 1; v <= 9; ++v) {
        st.settings.bofsd = static_cast<std::int16_t>(v);
        setreplayspeed(st);
        EXPECT_EQ(st.replaystep, table[v - 1].first) << v;
        EXPECT_EQ(st.T1interval, table[v - 1].second) << v;
    }
    st.settings.viewspan = 600; // Option8 "扩展" caps the fastest step
    setreplayspeed(st);
    EXPECT_EQ(st.replaystep, 400);
}

TEST_F(Transport, PlayButtonTogglesTheTimerAndItsCaption) {
    st.form.captions["Command8"] = "连续播放";
    pressplay(st);
    EXPECT_TRUE(st.T1);
    EXPECT_EQ(st.form.captions["Command8"], "播放暂停");
    pressplay(st);
    EXPECT_FALSE(st.T1);
    EXPECT_EQ(st.form.captions["Command8"], "连续播放");
}

TEST_F(Transport, TickMovesTheViewByTheReplayStep) {
    st.T1 = true;
    s.viewindex = 600;
    replaytick(st);
    EXPECT_EQ(s.viewindex, 602);
    EXPECT_EQ(st.framecount, 1);
}

TEST_F(Transport, BackwardReplayStopsWithin1300OfTheStart) {
    st.T1 = true;
    st.direction = -1;
    s.viewindex = 1299;
    replaytick(st);
    EXPECT_EQ(s.viewindex, 1299);
    EXPECT_FALSE(st.T1);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"已经播放到文件最初位置！"});
}

TEST_F(Transport, StepBackGoesDownTo600AndThenSaysSo) {
    s.viewindex = 1000;
    stepback(st);
    EXPECT_EQ(s.viewindex, 600);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"已经播放到文件最初位置！"});
    ui.messages.clear();
    s.viewindex = 1200;
    stepback(st);
    EXPECT_EQ(s.viewindex, 700);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Transport, ViewAtTheLastPositionStopsAtTheNextTick) {
    st.settings.wholefile = 0;
    s.rawgrid[1000][0] = 1;
    rebuildmap(st, s); // a short clip map: the bar ends long before the file
    st.form.captions["Command8"] = "播放暂停";
    st.T1 = true;
    s.viewindex = s.lastposition;
    replaytick(st);
    EXPECT_FALSE(st.T1);
    EXPECT_EQ(s.viewindex, s.lastposition);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"已经播放到文件最后位置！"});
    EXPECT_EQ(st.form.captions["Command8"], "连续播放");
}

TEST_F(Transport, TickPastTheBarsEndStopsThere) {
    st.T1 = true;
    st.form.captions["Command8"] = "播放暂停";
    st.settings.bofsd = 9;
    setreplayspeed(st);
    s.viewindex = s.scrollmax * 300 - 10;
    replaytick(st);
    EXPECT_EQ(s.viewindex, s.scrollmax * 300);
    EXPECT_FALSE(st.T1);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"已经播放到文件最后位置！"});
}

TEST_F(Transport, AsynchronousModeLeavesTheMainSideWhenTheComparisonHasTheFocus) {
    st.T1 = true;
    st.asynchronous = true;
    st.playside = "cong";
    s.viewindex = 700;
    replaytick(st);
    EXPECT_EQ(s.viewindex, 700);
}

TEST_F(Transport, SeekKeepsTheFirstHundredHitsOfAKilometre) {
    // The same kilometre every 1002 positions: 150 passes.
    for (std::int64_t p = 1000; p < 1000 + 150 * 1002; p += 1002) s.mileage[p][0] = 7.5f;
    st.Text1 = "7.5";
    seekkilometre(st);
    EXPECT_EQ(st.seekcount, 100);
    EXPECT_EQ(st.seekhits[0], 1000);
    EXPECT_EQ(st.seekhits[99], 1000 + 99 * 1002);
    EXPECT_EQ(s.viewindex, 1000);
    EXPECT_EQ(st.seekat, 1);
}

TEST_F(Transport, HitCloserThan1001ToTheOneBeforeIsSkipped) {
    s.mileage[1000][0] = 7.5f;
    s.mileage[2000][0] = 7.5f; // 1000 on: skipped
    s.mileage[3001][0] = 7.5f;
    st.Text1 = "7.5";
    seekkilometre(st);
    ASSERT_EQ(st.seekcount, 2);
    EXPECT_EQ(st.seekhits[1], 3001);
    nextseekhit(st);
    EXPECT_EQ(s.viewindex, 3001);
    nextseekhit(st);
    EXPECT_EQ(s.viewindex, 1000); // back to the first past the last
}

TEST_F(Transport, TextThatIsNoNumberSeeksKilometreZero) {
    st.Text1 = "abc";
    seekkilometre(st);
    EXPECT_EQ(st.seekhits[0], 800); // every unknown kilometre reads 0
    EXPECT_EQ(s.viewindex, 800);
}

TEST_F(Transport, SeekWithoutAHitTakesTheNearestPosition) {
    s.mileage[5000][0] = 7.49f;
    s.mileage[6000][0] = 7.52f;
    st.Text1 = "7.5";
    seekkilometre(st);
    EXPECT_EQ(st.seekcount, 1);
    EXPECT_EQ(st.seekhits[0], 5000);
    EXPECT_EQ(s.viewindex, 5000);
}

TEST_F(Transport, MarkersNoteTheStretchAndDrawItsLength) {
    s.viewindex = 10000;
    st.pointerx = 300;
    markstart(st, s);
    EXPECT_EQ(s.startx, 300);
    EXPECT_EQ(s.startpos, 10000);
    EXPECT_EQ(s.startdist, 10900);
    EXPECT_TRUE(st.form.azdenabled);
    st.pointerx = 800;
    markend(st, s);
    EXPECT_EQ(s.enddist, 10400);
    std::vector<std::string> texts;
    for (const DrawOp& op : canvas.ops)
        if (op.kind == DrawOp::Kind::print && op.text.find("米") != std::string::npos)
            texts.push_back(op.text);
    EXPECT_EQ(texts, (std::vector<std::string>{"1.750米", "1.750米"})); // 500 positions of 3.5 mm
}

TEST_F(Transport, KeepPlaceReturnsToTheSameKilometreAfterTheMapChanges) {
    for (std::int64_t p = 800; p <= s.lastposition; ++p)
        s.mileage[p][0] = static_cast<float>(p * 0.0035 / 1000 + 5);
    s.viewindex = 100000; // kilometre 5.350
    st.settings.wholefile = 0;
    s.rawgrid[50000][0] = 1; // the clip map shrinks the silence before and behind
    s.rawgrid[100000][0] = 1;
    keepplace(st);
    EXPECT_EQ(st.Text1, "0005.350");
    ASSERT_GE(st.seekcount, 1);
    EXPECT_NEAR(s.mileage[s.mapat(s.viewindex)][0], 5.35f, 0.002f);
}

// A comparison of 100,000 positions shown below the main side.
class Comparison : public Transport {
  protected:
    void SetUp() override {
        Transport::SetUp();
        preparecomparison(100000);
        st.T1 = true;
        st.form.captions["Command8"] = "播放暂停";
    }
};

TEST_F(Comparison, SynchronousTickMovesBothSidesByTheSameStep) {
    s.viewindex = 600;
    c.viewindex = 5000;
    replaytick(st);
    EXPECT_EQ(s.viewindex, 602);
    EXPECT_EQ(c.viewindex, 5002);
    EXPECT_FALSE(canvasdb.ops.empty()); // bofangdb drew on the comparison picture
}

TEST_F(Comparison, AsynchronousTickMovesOnlyTheSideWithTheFocus) {
    st.asynchronous = true;
    s.viewindex = c.viewindex = 700;
    st.playside = "zhu";
    replaytick(st);
    EXPECT_EQ(s.viewindex, 702);
    EXPECT_EQ(c.viewindex, 700);
    st.playside = "cong";
    replaytick(st);
    EXPECT_EQ(s.viewindex, 702);
    EXPECT_EQ(c.viewindex, 702);
}

TEST_F(Comparison, HiddenComparisonDoesNotMove) {
    st.form.comparisonvisible = false;
    c.viewindex = 700;
    replaytick(st);
    EXPECT_EQ(c.viewindex, 700);
}

TEST_F(Comparison, ComparisonAtItsEndStopsAndPausesWithItsOwnMessage) {
    s.viewindex = 700;
    c.viewindex = c.lastposition;
    replaytick(st);
    EXPECT_EQ(s.viewindex, 702); // the main side moved first
    EXPECT_FALSE(st.T1);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"对比已经播放到文件最后位置 ！"});
    EXPECT_EQ(st.form.captions["Command8"], "连续播放");
}

TEST_F(Comparison, ComparisonPastItsBarStopsTheTimerButKeepsTheCaption) {
    st.language = "english";
    st.form.captions["Command8"] = "Pause";
    st.settings.wholefile = 0;
    c.rawgrid[1000][0] = 1;
    rebuildmap(st, c); // a short clip map: the bar ends long before the file
    c.viewindex = c.scrollmax * 300 + 299;
    replaytick(st);
    EXPECT_EQ(c.viewindex, c.scrollmax * 300);
    EXPECT_FALSE(st.T1);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"the 2nd end"});
    EXPECT_EQ(st.form.captions["Command8"], "Pause");
}

TEST_F(Comparison, BackwardStopNearTheComparisonsStartHasABlankAndNoEnglish) {
    st.language = "english";
    st.direction = -1;
    s.viewindex = 5000;
    c.viewindex = 1000;
    replaytick(st);
    EXPECT_EQ(s.viewindex, 4998);
    EXPECT_EQ(c.viewindex, 1000);
    EXPECT_FALSE(st.T1);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"已经播放到文件最初位置 ！"});
}

TEST_F(Comparison, StepKeysMoveTheComparisonInStep) {
    st.T1 = false;
    s.viewindex = 600;
    c.viewindex = 2000;
    press(st, "Command34");
    EXPECT_EQ(s.viewindex, 1100);
    EXPECT_EQ(c.viewindex, 2500);
    press(st, "Command27");
    EXPECT_EQ(s.viewindex, 600);
    EXPECT_EQ(c.viewindex, 2000);
    st.asynchronous = true;
    press(st, "Command34");
    EXPECT_EQ(s.viewindex, 1100);
    EXPECT_EQ(c.viewindex, 2000);
}

TEST_F(Comparison, ComparisonLeadsWithItsOwnStepKeys) {
    s.viewindex = 3000;
    c.viewindex = 3000;
    press(st, "Command37");
    EXPECT_EQ(c.viewindex, 3500);
    EXPECT_EQ(s.viewindex, 3500);
    c.viewindex = c.scrollmax * 300 - 100;
    press(st, "Command37");
    EXPECT_EQ(c.viewindex, c.scrollmax * 300);
    EXPECT_EQ(ui.messages.front(), "已经播放到文件最后位置 ！");
    ui.messages.clear();
    c.viewindex = 900;
    press(st, "Command38");
    EXPECT_EQ(c.viewindex, 600);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"对比已经播放到文件最初位置！"});
}

TEST_F(Comparison, StepBackOfTheFollowingComparisonStopsAt600AndSaysSo) {
    s.viewindex = 5000;
    c.viewindex = 800;
    stepback(st);
    EXPECT_EQ(s.viewindex, 4500);
    EXPECT_EQ(c.viewindex, 600);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"对比已经播放到文件最初位置！"});
}

TEST_F(Comparison, FollowingComparisonAtItsEndOnlySaysSo) {
    s.viewindex = 5000;
    c.viewindex = c.lastposition;
    stepforward(st);
    EXPECT_EQ(s.viewindex, 5500);
    EXPECT_EQ(c.viewindex, c.lastposition);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"对比已经播放到文件最后位置 ！"});
}

TEST_F(Comparison, SeekOnTheComparisonTakesTheNearestPlaceOnly) {
    st.T1 = true;
    c.mileage[3000][0] = 7.5f;
    c.mileage[9000][0] = 7.5f; // a second pass: the comparison keeps no list of hits
    enter(st, "Text2", "7.5");
    EXPECT_EQ(c.viewindex, 3000);
    EXPECT_FALSE(st.T1); // the seek paused the replay
    EXPECT_EQ(st.seekcount, 0);
    press(st, "Label21");
    EXPECT_EQ(c.viewindex, 3000);
}

TEST_F(Comparison, MarkersOnTheComparisonPictureDrawThere) {
    c.viewindex = 10000;
    st.pointerx = 300;
    press(st, "azddb"); // not yet: no start on this picture
    EXPECT_EQ(c.endx, 0);
    press(st, "aqddb");
    EXPECT_EQ(c.startdist, 10900);
    st.pointerx = 900;
    press(st, "azddb");
    EXPECT_EQ(c.enddist, 10300);
    EXPECT_EQ(s.startx, 0); // the main picture's markers stay
    EXPECT_FALSE(st.form.accenabled);
    bool drawn = false;
    for (const DrawOp& op : canvasdb.ops)
        drawn = drawn || (op.kind == DrawOp::Kind::print && op.text == "2.100米");
    EXPECT_TRUE(drawn);
}

TEST_F(Comparison, KeepPlaceBringsTheComparisonBackToItsKilometre) {
    for (std::int64_t p = 800; p <= c.lastposition; ++p)
        c.mileage[p][0] = static_cast<float>(p * 0.0035 / 1000 + 9);
    c.viewindex = 40000; // kilometre 9.140
    st.settings.wholefile = 0;
    c.rawgrid[20000][0] = 1;
    c.rawgrid[40000][0] = 1;
    keepplace(st);
    EXPECT_EQ(st.Text2, "0009.140");
    EXPECT_NEAR(c.mileage[c.mapat(c.viewindex)][0], 9.14f, 0.002f);
    EXPECT_LT(c.viewlength, 40000); // the comparison's map was rebuilt as a clip map
}

TEST_F(Comparison, ComparisonScrollBarMovesItsViewOnly) {
    s.viewindex = 600;
    scroll(st, "HScrolljddb", 10);
    EXPECT_EQ(c.viewindex, 3000);
    EXPECT_EQ(s.viewindex, 600);
}

} // namespace

namespace {

// A recording whose position bar ends at 195: 195 x 300 = 58,500 view indices.
class BarEnd : public testkit::ViewTest {
  protected:
    void SetUp() override {
        start();
        prepareview(58650);
        ASSERT_EQ(s.scrollmax, 195);
        st.settings.manualstep = 500;
        st.settings.bofsd = 1;
        setreplayspeed(st);
        st.form.captions["Command8"] = "连续播放";
    }
};

TEST_F(BarEnd, StepPastTheBarByAFractionStopsAtItsEndAndSaysSo) {
    scroll(st, "HScrolljd", 194);
    ASSERT_EQ(s.viewindex, 58200);
    press(st, "Command34"); // 58,700 / 300 = 195.67, above the maximum
    EXPECT_EQ(s.viewindex, 58500);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"已经播放到文件最后位置！"});
    EXPECT_EQ(reach(st, "HScrolljd").value(st), 195);
}

TEST_F(BarEnd, StepLandingOnTheBarsEndIsNoEnd) {
    s.viewindex = 58000;
    press(st, "Command34"); // 58,500 / 300 = 195, not above it
    EXPECT_EQ(s.viewindex, 58500);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(BarEnd, TickPastTheBarByAFractionStopsTheReplay) {
    st.settings.bofsd = 6; // 300 a tick
    setreplayspeed(st);
    press(st, "Command8");
    s.viewindex = 58400;
    replaytick(st);
    EXPECT_EQ(s.viewindex, 58500);
    EXPECT_FALSE(st.T1);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"已经播放到文件最后位置！"});
    EXPECT_EQ(st.form.captions["Command8"], "连续播放");
}

TEST_F(BarEnd, FollowingComparisonStepsPastItsBarByAFraction) {
    preparecomparison(58650);
    s.viewindex = 1000;
    c.viewindex = 58200;
    press(st, "Command34");
    EXPECT_EQ(s.viewindex, 1500);
    EXPECT_EQ(c.viewindex, 58500);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"已经播放到文件最后位置！"});
}

TEST_F(BarEnd, LeadingComparisonStepsPastItsBarByAFraction) {
    preparecomparison(58650);
    c.viewindex = 58200;
    press(st, "Command37");
    EXPECT_EQ(c.viewindex, 58500);
    EXPECT_EQ(ui.messages.front(), "已经播放到文件最后位置 ！");
}

TEST_F(BarEnd, ComparisonTickEndsAtTheBarsMaximumAlready) {
    preparecomparison(58650);
    st.settings.bofsd = 6;
    setreplayspeed(st);
    press(st, "Command8");
    s.viewindex = 1000;
    c.viewindex = 58200;
    replaytick(st); // 58,500 / 300 = 195: at the maximum
    EXPECT_EQ(c.viewindex, 58500);
    EXPECT_FALSE(st.T1);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"对比已经播放到文件最后位置 ！"});
}

TEST_F(BarEnd, ExpandedViewCapsBothStepsAt400WhateverTheSpeed) {
    st.settings.viewspan = 1200;
    st.settings.bofsd = 8; // 700 a tick
    setreplayspeed(st);
    ASSERT_EQ(st.replaystep, 700);
    press(st, "Option8");
    EXPECT_EQ(st.replaystep, 400);
    EXPECT_EQ(st.settings.manualstep, 400);
    press(st, "Option9");
    setcontrol(st, "HScroll8", "6"); // 300: below the cap
    press(st, "Option8");
    EXPECT_EQ(st.replaystep, 300);
}

} // namespace

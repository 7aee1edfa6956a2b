// The B-mode picture and the view map, checked through the operations of a recording canvas.
#include "app/startup.h"
#include "bmode/bmode.h"
#include "recording/panels.h"
#include "replay/bofang.h"
#include "replay/viewmap.h"
#include "station/recordingcanvas.h"
#include "station/station.h"
#include "viewfixture.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace orvane;

namespace {

class Picture : public testkit::ViewTest {
  protected:
    void SetUp() override {
        prepareview(5000);
        st.settings.markplace = 0;
        for (int k = 0; k < 9; ++k) st.settings.channelcolor[k] = static_cast<std::uint32_t>(100 + k);
        pictureconstants(st);
        s.channelkind = {"47", "46", "49", "48", "4B", "4A", "25", "26", "00"};
        s.railcode = "60";
        layout(st);
    }
    // A whole-file map and one picture with the right edge at view index VIEW.
    void draw(std::int32_t view = 600) {
        rebuildmap(st, s);
        s.viewindex = view;
        canvas.ops.clear();
        loadall(st);
    }
    std::vector<DrawOp> psets(std::uint32_t color) const {
        std::vector<DrawOp> out;
        for (const DrawOp& op : canvas.ops)
            if (op.kind == DrawOp::Kind::pset && op.color == color) out.push_back(op);
        return out;
    }
    std::vector<std::string> texts() const {
        std::vector<std::string> out;
        for (const DrawOp& op : canvas.ops)
            if (op.kind == DrawOp::Kind::print) out.push_back(op.text);
        return out;
    }
};

TEST_F(Picture, EchoIsADotAtItsPathBelowTheRunningSurface) {
    s.samplegrid[700][6] = 100; // channel G, kind 25, at view index 700: i = 100
    draw();
    const auto dots = psets(106);
    ASSERT_EQ(dots.size(), 1u);
    EXPECT_FLOAT_EQ(static_cast<float>(dots[0].x1), 100 * -0.629f / 6 + 1100);
    EXPECT_FLOAT_EQ(static_cast<float>(dots[0].y1), 100 * 0.777f + 18);
}

TEST_F(Picture, WithNoBoxTickedOnlyTheEventsDraw) {
    s.samplegrid[700][0] = 50;
    s.samplegrid[700][9] = 23;
    st.form.channelshown.fill(false);
    draw();
    for (const DrawOp& op : canvas.ops) EXPECT_NE(op.kind, DrawOp::Kind::pset);
    EXPECT_EQ(texts(), std::vector<std::string>{"S"});
}

TEST_F(Picture, VShapeShowsChannelsAToDOnlyForTheBouncedKinds) {
    st.settings.vshape = 1;
    s.channelkind[0] = "46";
    s.samplegrid[700][0] = 50;
    s.samplegrid[700][2] = 50; // C, kind 49: the V sweep
    draw();
    EXPECT_TRUE(psets(100).empty());
    ASSERT_EQ(psets(102).size(), 1u);
    EXPECT_FLOAT_EQ(static_cast<float>(psets(102)[0].x1), 50 * -0.075f / 6 + 1100);
}

TEST_F(Picture, FoldedLegOfTheVSweepTurnsAtTheFoot) {
    st.settings.vshape = 1;
    s.foldvalue = 100;
    s.channelscale[3] = 10; // limit 100 · 0.0323 · 10 = 32.3
    s.samplegrid[700][3] = 40;
    draw();
    const auto dots = psets(103);
    ASSERT_EQ(dots.size(), 1u);
    const float pathy = static_cast<float>(st.cos70);
    const float d = static_cast<float>(2 * 10 * 0.0323 * 100 * pathy - 40 * pathy);
    EXPECT_FLOAT_EQ(static_cast<float>(dots[0].y1), d + 18);
    EXPECT_EQ(dots[0].width, 3);
}

TEST_F(Picture, KindFortyFourDrawsNothingAndLeavesTheFactorsToTheNext) {
    s.channelkind = {"25", "44", "FF", "FF", "FF", "FF", "FF", "FF", "FF"};
    s.samplegrid[700][1] = 60;
    s.samplegrid[700][2] = 60;
    draw();
    EXPECT_TRUE(psets(101).empty());
    const auto dots = psets(102);
    ASSERT_EQ(dots.size(), 1u);
    EXPECT_FLOAT_EQ(static_cast<float>(dots[0].x1), 60 * -0.629f / 6 + 1100); // A's factors carried over
    EXPECT_FLOAT_EQ(static_cast<float>(dots[0].y1), 60 * 0.777f + 18);
}

TEST_F(Picture, ValueOfZeroOrBelowNeverDraws) {
    s.samplegrid[700][6] = 0;
    s.samplegrid[701][6] = -5;
    draw();
    EXPECT_TRUE(psets(106).empty());
}

TEST_F(Picture, IndicesPastTheEndDrawNothing) {
    s.samplegrid[4000][6] = 100; // out of view
    draw(5000);
    EXPECT_EQ(s.mapat(5000 + 300), 0); // a whole-file map reads position 0 past its end
    EXPECT_TRUE(psets(106).empty());
}

TEST_F(Picture, ReverseOf255IsOverThreeMetresAnd254ItsLength) {
    s.samplegrid[700][9] = 1255;
    s.samplegrid[900][9] = 1254;
    draw();
    EXPECT_EQ(texts(), (std::vector<std::string>{"倒车长度：超过3米", "倒车长度：3.56米"}));
}

TEST_F(Picture, TurnoutNumberNineteenFiftyPrintsZeroC) {
    s.samplegrid[700][9] = 1950;
    s.samplegrid[800][9] = 2051;
    draw();
    EXPECT_EQ(texts(), (std::vector<std::string>{"0C", "101C"}));
}

TEST_F(Picture, RestartMileageCheckAndIntegralModeMarks) {
    s.samplegrid[700][9] = 23;
    s.samplegrid[800][9] = 12345;
    s.samplegrid[900][9] = 12346;
    draw();
    EXPECT_EQ(texts(), (std::vector<std::string>{"S", "L", "里程校对", "J"}));
    const double B = s.scaletop + s.scaleheight - 55 + 12 + 18;
    EXPECT_EQ(canvas.ops[0].x1, 1100 - 7);
    EXPECT_EQ(canvas.ops[0].y1, B - 15);
}

TEST_F(Picture, ShapeStaysAtTheLastReverseOnScreen) {
    st.settings.reverseshow = 0;
    st.settings.wholefile = 1;
    s.samplegrid[700][9] = 1010;
    s.samplegrid[900][9] = 1020;
    rebuildmap(st, s);
    st.settings.reverseshow = 0;
    s.viewindex = 600;
    loadall(st);
    EXPECT_TRUE(st.form.Shape1.visible);
    EXPECT_EQ(st.form.Shape1.left, 1200 - 300 - 107 - 15);
}

TEST_F(Picture, FlagAtTheHeadNumbersFiveForEFifteen) {
    st.settings.markplace = 1;
    s.samplegrid[700][9] = 15;
    draw();
    EXPECT_EQ(texts(), std::vector<std::string>{"5"});
    int lines = 0;
    for (const DrawOp& op : canvas.ops)
        if (op.kind == DrawOp::Kind::line) {
            ++lines;
            EXPECT_EQ(op.width, 14);
            EXPECT_EQ(op.color, rgb(0, 255, 0));
        }
    EXPECT_EQ(lines, 3);
}

TEST_F(Picture, MarksAtTheFootShowTheirNames) {
    st.settings.biaojiname = {"焊缝", "接头", "道岔", "可疑点", "其他"};
    st.settings.biaojikcpair[7] = {"焊", "铝热焊缝"};
    s.samplegrid[700][9] = 13;
    s.samplegrid[800][9] = 107;
    draw();
    EXPECT_EQ(texts(), (std::vector<std::string>{"可疑点", "焊"}));
}

TEST_F(Picture, EmptyRailCodeGivesTheSixtyGeometry) {
    s.railcode = "";
    layout(st);
    EXPECT_EQ(s.railfootrow, 352 + 18);
    EXPECT_EQ(s.railwebrow, 192 + 18);
    EXPECT_EQ(s.scaleheight, 370 + 40);
}

TEST_F(Picture, CentredLayoutWithAComparisonOpenKeepsTheOrdinaryScale) {
    st.displaymode = "zhjz";
    layout(st);
    EXPECT_EQ(s.scaletop, -200);
    st.form.captions["Command17"] = "关闭对比";
    layout(st);
    EXPECT_EQ(s.scaletop, 0);
    EXPECT_EQ(s.scaleheight, 410);
}

TEST_F(Picture, BackgroundDrawsTheRunningSurfaceAndTheRailLines) {
    st.form.auxlines = true;
    background(st);
    ASSERT_EQ(canvas.background.size(), 4u);
    EXPECT_EQ(canvas.background[0].y1, 18);
    EXPECT_EQ(canvas.background[0].style, 3);
    EXPECT_EQ(canvas.background[3].y1, 370);
}

TEST_F(Picture, SeparatedLayoutPutsGHAndIIntoTheirBands) {
    st.displaymode = "fenjie";
    s.samplegrid[700][8] = 90;
    draw();
    const auto dots = psets(108);
    ASSERT_EQ(dots.size(), 1u);
    EXPECT_FLOAT_EQ(static_cast<float>(dots[0].y1), 90 * 1.0f * (1.0f / 3) + 18 - 6 + 235);
}

// The clip map.
class ClipMap : public Picture {
  protected:
    void SetUp() override {
        Picture::SetUp();
        st.settings.wholefile = 0;
    }
};

TEST_F(ClipMap, GapOf649StaysWholeAndOf650IsCut) {
    s.rawgrid[1000][0] = 1;
    s.rawgrid[1650][0] = 1; // empty 1001..1649: |last - first| = 648
    s.rawgrid[2300][0] = 1; // empty 1651..2299
    s.rawgrid[2951][0] = 1; // empty 2301..2950: |last - first| = 649 ... cut at 650
    s.rawgrid[3602][0] = 1; // empty 2952..3601: 649
    s.rawgrid[4254][0] = 1; // empty 3603..4253: 650
    s.rawgrid[5000][0] = 1;
    rebuildmap(st, s);
    auto indexof = [&](std::int32_t p) {
        for (std::size_t k = 600; k < s.viewmap.size(); ++k)
            if (s.viewmap[k] == p) return static_cast<std::int64_t>(k);
        return std::int64_t(-1);
    };
    EXPECT_EQ(indexof(3602) - indexof(2951), 651);           // 649 apart: whole
    EXPECT_EQ(indexof(4254) - indexof(3602), 1 + 321 + 321); // 650 apart: two ends of 321
    EXPECT_EQ(s.markflags[3603 + 320], 1);
}

TEST_F(ClipMap, RecordingEndingInSilenceEnds351PositionsIntoIt) {
    s.rawgrid[1000][2] = 1;
    rebuildmap(st, s);
    EXPECT_EQ(s.viewlength, 600 + 401 + 351);
    EXPECT_EQ(s.viewmap[s.viewlength - 1], 1001 + 350);
    EXPECT_EQ(s.viewmap[s.viewlength], s.lastposition + 1);
}

TEST_F(ClipMap, ViewPastTheUsedLengthIsBlank) {
    s.rawgrid[1000][6] = 1;
    s.samplegrid[1000][6] = 80;
    rebuildmap(st, s);
    s.viewindex = s.viewlength;
    canvas.ops.clear();
    loadall(st);
    EXPECT_TRUE(psets(106).empty());
    for (int i = 0; i < 1200; ++i) EXPECT_EQ(s.mapat(s.viewindex + i), s.lastposition + 1);
}

TEST_F(ClipMap, ReversalsCloserThan1101VanishWithTheStretchBetween) {
    st.settings.wholefile = 1;
    st.settings.reverseshow = 0;
    s.stopcount = 4;
    s.stoplist[0] = 1000;
    s.stoplist[1] = 2100; // 1100 after: 1000..2100 leave the view
    s.stoplist[2] = 3201; // 1101 after: stays
    s.stoplist[3] = 3300; // the last is never examined
    rebuildmap(st, s);
    EXPECT_EQ(s.viewmap[999], 999);
    EXPECT_EQ(s.viewmap[1000], 2101);
    EXPECT_EQ(s.scrollmax, (5001 - 1101) / 300);
}

TEST_F(ClipMap, CrossesMarkTheJoinsButNotNearTheEnd) {
    s.lastposition = 5000;
    s.rawgrid[700][0] = 1;
    s.rawgrid[2000][0] = 1;
    rebuildmap(st, s);
    s.viewindex = 600;
    canvas.ops.clear();
    loadjjxx(st, s);
    ASSERT_EQ(canvas.ops.size(), 4u); // the joins at 701 + 320 and, in the silence at the end, 2001 + 320
    st.settings.wholefile = 1;
    canvas.ops.clear();
    loadjjxx(st, s);
    EXPECT_TRUE(canvas.ops.empty());
    st.settings.wholefile = 0;
    s.markflags.assign(s.markflags.size(), 0);
    s.markflags[4000] = 1; // 1000 before the end
    s.viewmap[700] = 4000;
    canvas.ops.clear();
    loadjjxx(st, s);
    EXPECT_TRUE(canvas.ops.empty());
}

TEST_F(Picture, BackwardReplayRestartsEveryCursor) {
    s.jobcursor = s.paramcursor = s.markcursor = s.samplecursor = 7;
    st.direction = -1;
    bofang(st);
    EXPECT_EQ(s.jobcursor, -1);
    EXPECT_EQ(s.paramcursor, 0);
    EXPECT_EQ(s.markcursor, -1);
    EXPECT_EQ(s.samplecursor, -1);
}

TEST_F(Picture, MarkCursorMovingShowsTheGpsEntryInForce) {
    setpanelheads(st);
    s.markcount = 3;
    s.markpos[1] = 500;
    s.markpos[2] = 5000;
    s.gpscount = 3;
    s.gpspos = {100, 800, 2000, 0};
    std::string entry(38, '0');
    s.gpstext = {entry, entry, entry, entry};
    s.gpstext[1][36] = '7'; // the battery of the entry at 800
    bofang(st);             // the view at 600 reads the marks at 900: the cursor moves on to the mark at 500
    EXPECT_EQ(s.markcursor, 1);
    EXPECT_EQ(s.Grid3[1][6], "7V");
}

TEST_F(Picture, SamplesOnScreenShowClockSpeedAndKilometreAndTheNotesOfAnAnalyst) {
    s.samplecount = 1;
    s.samplepos[0] = 900; // i = 300 from the right edge at view 600
    s.sampleclock.assign(2, "08301501234560");
    s.samplespeed.assign(2, 2.5f);
    st.analysiscount = 1;
    st.analysispos[0] = 900;
    st.analysislist[0] = "0320261122101530";
    canvas.ops.clear();
    positionlabels(st, s);
    EXPECT_EQ(texts(),
              (std::vector<std::string>{"08:30:15 2.5km/h 0123km456m", "鱼鳞纹起点(20261122-10:15:30)"}));
    EXPECT_EQ(canvas.ops[0].x1, 900);
    EXPECT_EQ(canvas.ops[1].color, rgb(0, 191, 255));
    EXPECT_EQ(st.form.labels["Label1"], "当前里程:0000公里000米");
}

TEST_F(Picture, ComparisonPictureDrawsTheVOfKindFortyFourWithoutTheSeparatedLayout) {
    RecordingCanvas picture6;
    st.picture6 = &picture6;
    st.displaymode = "fenjie";
    Side& c = st.cong;
    c.lastposition = 5000;
    c.reachgrids(5100);
    c.channelkind = {"44", "46", "49", "48", "4B", "4A", "25", "26", "00"};
    c.channelscale.fill(10);
    c.foldvalue = 200;         // the fold at a path of 200 · 0.0323 · 10 = 64.6
    c.samplegrid[700][0] = 40; // A, kind 44: V sweep at +0.25, the direct leg
    c.samplegrid[700][8] = 90; // I: no band in the comparison picture
    c.samplegrid[800][9] = 1010;
    rebuildmap(st, c);
    c.viewindex = 600;
    loadalldb(st);
    std::vector<DrawOp> a, i;
    for (const DrawOp& op : picture6.ops) {
        if (op.kind == DrawOp::Kind::pset && op.color == 100) a.push_back(op);
        if (op.kind == DrawOp::Kind::pset && op.color == 108) i.push_back(op);
    }
    ASSERT_EQ(a.size(), 1u);
    EXPECT_FLOAT_EQ(static_cast<float>(a[0].x1), 40 * 0.25f / 6 + 1100);
    EXPECT_FLOAT_EQ(static_cast<float>(a[0].y1), 40 * static_cast<float>(st.cos70) + 18);
    ASSERT_EQ(i.size(), 1u);
    EXPECT_FLOAT_EQ(static_cast<float>(i[0].y1), 90 + 18 - 6);
    EXPECT_FALSE(st.form.Shape1.visible); // the comparison picture has no reverse shape
    EXPECT_TRUE(canvas.ops.empty());
}

TEST_F(Picture, AmodeRepaintSweepsOnlyToTheColumnReached) {
    s.samplegrid[650][6] = 100; // i = 50
    s.samplegrid[750][6] = 100; // i = 150
    rebuildmap(st, s);
    s.viewindex = 600;
    loadallduotd(st, 100);
    EXPECT_EQ(psets(106).size(), 1u);
}

TEST_F(Picture, EnlargementSweeps300IndicesAroundTheRulerWithoutEvents) {
    RecordingCanvas picture9;
    st.picture9 = &picture9;
    s.samplegrid[900][6] = 100;
    s.samplegrid[900][9] = 23;
    rebuildmap(st, s);
    s.viewindex = 600;
    loadallfangda(st, 1200 - 150); // start = Round(1200 - 1200 + 600) = 600, raised to 800
    std::vector<DrawOp> dots;
    for (const DrawOp& op : picture9.ops)
        if (op.kind == DrawOp::Kind::pset) dots.push_back(op);
    ASSERT_EQ(dots.size(), 1u);
    EXPECT_FLOAT_EQ(static_cast<float>(dots[0].x1), 100 * -0.629f / 6 + (300 - 100));
    for (const DrawOp& op : picture9.ops) EXPECT_NE(op.kind, DrawOp::Kind::print);
}

} // namespace

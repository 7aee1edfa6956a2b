// The pointer on the B-mode picture and the distance measurement with the cursor assembly.
#include "amode/amode.h"
#include "bmode/bmode.h"
#include "processing/pointer.h"
#include "station/controls.h"
#include "station/station.h"
#include "viewfixture.h"

#include <gtest/gtest.h>

using namespace orvane;

namespace {

class Pointer : public testkit::ViewTest {
  protected:
    RecordingCanvas picture3;
    void SetUp() override {
        start();
        prepareview(60000);
        st.picture3 = &picture3;
        st.form.captions["Command8"] = "连续播放";
        s.railheadrow = 96, s.railwebrow = 210, s.railfootrow = 370;
        for (std::int64_t p = 0; p <= 60100; ++p)
            s.mileage[p][0] = 12.0f + static_cast<float>(p) * 0.0000035f;
    }
    void down(double x, double y = 100, const char* button = "left") {
        mouse(st, "Picture1", {"down", button, x, y});
    }
    void up(double x, double y = 100, const char* button = "left") {
        mouse(st, "Picture1", {"up", button, x, y});
    }
    void move(double x, double y) { mouse(st, "Picture1", {"move", "none", x, y}); }
};

TEST_F(Pointer, ClickOnARunningReplayPausesAndTheNextClickOpensTheAMode) {
    press(st, "Command8");
    ASSERT_TRUE(st.T1);
    down(500);
    up(500);
    EXPECT_FALSE(st.T1);
    EXPECT_FALSE(st.Picture5visible); // the release of a pausing press does nothing
    down(500);
    up(500);
    EXPECT_TRUE(st.Picture5visible);
    EXPECT_TRUE(st.T2);
    EXPECT_EQ(st.amodeside, "zhu");
    EXPECT_EQ(s.rulerx0, 530); // the assembly at x + 30, its line at x + 50
    EXPECT_EQ(st.cursorx, 550);
    EXPECT_EQ(st.clicky, 100);
}

TEST_F(Pointer, PressAndReleaseWithinTwoUnitsNeverDrag) {
    s.viewindex = 5000;
    down(500);
    up(502);
    EXPECT_EQ(s.viewindex, 5000);
    EXPECT_TRUE(st.Picture5visible);
    down(500);
    up(503); // three units: a drag to later positions
    EXPECT_EQ(s.viewindex, 5003);
    EXPECT_FALSE(st.Picture5visible);
    EXPECT_EQ(s.rulerx0, 1200 - 35); // the assembly parks at the right
}

TEST_F(Pointer, DraggingLeftOf600ReportsTheStartOnceAndStays) {
    s.viewindex = 700;
    down(500);
    up(300);
    EXPECT_EQ(s.viewindex, 600);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"已经播放到文件最初位置！"});
    EXPECT_EQ(reach(st, "HScrolljd").value(st), 2);
    down(500);
    up(800); // a drag the other way goes on from 600
    EXPECT_EQ(s.viewindex, 900);
    EXPECT_EQ(ui.messages.size(), 1u);
}

TEST_F(Pointer, DraggingPastTheBarByAFractionStopsAtItsEnd) {
    s.viewindex = s.scrollmax * 300 - 100;
    down(100);
    up(250); // 150 on: past the maximum by half a step
    EXPECT_EQ(s.viewindex, s.scrollmax * 300);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"已经播放到文件最后位置！"});
}

TEST_F(Pointer, ComparisonPictureReportsItsOwnEnds) {
    preparecomparison(60000);
    c.viewindex = 700;
    mouse(st, "Picture6", {"down", "left", 500, 100});
    mouse(st, "Picture6", {"up", "left", 300, 100});
    EXPECT_EQ(c.viewindex, 600);
    EXPECT_EQ(ui.messages.back(), "对比已经播放到文件最初位置 ！");
    c.viewindex = c.scrollmax * 300 - 10;
    mouse(st, "Picture6", {"down", "left", 100, 100});
    mouse(st, "Picture6", {"up", "left", 300, 100});
    EXPECT_EQ(ui.messages.back(), "对比已经播放到文件结束位置 ！");
    mouse(st, "Picture6", {"down", "left", 100, 100});
    mouse(st, "Picture6", {"up", "left", 100, 100});
    EXPECT_EQ(st.amodeside, "cong");
}

TEST_F(Pointer, ReadOutShowsKilometreMetresAndDepth) {
    move(1200, 17.9); // view index 600: kilometre 12.0021, shown as its row's 0012.002
    EXPECT_TRUE(s.Label14.visible);
    EXPECT_EQ(s.Label14.text, "水平：12公里+2米"); // no depth above the running surface
    move(1200, 18);
    EXPECT_EQ(s.Label14.text, "水平：12公里+2米　  深度：0.00毫米");
    EXPECT_EQ(s.Label14.left, 1220);
    EXPECT_EQ(s.Label14.top, 18);
    move(1200, 118);
    EXPECT_EQ(s.Label14.text, "水平：12公里+2米　  深度：50.00毫米");
    move(1200, 370); // the foot: outside
    EXPECT_EQ(s.Label14.text, "水平：12公里+2米");
    st.language = "english";
    move(1200, 118);
    EXPECT_EQ(s.Label14.text, "H：12km+2m　  V：50.00mm");
}

TEST_F(Pointer, DepthRowsOfEveryLayout) {
    // Combined, straight: y - 18 up to the foot.
    EXPECT_EQ(depthof(st, s, 18), 0);
    EXPECT_EQ(depthof(st, s, 369.5), 351.5);
    EXPECT_EQ(depthof(st, s, 370), -1);
    // Combined, oblique 70: folded back at half the head row.
    st.oblique70 = 1;
    EXPECT_EQ(depthof(st, s, 48), 78);          // at H / 2: H - 18
    EXPECT_EQ(depthof(st, s, 60), 78 - 2 * 12); // below it, falling
    EXPECT_EQ(depthof(st, s, 47), 75);          // above it: (y - 18) x 2.6 = 75.4
    // Separated: F = 370, H = 96: F / 8 + 16 = 62.25, F / 3 + 12 = 135.33, 2F / 3 + 6 = 252.67.
    st.displaymode = "fenjie";
    EXPECT_EQ(depthof(st, s, 17), -1);
    EXPECT_EQ(depthof(st, s, 18), 0);
    EXPECT_EQ(depthof(st, s, 62), 80);        // (62 - 18) x 2 x 39 / 43 = 79.8
    EXPECT_EQ(depthof(st, s, 62.25), 78);     // the falling row starts at H - 18
    EXPECT_EQ(depthof(st, s, 135), 78 - 146); // -67.5 rounds to -68: no depth in the text
    EXPECT_EQ(depthof(st, s, 136), 2);        // the web row: (y - 135.33) x 3
    EXPECT_EQ(depthof(st, s, 252.5), 352);    // 351.5, ties to even
    EXPECT_EQ(depthof(st, s, 253), 1);
    EXPECT_EQ(depthof(st, s, 369), 349);
    EXPECT_EQ(depthof(st, s, 370), -1);
}

TEST_F(Pointer, NegativeKilometreHidesTheReadOut) {
    for (std::int64_t p = 0; p <= 60100; ++p) s.mileage[p][0] = -1.0f;
    move(600, 100);
    EXPECT_FALSE(s.Label14.visible);
}

class Measure : public Pointer {
  protected:
    void SetUp() override {
        Pointer::SetUp();
        s.viewindex = 5000;
        placecursor(s, 565); // the line at 585: position 1200 - 585 + 5000
    }
    void end() { mouse(st, "Labelyz", {"down", "right", 0, 0}); }
    void grip(double from, double to) {
        mouse(st, "Labelyz", {"down", "left", from, 5});
        mouse(st, "Labelyz", {"move", "left", to, 5});
        mouse(st, "Labelyz", {"up", "left", to, 5});
    }
};

TEST_F(Measure, TwoRightPressesAtOnePlaceMeasureNothing) {
    end();
    EXPECT_EQ(st.measurestart, 5615);
    EXPECT_EQ(st.form.labels["Label10"], "正在测量");
    EXPECT_FALSE(reach(st, "Label20").isvisible(st));
    EXPECT_TRUE(s.measuremark.visible);
    end();
    EXPECT_EQ(st.form.labels["Label10"], "测量结果：0.000米");
    EXPECT_EQ(st.measurestart, -1);
    EXPECT_TRUE(reach(st, "Label10").isvisible(st));
}

TEST_F(Measure, TheOrderOfTheEndsDoesNotMatter) {
    end();
    grip(0, -100); // 100 units to the left: 100 positions later
    end();
    const std::string forward = st.form.labels["Label10"];
    EXPECT_EQ(forward, "测量结果：0.350米");
    end();
    grip(0, 100);
    end();
    EXPECT_EQ(st.form.labels["Label10"], forward);
}

TEST_F(Measure, ACutBetweenTheEndsOrAtAnEndInvalidates) {
    s.samplegrid[5715][9] = 1; // exactly at the second end
    end();
    grip(0, -100);
    end();
    EXPECT_EQ(st.form.labels["Label10"], "请注意，存在剪辑，测量无效！");
    s.samplegrid[5715][9] = 0;
    s.samplegrid[5615][9] = 1; // at the first
    end();
    grip(0, 100);
    end();
    EXPECT_EQ(st.form.labels["Label10"], "请注意，存在剪辑，测量无效！");
}

TEST_F(Measure, TheViewMayScrollBetweenTheEnds) {
    end();
    s.viewindex = 6000; // the positions are absolute
    end();
    EXPECT_EQ(st.form.labels["Label10"], "测量结果：3.500米");
    press(st, "Label10");
    EXPECT_TRUE(reach(st, "Label20").isvisible(st));
    EXPECT_FALSE(reach(st, "Label10").isvisible(st));
}

} // namespace

namespace {

TEST_F(Pointer, ClicksOutsideThePictureWithoutAParameterRecordLeaveAClearState) {
    s.paramrec.clear(); // no parameter record in force
    for (const double x : {5000.0, -300.0}) {
        down(x, -50);
        up(x, -50);
        EXPECT_TRUE(st.Picture5visible) << x;
        EXPECT_EQ(st.gatevalues, (std::array<std::int16_t, 6>{})) << x;
        EXPECT_GE(st.amodecolumn, 0) << x;
        move(x, -50);
    }
    EXPECT_EQ(st.amodecolumn, 1200 + 250); // the cursor line at -250: the column is beyond the picture
    amodetick(st);                         // beyond the last column: paused at column 20
    EXPECT_EQ(st.amodecolumn, 20);
    EXPECT_FALSE(st.T2);
    press(st, "Command40"); // a colour change while the A-mode runs
    press(st, "Command4");
    EXPECT_EQ(st.form.captions["Labelaxxs"], "A通道A型显示");
}

} // namespace

// The A-mode picture: the echo made from the raw value, the gates of the parameter record, the marker
// over the B-mode picture, the timer and the channel chosen by the pointer.
#include "amode/amode.h"
#include "recording/hex.h"
#include "station/controls.h"
#include "station/station.h"
#include "viewfixture.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace orvane;

namespace {

class AMode : public testkit::ViewTest {
  protected:
    RecordingCanvas picture3;
    void SetUp() override {
        start();
        prepareview(20000);
        st.picture3 = &picture3;
        st.settings.latewaveshown = 0;
        s.channelkind = {"47", "46", "49", "48", "25", "26", "2D", "2E", "00"};
        s.channelscale = {1, 1, 1, 1, 1, 1, 1, 1, 1};
        // Gates of channel A: gate 1 from 40 to 4 x 60, gate 2 from 4 x 70 to 4 x 80, gate 3 4 x 90 to 4 x
        // 100.
        std::vector<std::uint8_t> record(256, 0);
        record[37] = 40, record[46] = 60, record[55] = 70, record[64] = 80, record[73] = 90, record[82] = 100;
        record[37 + 6] = 12, record[46 + 6] = 50; // channel G
        s.paramrec.assign(1, hexof(record.data(), record.size()));
        s.rulerx0 = 600 - 20; // the cursor line at x 600: column 600
    }
    // The scan of channel LETTER opened at the cursor, its first frame drawn by hand.
    void open(const std::string& letter) {
        st.amodechannel = letter;
        openamode(st);
    }
    int lines() const {
        int n = 0;
        for (const DrawOp& op : picture3.ops) n += op.kind == DrawOp::Kind::line;
        return n;
    }
    // The view index of the scan column, without a channel's word.
    std::int64_t scanned() const { return s.viewindex + st.amodecolumn; }
};

TEST_F(AMode, NineSpeedsGiveTheTimerIntervals) {
    const int intervals[] = {300, 150, 100, 75, 60, 30, 6, 4, 2};
    for (int v = 1; v <= 9; ++v) EXPECT_EQ(amodeinterval(v), intervals[v - 1]) << v;
}

TEST_F(AMode, GateBytesOfTheParameterRecordWithTheFirstNotTimesFour) {
    open("A");
    EXPECT_EQ(st.gatevalues, (std::array<std::int16_t, 6>{40, 240, 280, 320, 360, 400}));
    open("G");
    EXPECT_EQ(st.gatevalues[0], 12);
    EXPECT_EQ(st.gatevalues[1], 200);
}

TEST_F(AMode, OpeningPausesTheReplayAndRunsTheTimerAtTheCursor) {
    st.form.captions["Command8"] = "连续播放";
    press(st, "Command8");
    open("B");
    EXPECT_FALSE(st.T1);
    EXPECT_TRUE(st.T2);
    EXPECT_TRUE(st.Picture5visible);
    EXPECT_EQ(st.form.captions["Command12"], "播放暂停");
    EXPECT_EQ(st.form.captions["Labelaxxs"], "B通道A型显示");
    EXPECT_EQ(st.amodecolumn, 600);
    EXPECT_EQ(st.cursorx, 600);
    EXPECT_EQ(st.cursorcolumn, 600);
    EXPECT_EQ(st.amodelast, 1180);
    EXPECT_EQ(reach(st, "HScroll9").rangemax(st), 1181);
    st.language = "english";
    open("C");
    EXPECT_EQ(st.form.captions["Labelaxxs"], "CChannel A-mode");
}

TEST_F(AMode, NoEchoIsTheBareBaselineWithItsGateSteps) {
    open("A");
    drawamodeframe(st, false);
    EXPECT_EQ(st.echox, 0);
    EXPECT_EQ(st.tracebuffer[39], 380);
    EXPECT_EQ(st.tracebuffer[40], 372);
    EXPECT_EQ(st.tracebuffer[240], 372);
    EXPECT_EQ(st.tracebuffer[300], 380); // gate 2 lies on the baseline
    EXPECT_EQ(st.tracebuffer[360], 388);
    EXPECT_EQ(st.tracebuffer[400], 388);
    EXPECT_EQ(st.tracebuffer[401], 380);
    EXPECT_EQ(lines(), 800); // i = 0 to 799
    EXPECT_EQ(picture3.ops[0].kind, DrawOp::Kind::clear);
}

TEST_F(AMode, RawValue203IsOutOfRangeAndLeavesTheBareBaseline) {
    open("A");
    s.rawgrid[scanned() + s.pinkongval[0]][0] = 203;
    drawamodeframe(st, false);
    EXPECT_EQ(st.echox, 812);
    EXPECT_EQ(lines(), 800);
    for (int i = 0; i <= 840; ++i) EXPECT_NE(st.tracebuffer[i], 10) << i;
}

TEST_F(AMode, EchoShapeStandsAtTheEchoAndTheTopLineIsLeftOut) {
    open("A");
    s.rawgrid[scanned()][0] = 100; // echox 400
    drawamodeframe(st, false);
    EXPECT_EQ(st.echox, 400);
    const std::int16_t shape[15] = {10, 10, 30, 60, 100, 160, 180, 240, 260, 310, 340, 352, 363, 370, 376};
    EXPECT_EQ(st.tracebuffer[400], shape[0]);
    for (int o = 7; o <= 20; ++o) EXPECT_EQ(st.tracebuffer[400 + o], shape[o - 6]) << o;
    EXPECT_EQ(lines(), 400 + (799 - 407 + 1)); // 0..399, then 407..799
    for (const DrawOp& op : picture3.ops)
        if (op.kind == DrawOp::Kind::line) EXPECT_FALSE(op.x1 >= 410 && op.x1 < 417) << op.x1;
}

TEST_F(AMode, TheFrameIsDrawn820UnitsAcrossOverItsDotGrid) {
    open("A");
    drawamodeframe(st, false);
    int dots = 0;
    std::vector<double> scales;
    for (const DrawOp& op : picture3.ops) {
        dots += op.kind == DrawOp::Kind::pset;
        if (op.kind == DrawOp::Kind::scale) scales.push_back(op.x1);
    }
    EXPECT_EQ(dots, 526);
    EXPECT_EQ(scales, (std::vector<double>{820, 620}));
}

TEST_F(AMode, AtTheLastColumnPlusOneTheTimerPausesAndTheColumnReturnsTo20) {
    open("A");
    st.amodecolumn = st.amodelast;
    amodetick(st); // the column passes amodelast
    EXPECT_FALSE(st.T2);
    EXPECT_EQ(st.form.captions["Command12"], "连续播放");
    EXPECT_EQ(st.amodecolumn, 20);
}

TEST_F(AMode, LateWaveOfGWithoutItsColumnShowsOneEcho) {
    open("G");
    s.samplegrid[scanned()][6] = 10;
    s.rawgrid[scanned()][6] = 30;
    drawamodeframe(st, false);
    EXPECT_EQ(st.echox, 120);
    EXPECT_EQ(st.latex, 0);
    s.samplegrid[scanned()][10] = 8; // a late wave: 8 / 0.0323 / 1 x 4
    drawamodeframe(st, false);
    EXPECT_EQ(st.latex, 991);
    EXPECT_EQ(lines(), 120 + (799 - 127 + 1)); // the late echo has no room: drawn without it
}

TEST_F(AMode, LateEchoInRoomIsDrawnWithItsGap) {
    open("G");
    s.rawgrid[scanned()][6] = 30;
    s.samplegrid[scanned()][10] = 4; // 4 / 0.0323 x 4 = 495
    drawamodeframe(st, false);
    EXPECT_EQ(st.latex, 495);
    EXPECT_EQ(st.tracebuffer[495], 10);
    EXPECT_EQ(lines(), 120 + (494 - 127 + 1) + (799 - 502 + 1));
}

TEST_F(AMode, ChannelIReadsItsDepthBackToTheTimeBase) {
    open("I");
    s.samplegrid[scanned()][8] = 10;
    s.channelscale[8] = 2;
    drawamodeframe(st, false);
    EXPECT_EQ(st.echox, 337); // 10 / 0.0593 / 2 x 4 = 337.27
}

TEST_F(AMode, MarkerSlopesAndBottomsByKind) {
    s.railheadrow = 96, s.railwebrow = 210, s.railfootrow = 370;
    struct Case {
        std::string kind;
        double x2, bottom;
    } cases[] = {{"25", 600 - 352 * 0.1125, 370},
                 {"26", 600 + 352 * 0.1125, 370},
                 {"47", 600 - 192 * 0.432, 210},
                 {"46", 600 + 192 * 0.432, 210},
                 {"49", 600 - 78 * 0.864, 96},
                 {"4A", 600 + 78 * 0.864, 96},
                 {"44", 600, 370}};
    for (const Case& c : cases) {
        s.channelkind[0] = c.kind;
        open("A");
        placemarker(st, s, 0, false);
        EXPECT_TRUE(s.amodemarker.visible) << c.kind;
        EXPECT_EQ(s.amodemarker.x1, 600) << c.kind;
        EXPECT_EQ(s.amodemarker.x2, std::nearbyint(c.x2)) << c.kind;
        EXPECT_EQ(s.amodemarker.y1, 18) << c.kind;
        EXPECT_EQ(s.amodemarker.y2, c.bottom) << c.kind;
    }
    s.channelkind[0] = "2D";
    placemarker(st, s, 0, false);
    EXPECT_EQ(s.amodemarker.x2, 600);
    EXPECT_EQ(s.amodemarker.x1, std::nearbyint(600 - 370 / 3.0));
    EXPECT_EQ(s.amodemarker.y2, 376);
    // In the timer the slope offset moves the top by one on the main side.
    s.channelkind[0] = "47";
    placemarker(st, s, 0, true);
    EXPECT_EQ(s.amodemarker.x1, 599);
}

TEST_F(AMode, MarkerHidesUpToX0Of25) {
    open("A");
    st.amodecolumn = st.cursorcolumn + 575; // x0 = 25
    placemarker(st, s, 0, false);
    EXPECT_FALSE(s.amodemarker.visible);
    st.amodecolumn = st.cursorcolumn + 574;
    placemarker(st, s, 0, false);
    EXPECT_TRUE(s.amodemarker.visible);
}

TEST_F(AMode, FarClickChoosesChannelIAndAnEqualTieChoosesA) {
    s.channelkind = {"44", "44", "44", "44", "44", "44", "44", "44", "44"};
    st.clicky = 300;
    open(" ");
    EXPECT_EQ(st.amodechannel, "I");
    // A and B both have an echo at the click's height three positions from the cursor.
    const std::int64_t at = st.cursorposition + 3;
    s.samplegrid[at][0] = 100, s.samplegrid[at][1] = 100; // y = 100 + 18 - 6 = 112
    st.clicky = 112;
    st.amodechannel = " ";
    openamode(st);
    EXPECT_EQ(st.amodechannel, "A");
    st.form.channelshown[0] = false; // an unticked channel is not chosen
    st.amodechannel = " ";
    openamode(st);
    EXPECT_EQ(st.amodechannel, "B");
}

TEST_F(AMode, PicturePressRunsOrPausesByItsButton) {
    open("A");
    mouse(st, "Picture3", {"down", "right", 10, 10}); // running: the right button does nothing
    EXPECT_TRUE(st.T2);
    mouse(st, "Picture3", {"down", "left", 10, 10});
    EXPECT_FALSE(st.T2);
    EXPECT_EQ(st.form.captions["Command12"], "连续播放");
    mouse(st, "Picture3", {"down", "right", 10, 10});
    EXPECT_TRUE(st.T2);
}

TEST_F(AMode, ColumnBarHeldByTheUserPausesAtItsValue) {
    open("A");
    scroll(st, "HScroll9", 700);
    EXPECT_EQ(st.amodecolumn, 700); // no step while the bar holds the focus
    EXPECT_FALSE(st.T2);
    EXPECT_EQ(st.scrollheld, 1);
    EXPECT_EQ(st.form.captions["Command12"], "连续播放");
    EXPECT_THROW(scroll(st, "HScroll9", 1182), ControlError);
}

TEST_F(AMode, ActionsDuringAReplayPauseForTheMessageAndRunOn) {
    st.T1 = true;
    EXPECT_FALSE(pausefirst(st));
    EXPECT_EQ(ui.messages, std::vector<std::string>{"请暂停播放B显和A显！"});
    EXPECT_TRUE(st.T1);
    st.language = "english";
    st.T1 = false;
    st.T2 = true;
    EXPECT_FALSE(pausefirst(st));
    EXPECT_EQ(ui.messages.back(), "Please pause at first!");
    EXPECT_TRUE(st.T2);
    st.T2 = false;
    EXPECT_TRUE(pausefirst(st));
}

TEST_F(AMode, AllChannelsDrawTheirRowsAndBarsOnceAndAnEchoEachTick) {
    st.settings.channelcolor = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    openallchannels(st);
    EXPECT_EQ(st.allchannelview, -1);
    EXPECT_EQ(st.form.captions["Labelaxxs"], " A型显示");
    // Six rows, then the bars: gate 1 of A in channel I's colour from 10 + 40 to 10 + 240.
    std::vector<DrawOp> rows;
    for (const DrawOp& op : picture3.background)
        if (op.kind == DrawOp::Kind::line) rows.push_back(op);
    ASSERT_GE(rows.size(), 6u);
    EXPECT_EQ(rows[0].y1, 182);
    EXPECT_EQ(rows[5].y1, 242);
    EXPECT_EQ(rows[6].x1, 50);
    EXPECT_EQ(rows[6].x2, 250);
    EXPECT_EQ(rows[6].color, 9u);
    s.rawgrid[scanned() + 1][1] = 50; // B at the next column: x 200
    allchanneltick(st);
    int upright = 0;
    for (const DrawOp& op : picture3.ops)
        if (op.kind == DrawOp::Kind::line && op.x1 == 210 && op.x2 == 210) {
            EXPECT_EQ(op.y1, 182);
            EXPECT_EQ(op.y2, 22);
            EXPECT_EQ(op.color, 2u);
            ++upright;
        }
    EXPECT_EQ(upright, 1);
    EXPECT_TRUE(s.amodemarker.visible);
    EXPECT_EQ(s.amodemarker.x1, s.amodemarker.x2); // upright
}

TEST_F(AMode, AChannelWithoutAnEchoDrawsNothingInItsRow) {
    openallchannels(st);
    allchanneltick(st);
    int lines = 0;
    for (const DrawOp& op : picture3.ops) lines += op.kind == DrawOp::Kind::line;
    EXPECT_EQ(lines, 0);
}

TEST_F(AMode, LabelClosesThePanelAndStopsTheTimer) {
    open("A");
    press(st, "Label32");
    EXPECT_FALSE(st.T2);
    EXPECT_FALSE(st.Picture5visible);
    EXPECT_FALSE(s.amodemarker.visible);
}

} // namespace

// The GPS track: the fixes decoded, the holes filled, the scale, the drawing and Shape6, on GPS
// entries that the tests write.
#include "../reports/indexfixture.h"
#include "curves/track.h"
#include "station/controls.h"
#include "station/recordingcanvas.h"
#include "station/station.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

// A GPS entry's text with latitude DEG.MINUTES and longitude DEG.MINUTES as the instrument writes them.
std::string fix(const std::string& lat, const std::string& latmin, const std::string& lon,
                const std::string& lonmin) {
    std::string text = lat + latmin + "00" + lon + lonmin;
    return text + std::string(38 - text.size(), '0');
}
const std::string nofix = std::string(38, '0');

class TrackTest : public testkit::IndexTest {
  protected:
    RecordingCanvas picture;
    void SetUp() override {
        IndexTest::SetUp();
        st.form.mainviewenabled = true;
        st.canvases["picturegj"] = &picture;
    }
    void entries(const std::vector<std::string>& texts) {
        Side& s = z();
        s.gpstext.clear();
        s.gpspos.clear();
        for (std::size_t i = 0; i < texts.size(); ++i) {
            s.gpstext.push_back(texts[i]);
            s.gpspos.push_back(static_cast<std::int32_t>(1000 * (i + 1)));
        }
        s.gpscount = static_cast<std::int32_t>(texts.size());
        s.gpstext.push_back("");
        s.gpspos.push_back(s.lastposition);
    }
    const Station::Track& t() const { return st.track; }
};

TEST_F(TrackTest, FewerThanTwoEntriesRefuse) {
    entries({fix("45", "46123", "126", "38123")});
    press(st, "Command22");
    EXPECT_EQ(ui.messages, std::vector<std::string>{"距离过短，无法查看轨迹！"});
    EXPECT_FALSE(t().visible);
}

TEST_F(TrackTest, DegreesAndMinutesBecomeOneLinearUnit) {
    EXPECT_DOUBLE_EQ(fixvalue(45.46123), 45 * 0.6 + 0.46123);
    EXPECT_EQ(fixvalue(0), 0);
}

TEST_F(TrackTest, OneFixGivesTheDiagonal) {
    entries({nofix, fix("45", "46123", "126", "38123"), nofix, nofix});
    press(st, "Command22");
    EXPECT_EQ(t().trackvalid, 1);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(t().tracklon[i], static_cast<double>(i + 1));
        EXPECT_EQ(t().tracklat[i], static_cast<double>(i + 1));
    }
    EXPECT_EQ(t().trackfix[1], 1);
    EXPECT_EQ(t().trackfix[0], 0);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(TrackTest, IdenticalFixesGiveTheMessage) {
    entries({fix("45", "46123", "126", "38123"), fix("45", "46123", "126", "38123")});
    press(st, "Command22");
    EXPECT_EQ(ui.messages, std::vector<std::string>{"信息太少23。。。无法生成曲线"});
}

TEST_F(TrackTest, FixesOnOneMeridianTakeTheOtherFactor) {
    entries({fix("10", "00000", "020", "00000"), fix("10", "30000", "020", "00000")});
    press(st, "Command22");
    // Latitudes 6.0 and 6.3 over 410 units: 1366.67 a unit; the longitude's span is 0.
    const double scale = 410 / (6.3 - 6.0);
    EXPECT_NEAR(t().trackx[0], 60 + 410 / 2.0, 1e-9);
    EXPECT_NEAR(t().tracky[0], 410 - 30 + 80, 1e-9);
    EXPECT_NEAR(t().tracky[1], 410 - (0.3 * scale + 30) + 80, 1e-6);
}

TEST_F(TrackTest, ThreeFixesWithHolesBetweenAndAround) {
    entries({nofix, fix("10", "00000", "020", "00000"), nofix, fix("10", "30000", "020", "60000"), nofix,
             fix("11", "00000", "021", "00000"), nofix});
    press(st, "Command22");
    EXPECT_EQ(t().trackvalid, 3);
    // Linear values: (6.0, 12.0), (6.3, 12.6), (6.6, 12.6) at elements 1, 3, 5.
    const double lat[] = {5.85, 6.0, 6.15, 6.3, 6.45, 6.6, 6.75};
    const double lon[] = {11.7, 12.0, 12.3, 12.6, 12.6, 12.6, 12.6};
    for (std::size_t i = 0; i < 7; ++i) {
        EXPECT_NEAR(t().tracklat[i], lat[i], 1e-9) << i;
        EXPECT_NEAR(t().tracklon[i], lon[i], 1e-9) << i;
    }
    // Spans 0.9 of longitude and 0.9 of latitude: equal factors take the second placing.
    const double scale = 410 / 0.9;
    for (std::size_t i = 0; i < 7; ++i) {
        EXPECT_NEAR(t().trackx[i], (lon[i] - 11.7) * scale + 30, 1e-6) << i;
        const double y = (lat[i] - 5.85) * scale + 60 + (410 - 0.9 * scale) / 2;
        EXPECT_NEAR(t().tracky[i], 410 - y + 80, 1e-6) << i;
    }
}

TEST_F(TrackTest, TheDrawingStartsAtTheFirstElementAndMarksTheFixesInRed) {
    std::vector<std::string> texts;
    for (int i = 0; i < 12; ++i)
        texts.push_back(i == 11 ? nofix : fix("10", "0" + std::to_string(1000 + i), "020", "00000"));
    texts[5] = fix("10", "05000", "020", "10000");
    entries(texts);
    press(st, "Command22");
    const auto& ops = picture.ops;
    ASSERT_GT(ops.size(), 3u);
    EXPECT_EQ(ops[1].kind, DrawOp::Kind::print);
    EXPECT_EQ(ops[1].text, "起点");
    EXPECT_DOUBLE_EQ(ops[1].x1, t().trackx[0]);
    EXPECT_DOUBLE_EQ(ops[1].y1, t().tracky[0] + 5);
    int black = 0, red = 0;
    const DrawOp* lastline = nullptr;
    for (const DrawOp& op : ops) {
        if (op.kind == DrawOp::Kind::pset && op.color == 0) ++black;
        if (op.kind == DrawOp::Kind::pset && op.color == 255) ++red;
        if (op.kind == DrawOp::Kind::line) lastline = &op;
    }
    EXPECT_EQ(black, 2); // elements 0 and 10
    EXPECT_EQ(red, 11);  // every element with a fix
    // The last element's line runs to the element behind the track, which stays at 0.
    ASSERT_NE(lastline, nullptr);
    EXPECT_EQ(lastline->x2, 0);
    EXPECT_EQ(lastline->y2, 0);
    EXPECT_EQ(picture.backgroundcolor, 0xFFFFFFu);
}

TEST_F(TrackTest, ShapeSixFollowsTheReplayAndTheButtonsChangeTheSize) {
    entries({fix("10", "00000", "020", "00000"), fix("10", "30000", "020", "60000"),
             fix("11", "00000", "021", "00000")});
    z().viewmap.assign(3000, 0);
    for (std::size_t k = 0; k < 3000; ++k) z().viewmap[k] = static_cast<std::int32_t>(k);
    z().viewindex = 2500;
    press(st, "Command22");
    EXPECT_EQ(t().trackcursor, 1);
    EXPECT_DOUBLE_EQ(t().Shape6x, t().trackx[1]);
    z().viewindex = 500;
    followtrack(st);
    EXPECT_EQ(t().trackcursor, 0);
    EXPECT_TRUE(st.controls.find("Command30")->isvisible(st));
    EXPECT_FALSE(st.controls.find("Command29")->isvisible(st));
    press(st, "Command30");
    EXPECT_TRUE(t().big);
    EXPECT_EQ(picture.scalewidth, 1000);
    EXPECT_TRUE(st.controls.find("Command29")->isvisible(st));
    press(st, "Command28");
    EXPECT_FALSE(t().visible);
    EXPECT_FALSE(t().Timer1);
}

TEST_F(TrackTest, LettersAndBlanksWhereDigitsBelongAndAFixOfLongitudeZeroInTheMiddle) {
    entries({fix("10", "00000", "020", "00000"), "4X12abcdZ0a0zzzzz" + std::string(21, ' '),
             fix("10", "00000", "000", "00000"), fix("10", "30000", "020", "60000")});
    press(st, "Command22");
    EXPECT_EQ(t().trackvalid, 2);
    EXPECT_EQ(t().trackfix[2], 0);
    EXPECT_NEAR(t().tracklon[2], (3000 - 1000) * (0.6 / 3000) + 12.0, 1e-9);
}

} // namespace
} // namespace orvane

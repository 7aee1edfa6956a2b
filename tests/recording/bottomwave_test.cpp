// The made bottom wave of channel I after a walk.
#include "ktrbuilder.h"
#include "recording/zaodibo.h"
#include "stationfixture.h"

#include <gtest/gtest.h>

using namespace orvane;
using testkit::Job;
using testkit::KtrBuilder;
using testkit::Param;
using testkit::Sample;

namespace {

// The fixed random source gives 0.5: runs of Int(0.5 · 16 + 5) = 13 positions, each 13th position
// stepping up by 2 · 0.5 units.
class BottomWave : public testkit::StationTest {
  protected:
    void SetUp() override {
        st.railheight = {0, 280, 304, 352, 384};
        st.settings.losswavelimit = 25;
    }
    Side& load(const KtrBuilder& b, Side& side, const std::string& name = "run.ktr") {
        return walkrecording(b.bytes(), side, name);
    }
    Side& load(const KtrBuilder& b) { return load(b, st.zhu); }
    static KtrBuilder started(const Param& p = {}) {
        KtrBuilder b;
        b.param(p).samples({Sample{.step = 0}});
        return b;
    }
};

TEST_F(BottomWave, RecordingWithoutLossShowsACompleteFootLine) {
    Side& s = load(started());
    ASSERT_EQ(s.lastposition, 1200);
    for (std::int64_t p = 0; p <= s.lastposition; ++p) {
        const std::int16_t expected = (p + 1) % 13 == 0 ? 353 : 352;
        ASSERT_EQ(s.samplegrid[p][8], expected) << p;
        ASSERT_EQ(s.rawvalue(p, 8), 0) << p;
    }
}

TEST_F(BottomWave, EchoesOfChannelIStayAndAreNotCounted) {
    KtrBuilder b = started();
    b.detection({{5, 9, 100}}); // position 805
    Side& s = load(b);
    EXPECT_EQ(s.samplegrid[805][8], 6); // 0.0593 · 100
    // counted without 805: position 806 is the 806th empty one, a multiple of 13
    EXPECT_EQ(s.samplegrid[806][8], 353);
    EXPECT_EQ(s.samplegrid[818][8], 352);
    EXPECT_EQ(s.samplegrid[819][8], 353);
}

TEST_F(BottomWave, LossClearsTheFootAndALongOneIsMarked) {
    KtrBuilder b = started();
    b.detection({{300, 0xFE, 30}, {350, 0xFE, 25}});
    Side& s = load(b);
    EXPECT_NE(s.samplegrid[1070][8], 0);
    for (std::int64_t p = 1071; p <= 1100; ++p) {
        EXPECT_EQ(s.samplegrid[p][8], 0) << p;
        EXPECT_EQ(s.rawvalue(p, 8), Side::losssign) << p;
    }
    EXPECT_NE(s.samplegrid[1101][8], 0);
    // 25 is not above the limit of 25: cleared but not reportable
    for (std::int64_t p = 1126; p <= 1150; ++p) {
        EXPECT_EQ(s.samplegrid[p][8], 0) << p;
        EXPECT_EQ(s.rawvalue(p, 8), 0) << p;
    }
    EXPECT_EQ(s.rawvalue(1125, 8), 0);
}

TEST_F(BottomWave, LoweringTheLossLimitMarksMoreAndRaisingItKeepsTheMarks) {
    KtrBuilder b = started();
    b.detection({{300, 0xFE, 30}, {350, 0xFE, 25}});
    Side& s = load(b);
    st.settings.losswavelimit = 10;
    markbottomloss(st, s);
    EXPECT_EQ(s.rawvalue(1140, 8), Side::losssign);
    st.settings.losswavelimit = 40;
    markbottomloss(st, s);
    EXPECT_EQ(s.rawvalue(1140, 8), Side::losssign);
    EXPECT_EQ(s.rawvalue(1090, 8), Side::losssign);
}

TEST_F(BottomWave, SubwayRecordingDrawsColumnFourAndClearsItOverFdEntries) {
    KtrBuilder b = started();
    b.job(Job{.step = 10, .resetmode = 0x02}).detection({{300, 0xFD, 10}});
    Side& s = load(b);
    ASSERT_EQ(st.subwayflag, "beijingditie");
    EXPECT_EQ(s.samplegrid[0][4], 357);
    EXPECT_EQ(s.samplegrid[1090][4], 357);
    EXPECT_EQ(s.samplegrid[1091][4], 0);
    EXPECT_EQ(s.samplegrid[1100][4], 0);
    EXPECT_EQ(s.samplegrid[1101][4], 357);
}

TEST_F(BottomWave, OtherRecordingsLeaveColumnFour) {
    Side& s = load(started());
    EXPECT_EQ(s.samplegrid[100][4], 0);
}

TEST_F(BottomWave, EachParameterSegmentTakesItsRailHeight) {
    Param second;
    second.rail = 1;
    second.step = 200;
    KtrBuilder b = started();
    b.param(second);
    Side& s = load(b);
    EXPECT_EQ(s.samplegrid[999][8], 352);
    EXPECT_EQ(s.samplegrid[1001][8], 280);
    EXPECT_EQ(s.samplegrid[1200][8], 280);
}

TEST_F(BottomWave, RailOverrideFortyFiveLowersTheSeventyFiveRail) {
    st.railoverride = "45";
    Param p;
    p.rail = 4;
    Side& s = load(started(p));
    EXPECT_EQ(s.samplegrid[0][8], 290);
}

TEST_F(BottomWave, RailCodeOutsideOneToFourKeepsTheHeightBefore) {
    Param p;
    p.rail = 0;
    Side& s = load(started(p));
    EXPECT_EQ(s.samplegrid[0][8], 352);
}

TEST_F(BottomWave, ComparisonSideHasItsFootLineToo) {
    Side& s = load(started(), st.cong, "other.ktr");
    EXPECT_EQ(s.samplegrid[0][8], 352);
    EXPECT_EQ(s.samplegrid[12][8], 353);
}

} // namespace

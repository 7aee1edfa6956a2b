// Hits and events of the detection records.
#include "ktrbuilder.h"
#include "stationfixture.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace orvane;
using testkit::Hit;
using testkit::KtrBuilder;
using testkit::Param;
using testkit::Sample;

namespace {

class Detection : public testkit::StationTest {
  protected:
    // Walks a recording of one parameter record, one sample and the given detection entries.
    Side& walk(const std::vector<Hit>& hits, const Param& p = {}) {
        KtrBuilder b;
        b.param(p).samples({Sample{}}).detection(hits);
        return walkrecording(b.bytes(), st.zhu);
    }
};

TEST_F(Detection, AngledKindsUseTheShearSpeedInTheirOwnColumn) {
    for (std::uint8_t kind : {0x45, 0x44, 0x49, 0x4A, 0x4B, 0x48, 0x47, 0x46, 0x25, 0x26}) {
        Param p;
        p.kinds[2] = kind;
        p.scales[2] = 7;
        Side& s = walk({{10, 3, 200}}, p);
        EXPECT_EQ(s.samplegrid[810][2], 45) << int(kind);
        EXPECT_EQ(s.rawgrid[810][2], 200) << int(kind);
    }
}

TEST_F(Detection, StraightKindsTwelveAndThirteenUseTheLongitudinalSpeed) {
    for (std::uint8_t kind : {0x12, 0x13}) {
        Param p;
        p.kinds[1] = kind;
        p.scales[1] = 3;
        Side& s = walk({{10, 2, 100}}, p);
        EXPECT_EQ(s.samplegrid[810][1], 18);
    }
}

TEST_F(Detection, KindZeroGoesToColumnEightWithItsOwnMultiplier) {
    Param p;
    p.kinds[0] = 0x00;
    p.scales[0] = 5;
    Side& s = walk({{10, 1, 77}}, p);
    EXPECT_EQ(s.samplegrid[810][8], 23);
    EXPECT_EQ(s.rawgrid[810][8], 77);
    EXPECT_EQ(s.samplegrid[810][0], 0);
}

TEST_F(Detection, SecondValuesOfGHAndIGoToTheLateWaveColumns) {
    Param p;
    p.scales = {1, 1, 1, 1, 1, 1, 2, 3, 4};
    Side& s = walk({{10, 0x0B, 50}, {11, 0x0C, 60}, {12, 0x0D, 70}}, p);
    EXPECT_EQ(s.samplegrid[810][10], 3);
    EXPECT_EQ(s.samplegrid[811][11], 6);
    EXPECT_EQ(s.samplegrid[812][12], 17);
    EXPECT_EQ(s.rawgrid[812][12], 70);
}

TEST_F(Detection, CellValueRoundsToTheNearestWhole) {
    Param p;
    p.scales[6] = 200;
    Side& s = walk({{10, 7, 1}, {11, 7, 3}}, p);
    EXPECT_EQ(s.samplegrid[810][6], 6);  // 0.0323 * 200 = 6.46
    EXPECT_EQ(s.samplegrid[811][6], 19); // 0.0323 * 600 = 19.38
}

TEST_F(Detection, CodeTenChangesNoCell) {
    Side& s = walk({{10, 0x0A, 99}});
    for (int c = 0; c < 13; ++c) EXPECT_EQ(s.samplegrid[810][c], 0) << c;
    EXPECT_EQ(s.markcount, 0);
    EXPECT_EQ(st.markstate, 1);
}

TEST_F(Detection, InvalidCodeDropsTheRestOfTheRecord) {
    Side& s = walk({{10, 1, 5}, {11, 0x20, 5}, {12, 1, 6}});
    EXPECT_EQ(s.rawgrid[810][0], 5);
    EXPECT_EQ(s.rawgrid[812][0], 0);
}

TEST_F(Detection, KindsTwoDAndTwoEAreDropped) {
    Param p;
    p.kinds[0] = 0x2D;
    p.kinds[1] = 0x2E;
    Side& s = walk({{10, 1, 5}, {10, 2, 5}}, p);
    for (int c = 0; c < 13; ++c) EXPECT_EQ(s.samplegrid[810][c], 0) << c;
}

TEST_F(Detection, AttributeMarkValueZeroAddsNothing) {
    Side& s = walk({{10, 0xFB, 0}});
    EXPECT_EQ(s.samplegrid[810][9], 0);
    EXPECT_EQ(s.markcount, 0);
}

TEST_F(Detection, AttributeMarkIsValuePlusHundred) {
    Side& s = walk({{10, 0xFB, 5}});
    EXPECT_EQ(s.samplegrid[810][9], 105);
    EXPECT_EQ(s.markcount, 1);
    EXPECT_EQ(s.marktext[0], "105");
    EXPECT_EQ(s.markpos[0], 810);
}

TEST_F(Detection, ReverseLengthIsWrittenAHundredBehind) {
    Side& s = walk({{200, 0xFC, 255}, {201, 0xFC, 254}});
    EXPECT_EQ(s.samplegrid[900][9], 1255);
    EXPECT_EQ(s.samplegrid[901][9], 1254);
}

TEST_F(Detection, BottomLossAndFdEntriesAreListed) {
    Side& s = walk({{10, 0xFE, 30}, {20, 0xFD, 4}});
    EXPECT_EQ(s.fecount, 1);
    EXPECT_EQ(s.fepos[0], 810);
    EXPECT_EQ(s.feval[0], 30);
    EXPECT_EQ(s.fdcount, 1);
    EXPECT_EQ(s.fdpos[0], 820);
    EXPECT_EQ(s.fdval[0], 4);
}

TEST_F(Detection, StopIsMarkedThreeHundredAhead) {
    Side& s = walk({{10, 0xFF, 0x01}});
    EXPECT_EQ(s.samplegrid[1110][9], 1);
    EXPECT_EQ(s.stopcount, 1);
    EXPECT_EQ(s.stoplist[0], 810);
    EXPECT_EQ(s.markcount, 0);
}

TEST_F(Detection, MileageCheckIsListed) {
    Side& s = walk({{10, 0xFF, 0x02}});
    EXPECT_EQ(s.samplegrid[810][9], 12345);
    EXPECT_EQ(s.marktext[0], "12345");
}

TEST_F(Detection, OperatorMarksZeroToFour) {
    Side& s =
        walk({{10, 0xFF, 0x0A}, {11, 0xFF, 0x0B}, {12, 0xFF, 0x0C}, {13, 0xFF, 0x0D}, {14, 0xFF, 0x0E}});
    for (int n = 0; n < 5; ++n) {
        EXPECT_EQ(s.samplegrid[810 + n][9], 10 + n);
        EXPECT_EQ(s.marktext[n], std::to_string(n));
        EXPECT_EQ(s.markpos[n], 810 + n);
    }
}

TEST_F(Detection, IntegralModeMarkIsNotListed) {
    Side& s = walk({{10, 0xFF, 0x0F}});
    EXPECT_EQ(s.samplegrid[810][9], 12346);
    EXPECT_EQ(s.markcount, 0);
}

TEST_F(Detection, MarkWhereARestartStandsMovesTwentyOn) {
    KtrBuilder b;
    b.param().job(0x53, 10).samples({Sample{}}).detection({{10, 0xFF, 0x02}, {10, 0xFF, 0x0F}});
    walkrecording(b.bytes(), st.zhu, "run.ktr");
    EXPECT_EQ(st.zhu.samplegrid[810][9], 23);
    EXPECT_EQ(st.zhu.samplegrid[830][9], 12346); // the second write went on too
}

TEST_F(Detection, PlainTurnoutNumbersCountWhileMarkStateIsOne) {
    Side& s = walk({{10, 0xFF, 50}, {20, 0xFF, 250}});
    EXPECT_EQ(s.samplegrid[810][9], 2000);
    EXPECT_EQ(s.samplegrid[820][9], 2200);
    EXPECT_EQ(s.marktext[0], "2000");
    EXPECT_EQ(s.marktext[1], "2200");
}

TEST_F(Detection, TurnoutHundredsCodeSetsMarkStateZeroAndStopsPlainNumbers) {
    Side& s = walk({{10, 0xF2, 30}, {20, 0xFF, 60}});
    EXPECT_EQ(st.markstate, 0);
    EXPECT_EQ(s.samplegrid[810][9], 200 * 2 + 30 - 50 + 2000);
    EXPECT_EQ(s.marktext[0], "2380");
    EXPECT_EQ(s.samplegrid[820][9], 0);
    EXPECT_EQ(s.markcount, 1);
}

TEST_F(Detection, TurnoutNumberCodeSetsMarkStateFour) {
    Side& s = walk({{10, 0x95, 7}, {20, 0xC5, 1}, {30, 0xFF, 60}});
    EXPECT_EQ(st.markstate, 4);
    EXPECT_EQ(s.samplegrid[810][9], 200 * 5 + 7 + 1950);
    EXPECT_EQ(s.samplegrid[820][9], 200 * 53 + 1 + 1950);
    EXPECT_EQ(s.samplegrid[830][9], 0);
}

TEST_F(Detection, CodeC6IsNoTurnout) {
    Side& s = walk({{10, 0xC6, 7}});
    EXPECT_EQ(s.samplegrid[810][9], 0);
    EXPECT_EQ(st.markstate, 1);
}

TEST_F(Detection, EmptyFirstEntryLeavesLastPositionZeroUntilTheEndRules) {
    KtrBuilder b;
    b.param().detection({{5000, 1, 1}}).detection({});
    walkrecording(b.bytes(), st.zhu, "run.ktr");
    EXPECT_EQ(st.zhu.lastposition, 0); // no sample or job record to restore it from
    KtrBuilder c;
    c.param().samples({Sample{.step = 100}}).detection({{5000, 1, 1}}).detection({});
    walkrecording(c.bytes(), st.zhu, "two.ktr");
    EXPECT_EQ(st.zhu.lastposition, 900 + 400);
}

TEST_F(Detection, WithoutAParameterRecordDetectionIsIgnored) {
    KtrBuilder b;
    b.samples({Sample{}}).detection({{10, 1, 50}});
    walkrecording(b.bytes(), st.zhu, "run.ktr");
    EXPECT_EQ(st.zhu.rawgrid[810][0], 0);
    EXPECT_EQ(st.zhu.quartercount, 0);
}

TEST_F(Detection, ParameterWordsAreSignedLowByteFirst) {
    Param p;
    p.words[0] = 0xFFFF;
    p.words[1] = 0x0102;
    Side& s = walk({}, p);
    EXPECT_EQ(s.pinkongval[0], -1);
    EXPECT_EQ(s.pinkongval[1], 0x0102);
    EXPECT_EQ(s.channelkind[0], "47");
    EXPECT_EQ(s.channelkind[8], "00");
}

TEST_F(Detection, ComparisonSideHasNoAttributeMarksAndNoRawLateWaves) {
    KtrBuilder b;
    b.param()
        .samples({Sample{}})
        .detection({{10, 0xFB, 5}, {11, 0x0B, 50}, {12, 0xFD, 1}, {13, 0x20, 1}, {14, 1, 9}});
    walkrecording(b.bytes(), st.cong, "other.ktr");
    EXPECT_EQ(st.cong.markcount, 0);
    EXPECT_EQ(st.cong.samplegrid[810][9], 0);
    EXPECT_EQ(st.cong.samplegrid[811][10], 2); // 0.0323 * 50 = 1.615
    EXPECT_EQ(st.cong.rawgrid[811][10], 0);
    EXPECT_EQ(st.cong.rawgrid[814][0], 9); // an invalid code does not end the comparison record
}

} // namespace

// Files as they come off the instruments in the field: mangled, cut short, far past the limits. Each
// test is one input that went wrong once, with the state it must leave.
#include "ktrbuilder.h"
#include "recording/walk.h"
#include "station/grids.h"
#include "station/lists.h"
#include "station/numbers.h"
#include "stationfixture.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace orvane;
using testkit::KtrBuilder;
using testkit::Param;
using testkit::Sample;

namespace {

class AnyFile : public testkit::StationTest {
  protected:
    KtrBuilder started(const Param& p = {}) {
        KtrBuilder b;
        b.param(p).samples({Sample{}});
        return b;
    }
};

TEST_F(AnyFile, RestartFarPastTheLimitEndsTheLoadInsideTheGrids) {
    KtrBuilder b = started();
    b.detection({{100, 1, 5}}).job(0x53, 0xFFFFFF).detection({{10, 1, 9}});
    Side& s = walkrecording(b.bytes(), st.zhu);
    ASSERT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(ui.messages[0], "记录位置超出范围，载入停止：" + s.filepath + "，位置 " +
                                  std::to_string(1800 + 0xFFFFFF) + "（最多到位置 6400000）");
    EXPECT_EQ(ui.messages[1], "记录位置超出范围：" + s.filepath + "，结束位置 " +
                                  std::to_string(1800 + 0xFFFFFF + 400) + " 截至 6400000");
    EXPECT_EQ(s.lastposition, 6400000);
    EXPECT_EQ(s.abortflag, 1);
    EXPECT_LE(s.gridrows, 6400001);
    EXPECT_EQ(s.rawgrid[900][0], 5);
}

TEST_F(AnyFile, RestartJustBelowTheGridsEndLoadsAsWritten) {
    KtrBuilder b = started();
    b.detection({{100, 1, 5}}).job(0x53, 6399000 - 1800);
    Side& s = walkrecording(b.bytes(), st.zhu);
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(s.samplegrid[6399000][9], 23);
    EXPECT_EQ(s.lastposition, 6399400);
}

TEST_F(AnyFile, AChannelKindUnderAComparisonCodeFromFourteenOnWritesNoCell) {
    KtrBuilder b = started();
    b.detection({{100, 0x45, 77}, {101, 0x25, 78}, {102, 1, 60}});
    st.cong.filepath = writefile("other.ktr", b.bytes());
    ASSERT_TRUE(walkfile(st, st.cong));
    for (std::int64_t p = 890; p <= 910; ++p)
        for (int c = 0; c < Side::gridcolumns; ++c) {
            if (p == 902 && c == 0) continue;
            // Column 8 of the scaled grid holds the made bottom wave.
            if (c != 8) EXPECT_EQ(st.cong.samplegrid[p][c], 0) << p << " " << c;
            EXPECT_EQ(st.cong.rawgrid[p][c], 0) << p << " " << c;
        }
    EXPECT_EQ(st.cong.rawgrid[902][0], 60);
}

TEST_F(AnyFile, ListsReadEmptyBehindTheirCounts) {
    KtrBuilder b = started();
    b.samples({Sample{.metres = 500, .step = 400}}).detection({{500, 1, 5}});
    Side& s = walkrecording(b.bytes(), st.zhu);
    ASSERT_EQ(s.samplecount, 2);
    EXPECT_EQ(s.samplepos[s.samplecount], s.lastposition); // the sentinel
    EXPECT_EQ(s.samplepos[s.samplecount + 50], 0);
    EXPECT_EQ(s.sampleclock[s.samplecount + 1], "");
    EXPECT_EQ(s.samplepos.size(), 100001u);
    EXPECT_EQ(s.marktext.size(), 10001u);
    const Side& z = s;
    EXPECT_EQ(z.gpstext[9000], "");
    EXPECT_EQ(z.fepos[100000], 0);
}

TEST(EventLists, AWritePastTheBoundChangesNothing) {
    EventList<std::int32_t> list(3, 0);
    list[1] = 7;
    list[3] = 9; // past the bound: a spare
    EXPECT_EQ(list.size(), 3u);
    EXPECT_EQ(list[3], 0);
    EXPECT_EQ(list[1], 7);
    EXPECT_EQ(list[2], 0);
    list.push_back(4);
    EXPECT_EQ(list.size(), 4u);
    EXPECT_EQ(list[3], 4);
    EXPECT_EQ(list.back(), 4);
}

TEST(Grids, AGridAfterAnotherIsGoneReadsZeroInEveryCell) {
    {
        Grid<std::int16_t, 13> first;
        ASSERT_TRUE(first.reserverows(70000, 6400000));
        for (std::int64_t p = 0; p <= 70000; ++p)
            for (int c = 0; c < 13; ++c) first[p][c] = static_cast<std::int16_t>(p + c + 1);
    }
    Grid<std::int16_t, 13> second;
    ASSERT_TRUE(second.reserverows(70000, 6400000));
    std::int64_t nonzero = 0;
    for (std::int64_t p = 0; p <= 70000; ++p)
        for (int c = 0; c < 13; ++c) nonzero += second[p][c] != 0;
    EXPECT_EQ(nonzero, 0);
    ASSERT_TRUE(second.reserverows(140000, 6400000));
    second[140000][12] = 5;
    EXPECT_EQ(second[140000][12], 5);
    EXPECT_EQ(second.rows(), 140001);
}

TEST(Numbers, RoundEvenIsTheLibrarysRoundingToNearestEven) {
    const double values[] = {0.5,
                             1.5,
                             2.5,
                             -0.5,
                             -1.5,
                             -2.5,
                             0.49999999999999994,
                             3855.5,
                             -0.25,
                             1e15 + 0.5,
                             4503599627370495.5,
                             1e300,
                             -1e300,
                             std::numeric_limits<double>::infinity(),
                             12.7 * 0.0323 * 255};
    for (double v : values) {
        EXPECT_EQ(orvane::roundeven(v), std::nearbyint(v)) << v;
        EXPECT_EQ(std::signbit(orvane::roundeven(v)), std::signbit(std::nearbyint(v))) << v;
    }
    EXPECT_TRUE(std::isnan(orvane::roundeven(std::nan(""))));
}

} // namespace

// The analysis index: the lists of marks, integral values and handovers, the mark filter, the row
// clicks and the switch search.
#include "indexfixture.h"
#include "reports/index.h"
#include "station/station.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

using testkit::IndexTest;
using testkit::jobimage;
using testkit::sampleclock;

TEST_F(IndexTest, WithoutSamplesTheIntegralListHasOnlyItsHeadsAndMarksReadTheZeroSentinels) {
    samples({});
    marks({{5000, "2"}});
    indexload(st);
    ASSERT_EQ(st.form.Grid1jf.size(), 1u);
    EXPECT_EQ(st.form.Grid1jf[0][0], "里程(km)");
    ASSERT_EQ(st.form.Grid1ts.size(), 2u);
    EXPECT_EQ(st.form.Grid1ts[1][1], "标记2");
    EXPECT_EQ(st.form.Grid1ts[1][3], "0.0");
}

TEST_F(IndexTest, AMarkAtASamplesPositionBelongsToTheWindowThatStartsThere) {
    samples({{1000, 5.0f, "08300000010000"}, {2000, 3.0f, "08300100010000"}, {3000, 1.0f, "08300200010000"}});
    marks({{2000, "1"}, {2999, "2"}});
    indexload(st);
    // Window 1 is [2000, 3000): the slower of samples 1 and 2.
    EXPECT_EQ(st.form.Grid1ts[1][3], "1.0");
    EXPECT_EQ(st.form.Grid1ts[2][3], "1.0");
    std::int32_t k = 0;
    EXPECT_EQ(speedatmark(z(), 1999, k), 3.0f);
    EXPECT_EQ(k, 0);
    EXPECT_EQ(speedatmark(z(), 2000, k), 1.0f);
    EXPECT_EQ(k, 1);
}

TEST_F(IndexTest, TheRunningIndexEndsAtTheSentinelWhenNoWindowHoldsThePosition) {
    samples({{1000, 2.0f, "08300000010000"}, {2000, 3.0f, "08300100010000"}});
    std::int32_t k = 0;
    speedatmark(z(), 500, k);
    EXPECT_EQ(k, 2);
}

TEST_F(IndexTest, MarkCodesReadByTheTable) {
    EXPECT_EQ(marktypetext(st, "3"), "标记3");
    EXPECT_EQ(marktypetext(st, "12345"), "里程校对");
    EXPECT_EQ(marktypetext(st, "12346"), "积分模式");
    EXPECT_EQ(marktypetext(st, "2051"), "道岔101");
    EXPECT_EQ(marktypetext(st, "1949"), "道岔-1");
    EXPECT_EQ(marktypetext(st, "12000"), "");
    EXPECT_EQ(marktypetext(st, "101"), st.settings.biaojikcpair[1][0]);
    EXPECT_EQ(marktypetext(st, "137"), st.settings.biaojikcpair[37][0]);
    EXPECT_EQ(marktypetext(st, "138"), "");
    EXPECT_EQ(marktypetext(st, "50"), "");
}

TEST_F(IndexTest, EveryMarkHasARowInTheIndexAndTheFilterDropsAMarkOfFiveToNinetyNine) {
    samples({{0, 2.0f, "08300000010000"}, {90000, 2.0f, "08300100010000"}});
    marks({{1000, "0"}, {2000, "50"}, {3000, "12346"}, {4000, "105"}, {5000, "101"}});
    mileage(0, 6000, 12.5f);
    indexload(st);
    ASSERT_EQ(st.form.Grid1ts.size(), 6u);
    EXPECT_EQ(st.form.Grid1ts[2], (std::vector<std::string>{"2", "", "0012.500", "2.0"}));
    markfilter(st);
    ASSERT_EQ(st.form.Grid1ts.size(), 5u);
    for (std::size_t r = 1; r < st.form.Grid1ts.size(); ++r) EXPECT_NE(st.form.Grid1ts[r][1], "");
    EXPECT_EQ(st.form.Grid1ts[2][0], "2");
    EXPECT_EQ(st.markrowpos[1], 3000);
}

TEST_F(IndexTest, WithAllBoxesClearIntegralModeAndAttributeMarksOtherThan105And106StillShow) {
    samples({{0, 2.0f, "08300000010000"}, {90000, 2.0f, "08300100010000"}});
    marks({{1000, "0"},
           {2000, "2051"},
           {3000, "12346"},
           {4000, "105"},
           {4500, "106"},
           {5000, "101"},
           {6000, "12345"}});
    st.form.Checkts.fill(false);
    markfilter(st);
    ASSERT_EQ(st.form.Grid1ts.size(), 3u);
    EXPECT_EQ(st.form.Grid1ts[1][1], "积分模式");
    EXPECT_EQ(st.form.Grid1ts[2][1], st.settings.biaojikcpair[1][0]);
    EXPECT_EQ(st.markrowpos[0], 3000);
    EXPECT_EQ(st.markrowpos[1], 5000);
}

TEST_F(IndexTest, TheCalibrationBoxGovernsTheCalibrationMarkAnd105And106) {
    samples({{0, 2.0f, "08300000010000"}, {90000, 2.0f, "08300100010000"}});
    marks({{1000, "12345"}, {2000, "105"}, {3000, "106"}, {4000, "2051"}, {5000, "3"}});
    st.form.Checkts.fill(false);
    st.form.Checkts[6] = true;
    markfilter(st);
    ASSERT_EQ(st.form.Grid1ts.size(), 4u);
    EXPECT_EQ(st.form.Grid1ts[1][1], "里程校对");
    EXPECT_EQ(st.form.Grid1ts[2][1], st.settings.biaojikcpair[5][0]);
    EXPECT_EQ(st.form.Grid1ts[3][1], st.settings.biaojikcpair[6][0]);
    st.form.Checkts.fill(false);
    st.form.Checkts[5] = st.form.Checkts[3] = true;
    markfilter(st);
    ASSERT_EQ(st.form.Grid1ts.size(), 3u);
    EXPECT_EQ(st.form.Grid1ts[1][1], "道岔101");
    EXPECT_EQ(st.form.Grid1ts[2][1], "标记3");
}

TEST_F(IndexTest, TheBoxesAreReachedAsCheckBoxesAndRefilterTheList) {
    samples({{0, 2.0f, "08300000010000"}, {90000, 2.0f, "08300100010000"}});
    marks({{1000, "0"}, {2000, "1"}});
    indexload(st);
    ASSERT_EQ(st.form.Grid1ts.size(), 3u);
    setcontrol(st, "Checkts(0)", "0");
    ASSERT_EQ(st.form.Grid1ts.size(), 2u);
    EXPECT_EQ(st.form.Grid1ts[1][1], "标记1");
}

TEST_F(IndexTest, IntegralValuesStandRightAlignedInThreeCharacters) {
    samples({{0, 2.0f, "08300000010000"}});
    z().gpstext = {"454612350126381236" + std::string("7A0509FF00646E7080"), ""};
    z().gpspos = {4000, z().lastposition};
    z().gpscount = 1;
    mileage(0, 4000, 12.3456f);
    indexload(st);
    ASSERT_EQ(st.form.Grid1jf.size(), 2u);
    EXPECT_EQ(st.form.Grid1jf[1], (std::vector<std::string>{"0012.3456", "122", "  5", "  9", "255", "  0",
                                                            "100", "110", "112", "128"}));
}

TEST_F(IndexTest, TwoJobRecordsOfTheSameOperatorAndTrackGiveNoRowHoweverFarApart) {
    samples({{0, 2.0f, "08300000010000"}, {90000, 2.0f, "09300000010000"}});
    jobs({{0, jobimage("001", "003")}, {80000, jobimage("001", "003")}});
    indexload(st);
    ASSERT_EQ(st.form.Grid1ry.size(), 3u);
    EXPECT_EQ(st.form.Grid1ry[1][0], "执机：张伟");
    EXPECT_EQ(st.form.Grid1ry[2][0], "股道：003");
}

TEST_F(IndexTest, AChangedOperatorOrTrackGivesItsRowsJobRowsBeforeJumpRows) {
    samples({{0, 2.0f, sampleclock("083000", 12, 0)},
             {1000, 2.0f, sampleclock("083001", 12, 5)},
             {2000, 2.0f, sampleclock("083002", 12, 10)},
             {3000, 2.0f, sampleclock("083003", 12, 15)},
             {4000, 2.0f, sampleclock("083004", 12, 500)},
             {5000, 2.0f, sampleclock("083005", 12, 505)},
             {6000, 2.0f, sampleclock("083006", 12, 510)}});
    jobs({{0, jobimage("001", "003")}, {5500, jobimage("002", "004")}});
    mileage(0, 6000, 12.25f);
    indexload(st);
    ASSERT_EQ(st.form.Grid1ry.size(), 6u);
    EXPECT_EQ(st.form.Grid1ry[3], (std::vector<std::string>{"执机：李娜", "0012.250", "08:30:05"}));
    EXPECT_EQ(st.form.Grid1ry[4][0], "股道：004");
    EXPECT_EQ(st.form.Grid1ry[5], (std::vector<std::string>{"里程突变", "0012.250", "08:30:04"}));
    EXPECT_EQ(st.handoverrowpos[2], 5500);
    EXPECT_EQ(st.handoverrowpos[4], 4000);
}

TEST_F(IndexTest, AStepOfTwentyMetresGivesNoJumpAndAnyStepMoreGivesOne) {
    auto run = [&](int metres) {
        samples({{0, 2.0f, sampleclock("083000", 12, 0)},
                 {1000, 2.0f, sampleclock("083001", 12, 100)},
                 {2000, 2.0f, sampleclock("083002", 12, 200)},
                 {3000, 2.0f, sampleclock("083003", 12, 300)},
                 {4000, 2.0f, sampleclock("083004", 12, 300 + metres)}});
        jobs({});
        indexload(st);
        return st.form.Grid1ry.size() - 1;
    };
    EXPECT_EQ(run(20), 0u);
    EXPECT_EQ(run(21), 1u);
    // Kilometres and metres read as one number and counted in whole metres, so that 12.320 less
    // 12.300 is exactly 20.
    EXPECT_EQ(clockmetres("08300000123200") - clockmetres("08300000123000"), 20);
    EXPECT_EQ(clockmetres("08300000130000") - clockmetres("08300000129790"), 21);
}

TEST_F(IndexTest, SamplesZeroToTwoAreNeverExamined) {
    samples({{0, 2.0f, sampleclock("083000", 1, 0)},
             {1000, 2.0f, sampleclock("083001", 5, 0)},
             {2000, 2.0f, sampleclock("083002", 9, 0)},
             {3000, 2.0f, sampleclock("083003", 12, 0)},
             {4000, 2.0f, sampleclock("083004", 12, 5)}});
    jobs({});
    indexload(st);
    EXPECT_EQ(st.form.Grid1ry.size(), 1u);
}

TEST_F(IndexTest, AnOperatorNumberIsComparedByItsValueAndAnUnknownOneStandsForItself) {
    EXPECT_EQ(operatorname(st, "012"), "刘洋");
    EXPECT_EQ(operatorname(st, "007"), "007");
    st.gpsxdb->exec("insert into gzryb(bh,xm,bz,gwd) values('7', ?, '', '')", {"O'Brien \"老王\""});
    EXPECT_EQ(operatorname(st, "007"), "O'Brien \"老王\"");
    EXPECT_EQ(operatortext(jobimage("012", "003")), "012");
    EXPECT_EQ(tracknumber(jobimage("012", "347")), "347");
}

TEST_F(IndexTest, RowPositionsAreOverwrittenInPlaceAndTheirOldTailStays) {
    samples({{0, 2.0f, "08300000010000"}, {90000, 2.0f, "08300100010000"}});
    marks({{1000, "0"}, {2000, "1"}, {3000, "2"}});
    indexload(st);
    marks({{7000, "4"}});
    indexload(st);
    EXPECT_EQ(st.markrowpos[0], 7000);
    EXPECT_EQ(st.markrowpos[1], 2000);
    EXPECT_EQ(st.markrowpos[2], 3000);
}

TEST_F(IndexTest, IndexOpensThePanelOnItsFirstTab) {
    samples({{0, 2.0f, "08300000010000"}, {90000, 2.0f, "08300100010000"}});
    st.form.SSTab1 = 6;
    indexload(st);
    EXPECT_TRUE(st.form.Frame3visible);
    EXPECT_EQ(st.form.SSTab1, 0);
}

} // namespace
} // namespace orvane

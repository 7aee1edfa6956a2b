// The filter of short echo runs: what it wipes, what it keeps as events, the list of hits, the
// backup in the comparison store and its cancel.
#include "processing/filter.h"
#include "station/controls.h"
#include "station/station.h"
#include "viewfixture.h"

#include <gtest/gtest.h>

using namespace orvane;

namespace {

class Filter : public testkit::ViewTest {
  protected:
    void SetUp() override {
        start();
        prepareview(20000);
        st.form.captions["Command17"] = "打开对比";
        thresholds({"0", "0", "0", "0", "0", "0", "0", "0", "0"});
    }
    void thresholds(const std::array<std::string, 9>& texts) {
        for (int k = 0; k < 9; ++k) st.form.filtertext[k] = texts[k];
    }
    // A run of LENGTH cells in COLUMN from FIRST, scaled value 5 and raw value 50.
    void run(int column, std::int32_t first, std::int32_t length) {
        for (std::int32_t p = first; p < first + length; ++p) {
            s.samplegrid[p][column] = 5;
            s.rawgrid[p][column] = 50;
        }
    }
    bool wiped(int column, std::int32_t first, std::int32_t length) const {
        for (std::int32_t p = first; p < first + length; ++p)
            if (s.samplegrid[p][column] != 0 || s.rawgrid[p][column] != 0) return false;
        return true;
    }
    bool kept(int column, std::int32_t first, std::int32_t length) const {
        for (std::int32_t p = first; p < first + length; ++p)
            if (s.samplegrid[p][column] != 5 || s.rawgrid[p][column] != 50) return false;
        return true;
    }
};

TEST_F(Filter, AllThresholdsZeroChangeNoCellAndListNoRow) {
    run(0, 100, 3);
    run(4, 300, 1);
    press(st, "Command2");
    EXPECT_TRUE(kept(0, 100, 3));
    EXPECT_TRUE(kept(4, 300, 1));
    EXPECT_EQ(st.eventcount, 0);
    EXPECT_TRUE(reach(st, "Command14").isenabled(st));
    EXPECT_EQ(st.form.Grid1bj, (Table{{"序号", "报警通道", "里程"}}));
    EXPECT_EQ(st.hitcount, 0);
}

TEST_F(Filter, ARunOfTheThresholdIsWipedAndOneLongerIsKeptAndListed) {
    st.form.filtertext[0] = "3";
    run(0, 100, 3);
    run(0, 200, 4);
    press(st, "Command2");
    EXPECT_TRUE(wiped(0, 100, 3));
    EXPECT_TRUE(kept(0, 200, 4));
    ASSERT_EQ(st.eventcount, 1);
    EXPECT_EQ(st.eventpos[0], 200);
    EXPECT_EQ(st.eventchannel[0], 0);
    ASSERT_EQ(st.hitcount, 1);
    EXPECT_EQ(st.hitpos[0], 500);
    EXPECT_EQ(st.hitchannel[0], "A        ");
}

TEST_F(Filter, EventsSixHundredFortyNineApartMakeOneRowAndSixHundredFiftyTwo) {
    st.form.filtertext[1] = "1";
    run(1, 1000, 2);
    run(1, 1649, 2);
    press(st, "Command2");
    EXPECT_EQ(st.hitcount, 1);
    EXPECT_EQ(st.form.Grid1bj.size(), 2u);

    press(st, "Command14");
    s.samplegrid[1649][1] = 0; // the second run one position later
    run(1, 1650, 2);
    press(st, "Command2");
    ASSERT_EQ(st.hitcount, 2);
    EXPECT_EQ(st.hitpos[0], 1300);
    EXPECT_EQ(st.hitpos[1], 1950);
}

TEST_F(Filter, ALargerThenASmallerThresholdGiveTheSmallerAlone) {
    run(2, 100, 2);
    run(2, 200, 3);
    run(2, 300, 4);
    st.form.filtertext[2] = "5";
    press(st, "Command2");
    EXPECT_TRUE(wiped(2, 100, 2) && wiped(2, 200, 3) && wiped(2, 300, 4));
    EXPECT_EQ(st.eventcount, 0);
    st.form.filtertext[2] = "2";
    press(st, "Command2");
    EXPECT_TRUE(wiped(2, 100, 2));
    EXPECT_TRUE(kept(2, 200, 3));
    EXPECT_TRUE(kept(2, 300, 4));
    EXPECT_EQ(st.eventcount, 2);
}

TEST_F(Filter, CancelGivesBackEveryCellAndLeavesTheBackupZero) {
    thresholds({"256", "256", "256", "256", "1", "256", "256", "256", "256"});
    for (int column : {0, 3, 4, 8, 10, 12}) run(column, 500 + column, 7);
    s.samplegrid[900][9] = 23; // the mark column is no filter's
    s.samplegrid[950][11] = 9;
    const auto before = [&] {
        std::vector<std::int16_t> cells;
        for (std::int64_t p = 0; p <= s.lastposition; ++p)
            for (int c = 0; c < 13; ++c)
                cells.push_back(s.samplegrid[p][c]), cells.push_back(s.rawgrid[p][c]);
        return cells;
    };
    const std::vector<std::int16_t> original = before();
    press(st, "Command2");
    EXPECT_TRUE(wiped(0, 500, 7));
    EXPECT_EQ(s.samplegrid[950][11], 0);
    press(st, "Command14");
    EXPECT_EQ(before(), original);
    EXPECT_EQ(st.filteractive, 0);
    EXPECT_FALSE(reach(st, "Command14").isenabled(st));
    for (std::int64_t p = 0; p <= s.lastposition; ++p)
        for (int column = 0; column < 13; ++column) {
            ASSERT_EQ(c.samplegrid[p][column], 0) << p << " " << column;
            ASSERT_EQ(c.rawgrid[p][column], 0) << p << " " << column;
        }
}

TEST_F(Filter, ARunFromRowZeroIsWipedFromRowZeroOn) {
    st.form.filtertext[3] = "2";
    run(3, 0, 2);
    press(st, "Command2");
    EXPECT_TRUE(wiped(3, 0, 2));
    EXPECT_EQ(st.eventcount, 0);
}

TEST_F(Filter, AnUntickedChannelKeepsItsOriginalCellsEvenAfterAnEarlierFilter) {
    st.form.filtertext[0] = "3";
    run(0, 100, 3);
    press(st, "Command2");
    EXPECT_TRUE(wiped(0, 100, 3));
    press(st, "Check9");
    EXPECT_EQ(st.form.filtertext[0], "0");
    EXPECT_FALSE(reach(st, "Ttda").isenabled(st));
    press(st, "Command2");
    EXPECT_TRUE(kept(0, 100, 3));
    // Ticked again, the box is enabled and keeps its 0 until a number is typed.
    press(st, "Check9");
    EXPECT_TRUE(reach(st, "Ttda").isenabled(st));
    EXPECT_EQ(reach(st, "Ttda").textof(st), "0");
}

TEST_F(Filter, AClusterStartingAtFiveHundredIsTakenForUnsetAndRunsIntoTheNext) {
    st.form.filtertext[0] = st.form.filtertext[1] = "1";
    run(0, 500, 2);
    run(1, 1500, 2);
    press(st, "Command2");
    ASSERT_EQ(st.hitcount, 1);
    EXPECT_EQ(st.hitpos[0], 1800);
    EXPECT_EQ(st.hitchannel[0], "AB       ");
}

TEST_F(Filter, ARunReachingTheRowBehindTheLastPositionIsNeitherWipedNorListed) {
    st.form.filtertext[5] = "100";
    run(5, s.lastposition - 2, 4); // up to lastposition + 1
    press(st, "Command2");
    EXPECT_TRUE(kept(5, s.lastposition - 2, 3));
    EXPECT_EQ(st.eventcount, 0);
}

TEST_F(Filter, ARawCellWithoutAScaledOneIsAGap) {
    st.form.filtertext[6] = "2";
    run(6, 100, 2);
    s.rawgrid[102][6] = 50; // raw only
    run(6, 103, 2);
    press(st, "Command2");
    EXPECT_TRUE(wiped(6, 100, 2));
    EXPECT_TRUE(wiped(6, 103, 2));
    EXPECT_EQ(s.rawgrid[102][6], 50);
}

TEST_F(Filter, LateWavesWipeOnlyTheScaledGridAndNameTheirChannel) {
    st.form.filtertext[6] = "3"; // G, which the late waves of column 10 follow
    run(10, 100, 2);
    run(10, 400, 5);
    press(st, "Command2");
    EXPECT_EQ(s.samplegrid[100][10], 0);
    EXPECT_EQ(s.rawgrid[100][10], 50);
    ASSERT_EQ(st.eventcount, 1);
    EXPECT_EQ(st.eventchannel[0], 6);
    EXPECT_EQ(st.hitchannel[0], "      G  ");
}

TEST_F(Filter, HitLettersFollowTheChannelsOfTheirCluster) {
    thresholds({"1", "0", "1", "0", "1", "0", "0", "1", "1"});
    for (int column : {0, 2, 4, 7, 8}) run(column, 3000 + 10 * column, 2);
    press(st, "Command2");
    ASSERT_EQ(st.hitcount, 1);
    EXPECT_EQ(st.hitchannel[0], "A C E  HI");
}

TEST_F(Filter, RowsShowNumberLettersAndKilometreAndAClickGoesThere) {
    st.form.filtertext[0] = "1";
    run(0, 4000, 2);
    s.mileage[4000][0] = 12.3456f;
    press(st, "Command2");
    ASSERT_EQ(st.form.Grid1bj.size(), 2u);
    EXPECT_EQ(st.form.Grid1bj[1], (std::vector<std::string>{"1", "A        ", "0012.346"}));
    s.viewindex = 9000;
    clickrow(st, "Grid1bj", 0); // the heads
    EXPECT_EQ(s.viewindex, 9000);
    clickrow(st, "Grid1bj", 1);
    EXPECT_EQ(s.viewindex, 4300 - 800);
}

TEST_F(Filter, ThresholdTextsReadAsNumbersRoundedHalfToEven) {
    EXPECT_EQ(filterthreshold("abc"), 0);
    EXPECT_EQ(filterthreshold("12.5"), 12);
    EXPECT_EQ(filterthreshold("13.5"), 14);
    EXPECT_EQ(filterthreshold(" 7kg"), 7);
    EXPECT_EQ(filterthreshold("40000"), std::nullopt);
    EXPECT_EQ(filterthreshold("-32768"), -32768);
}

TEST_F(Filter, AThresholdTooLargeIsRefusedAndNothingChanges) {
    st.form.filtertext[0] = "3";
    st.form.filtertext[4] = "40000";
    run(0, 100, 3);
    press(st, "Command2");
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_NE(ui.messages[0].find("40000"), std::string::npos);
    EXPECT_TRUE(kept(0, 100, 3));
    EXPECT_EQ(st.filteractive, 0);
    EXPECT_EQ(st.comparisonstore, "no");
    EXPECT_FALSE(reach(st, "Command14").isenabled(st));
}

TEST_F(Filter, TheFirstProcessingMakesTheStoreForFiveMillionRows) {
    EXPECT_EQ(st.comparisonstore, "no");
    press(st, "Command2");
    EXPECT_EQ(st.comparisonstore, "yes");
    EXPECT_EQ(c.gridlast, 5000000);
    EXPECT_EQ(st.filteractive, 1);
}

TEST_F(Filter, ARecordingLongerThanTheStoreIsRefusedBeforeAnythingChanges) {
    run(0, 100, 3);
    st.form.filtertext[0] = "5";
    s.lastposition = 5000001;
    press(st, "Command2");
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_NE(ui.messages[0].find("5000000"), std::string::npos) << ui.messages[0];
    EXPECT_NE(ui.messages[0].find(s.filepath), std::string::npos);
    EXPECT_EQ(st.comparisonstore, "no");
    EXPECT_EQ(st.filteractive, 0);
    EXPECT_TRUE(kept(0, 100, 3));
}

TEST_F(Filter, ProcessingWhileAComparisonIsOpenIsRefusedInChineseAlsoInEnglish) {
    st.form.filtertext[0] = "5";
    run(0, 100, 3);
    for (const char* caption : {"关闭对比", "Single"}) {
        ui.messages.clear();
        st.language = caption == std::string("Single") ? "english" : "china";
        st.form.captions["Command17"] = caption;
        press(st, "Command2");
        EXPECT_EQ(ui.messages, std::vector<std::string>{"在打开对比模式下，不支持处理！"});
        EXPECT_TRUE(kept(0, 100, 3));
        EXPECT_EQ(st.comparisonstore, "no");
    }
}

TEST_F(Filter, TheListOfHitsKeepsItsRowsAfterACancel) {
    st.form.filtertext[0] = "1";
    run(0, 4000, 2);
    press(st, "Command2");
    press(st, "Command14");
    EXPECT_EQ(st.form.Grid1bj.size(), 2u);
}

// Twelve columns of runs of two every three rows over a million and a half rows make six million
// events: the list stops at its cap, and every later event overwrites its last element.
class FilterCap : public testkit::ViewTest {
  protected:
    void SetUp() override {
        start();
        prepareview(1500000 - 1);
        st.form.captions["Command17"] = "打开对比";
        st.form.filtertext.fill("1");
    }
};

TEST_F(FilterCap, TheEventListAtItsCapKeepsTheLastEventInItsLastElement) {
    for (std::int64_t p = 0; p <= s.lastposition; p += 3)
        for (int column : {0, 1, 2, 3, 4, 5, 6, 7, 8, 10, 11, 12})
            s.samplegrid[p][column] = s.samplegrid[p + 1][column] = 1;
    processfilter(st);
    ASSERT_EQ(st.eventcount, eventcap);
    // Columns 0..11 give 5.5 million events, column 12 (channel I) the rest up to the cap but one,
    // and its very last event stands in the last element.
    std::int64_t channeli = 0, at = 0;
    for (std::int32_t e = 0; e < st.eventcount; ++e) {
        channeli += st.eventchannel[e] == 8;
        at += st.eventpos[e] == 3 * 489999;
    }
    EXPECT_EQ(channeli, 500000 + 489999 + 1);
    EXPECT_EQ(at, 11); // channel I's late wave there was lost
    EXPECT_EQ(st.eventpos[eventcap - 1], 1499997);
    // Clusters of 650 positions over events every three positions start every 651.
    EXPECT_EQ(st.hitcount, 1499997 / 651 + 1);
}

} // namespace

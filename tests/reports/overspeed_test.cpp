// Mark overspeed and the overspeed rules of the quality summary, on lists the tests write.
#include "indexfixture.h"
#include "reports/index.h"
#include "reports/markspeed.h"
#include "reports/quality.h"
#include "reports/workbook.h"
#include "station/station.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

using testkit::IndexTest;
using testkit::jobimage;

class MarkSpeedTest : public IndexTest {
  protected:
    void SetUp() override {
        IndexTest::SetUp();
        jobs({{0, jobimage("001", "003")}});
    }
    // Marks at 1000, 2000, ... each in a window of a sample of SPEED.
    void marksat(const std::vector<float>& speeds) {
        std::vector<SampleRow> rows;
        std::vector<std::pair<std::int32_t, std::string>> list;
        for (std::size_t i = 0; i < speeds.size(); ++i) {
            const auto p = static_cast<std::int32_t>(1000 * (i + 1));
            rows.push_back({p, speeds[i], "08300000010000"});
            list.push_back({p, "1"});
        }
        rows.push_back({static_cast<std::int32_t>(1000 * (speeds.size() + 1)), 99.0f, "08300000010000"});
        samples(rows);
        marks(list);
        mileage(0, static_cast<std::int32_t>(1000 * (speeds.size() + 1)), 12.5f);
        indexload(st);
    }
};

TEST_F(MarkSpeedTest, ASpeedEqualToTheStandardIsNotListed) {
    marksat({3.0f, 3.1f});
    const auto list = marksabove(st, 3.0f);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].count, 1);
    EXPECT_EQ(list[0].name, "张伟");
}

TEST_F(MarkSpeedTest, TheListsTextCountsNotTheSample) {
    marksat({3.04f});
    EXPECT_EQ(st.form.Grid1ts[1][3], "3.0");
    EXPECT_TRUE(marksabove(st, 3.0f).empty());
}

TEST_F(MarkSpeedTest, LineBreaksAfterFifteenAndThirtyMarks) {
    marksat(std::vector<float>(31, 4.0f));
    const auto list = marksabove(st, 3.0f);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].count, 31);
    std::string expected;
    for (int i = 1; i <= 31; ++i) {
        expected += "0012.500 ";
        if (i % 15 == 0) expected += "\r\n";
    }
    EXPECT_EQ(list[0].text, expected);
    const Workbook book = markspeedbook(st, 3.0f);
    EXPECT_EQ(book.sheets()[0].read(2, 1).text, "张伟共31处： \r\n" + expected);
    EXPECT_EQ(book.sheets()[0].borders, std::vector<std::string>{"A2:A2"});
}

TEST_F(MarkSpeedTest, AFilteredListIsWhatIsExamined) {
    marksat({4.0f, 4.0f});
    z().marktext[1] = "2";
    indexload(st);
    st.form.Checkts[2] = false;
    markfilter(st);
    EXPECT_EQ(marksabove(st, 3.0f)[0].count, 1);
}

TEST_F(MarkSpeedTest, NoMarkAboveTheStandardLeavesTheTitleAloneAndStillWritesTheAlarms) {
    marksat({2.0f});
    z().paramrec = {std::string(283, '0') + "1" + std::string(228, '0'), ""};
    z().parampos = {0, z().lastposition};
    z().paramcount = 1;
    const Workbook book = markspeedbook(st, 3.0f);
    const Sheet& first = book.sheets()[0];
    EXPECT_EQ(first.name, "标记点超速汇总表");
    EXPECT_EQ(first.cells.size(), 1u);
    EXPECT_EQ(first.read(1, 1).text, "                                   标记点超速汇总表                ");
    EXPECT_EQ(first.rowfonts.at(1), 20);
    EXPECT_EQ(first.columnwidths.at("A"), 150);
    EXPECT_TRUE(first.borders.empty());
    const Sheet& second = book.sheets()[1];
    EXPECT_EQ(second.name, "报警开关状态一览表");
    EXPECT_EQ(second.read(1, 1).text, "             报警开关状态一览表                ");
    EXPECT_EQ(second.read(2, 1).text, "反射报警：");
    EXPECT_EQ(second.read(2, 2).text, "开");
    EXPECT_EQ(second.read(2, 4).text, "关");
    EXPECT_EQ(second.read(2, 6), (CellValue{true, 12.5, ""}));
    EXPECT_EQ(second.read(2, 8).text, "张伟");
    EXPECT_EQ(second.borders, std::vector<std::string>{"A2:H2"});
}

TEST_F(MarkSpeedTest, AnAlarmRowOnlyWhereAStateOrTheOperatorChanges) {
    marksat({2.0f});
    jobs({{0, jobimage("001", "003")}, {1500, jobimage("002", "003")}});
    auto image = [](char digit) { return std::string(283, '0') + digit + std::string(228, '0'); };
    z().paramrec = {image('3'), image('3'), image('3'), image('1'), image('1')};
    z().parampos = {0, 500, 1600, 1700, z().lastposition};
    z().paramcount = 4;
    const Workbook book = markspeedbook(st, 3.0f);
    const Sheet& s = book.sheets()[1];
    EXPECT_EQ(s.read(2, 8).text, "张伟");
    EXPECT_EQ(s.read(3, 8).text, "李娜");
    EXPECT_EQ(s.read(4, 4).text, "关");
    EXPECT_EQ(s.read(5, 1).text, "");
    EXPECT_EQ(s.borders, std::vector<std::string>{"A2:H4"});
}

class RuleTest : public IndexTest {
  protected:
    // N samples STEP positions apart, each of SPEED.
    void even(int n, std::int32_t step, float speed) {
        std::vector<SampleRow> rows;
        for (int i = 0; i < n; ++i) rows.push_back({i * step, speed, "08300000010000"});
        samples(rows);
    }
};

TEST_F(RuleTest, TwoSamplesEndTheWindowLoopAtOnce) {
    even(2, 3000, 9.0f);
    EXPECT_TRUE(windowoverspeed(z(), 3.0f).empty());
    EXPECT_EQ(overspeedcount(st, 3.0f), 0);
    const Workbook book = windowlayout(st, 3.0f);
    EXPECT_EQ(book.sheets()[0].read(3, 21).text, "0");
    EXPECT_EQ(book.sheets()[0].read(5, 1).text, "");
}

TEST_F(RuleTest, AWindowClosesAtTheFirstSamplePastItAndTheShortLastStretchIsNotTested) {
    // Samples every 1000 steps: a window from sample 1 closes at sample 4 (3000 > 2500).
    even(9, 1000, 4.0f);
    const auto windows = windowoverspeed(z(), 3.0f);
    ASSERT_EQ(windows.size(), 2u);
    EXPECT_EQ(windows[0].start, 1);
    EXPECT_EQ(windows[0].end, 4);
    EXPECT_EQ(windows[1].start, 5);
    EXPECT_EQ(windows[1].end, 8);
    // One sample fewer: the second stretch, 5 to 7, never passes 2500 steps.
    even(8, 1000, 4.0f);
    EXPECT_EQ(windowoverspeed(z(), 3.0f).size(), 1u);
}

TEST_F(RuleTest, AnAverageEqualToTheStandardIsNoOverspeed) {
    samples({{0, 1.0f, ""}, {0, 2.0f, ""}, {1000, 4.0f, ""}, {2600, 3.0f, ""}, {3000, 1.0f, ""}});
    EXPECT_TRUE(windowoverspeed(z(), 3.0f).empty());
    EXPECT_EQ(windowoverspeed(z(), 2.9f).size(), 1u);
}

TEST_F(RuleTest, TheSampleRuleTestsEveryTenthOf150AndEveryHundredthOf200) {
    EXPECT_EQ(stepsize(150), 10);
    EXPECT_EQ(stepsize(200), 100);
    EXPECT_EQ(stepsize(20), 10);
    EXPECT_EQ(stepsize(19), 2);
    EXPECT_EQ(stepsize(5), 2);
    EXPECT_EQ(stepsize(4), 1);
    even(150, 100, 5.0f);
    const auto found = sampleoverspeed(z(), 3.0f);
    ASSERT_EQ(found.size(), 15u);
    EXPECT_EQ(found[1], 11);
    even(200, 100, 5.0f);
    EXPECT_EQ(sampleoverspeed(z(), 3.0f), (std::vector<std::int32_t>{1, 101}));
}

TEST_F(RuleTest, LongxiAndHuCountBySamplesTheOthersByWindows) {
    even(150, 1000, 5.0f);
    st.buildvariant = "longxi";
    EXPECT_EQ(overspeedcount(st, 3.0f), 15);
    st.buildvariant = "hu";
    EXPECT_EQ(overspeedcount(st, 3.0f), 15);
    st.buildvariant = "haerbin";
    EXPECT_EQ(overspeedcount(st, 3.0f), static_cast<std::int32_t>(windowoverspeed(z(), 3.0f).size()));
}

TEST_F(RuleTest, AJobWithThreeOperatorsShowsTwo) {
    even(10, 1000, 2.0f);
    jobs({{0, jobimage("001", "003")},
          {3000, jobimage("001", "003")},
          {5000, jobimage("002", "003")},
          {7000, jobimage("003", "003")}});
    EXPECT_EQ(jobfields(st).operators, "张伟  李娜");
    jobs({{0, jobimage("009", "003")}, {3000, jobimage("012", "003")}});
    EXPECT_EQ(jobfields(st).operators, "009号  刘洋");
}

TEST_F(RuleTest, SensitivityIsEightyLessHalfTheByteWithOneDecimal) {
    EXPECT_EQ(sensitivityof(160), ".0");
    EXPECT_EQ(sensitivityof(100), "30.0");
    EXPECT_EQ(sensitivityof(159), ".5");
    EXPECT_EQ(sensitivityof(220), "-30.0");
    std::string image(512, '0');
    image.replace(236 + 2 * 8, 2, "64");
    EXPECT_EQ(sensitivityof(image, 8), "30.0");
}

TEST_F(RuleTest, TheLayoutFollowsTheTwoCustomerStrings) {
    st.tarvikmode = "tarvik";
    st.buildvariant = "haerbin";
    EXPECT_EQ(reportlayout(st), "daily");
    st.buildvariant = "longxi";
    EXPECT_EQ(reportlayout(st), "sample");
    st.tarvikmode = "feitarvik";
    st.buildvariant = "haerbin";
    EXPECT_EQ(reportlayout(st), "window");
    st.buildvariant = "hu";
    EXPECT_EQ(reportlayout(st), "sample");
}

} // namespace
} // namespace orvane

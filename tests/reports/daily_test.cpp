// The daily report on lists the tests write: the job sheet, the four sensitivity points, the lowest
// integral values, the grass-wave runs, the overspeed summary, the suppression length and the detail
// sheets.
#include "indexfixture.h"
#include "reports/daily.h"
#include "reports/dailychecks.h"
#include "reports/index.h"
#include "reports/quality.h"
#include "reports/workbook.h"
#include "station/station.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

using testkit::IndexTest;
using testkit::jobimage;

// A parameter record image with one gain byte for all channels and suppression on or off.
std::string paramimage(int gain, bool suppression) {
    std::string image(512, '0');
    image.replace(0, 2, "43");
    image.replace(20, 2, suppression ? "01" : "00");
    for (int c = 0; c < 9; ++c) image.replace(236 + 2 * static_cast<std::size_t>(c), 2, hexbyte(gain));
    return image;
}

struct IntegralRow {
    std::array<int, 9> values;
    bool suppression = true;
    bool fixed = true;
};

class DailyTest : public IndexTest {
  protected:
    void SetUp() override {
        IndexTest::SetUp();
        st.gpsxdb->exec("update gzryb set xm=? where bh='1'", {"执机：乙"});
        st.gpsxdb->exec("update gzryb set xm=? where bh='2'", {"乙"});
        // Operator 1 walks to 99000, then operator 2: the handover list holds "执机：执机：乙",
        // "股道：003" and "执机：乙", and the rows of operator 1 compare equal to the third entry.
        jobs({{0, jobimage("001", "003")}, {99000, jobimage("002", "003")}});
        samples({{100, 2.0f, testkit::sampleclock("083000", 12, 0)},
                 {200, 2.0f, testkit::sampleclock("083001", 12, 0)}});
        params({{0, paramimage(20, true)}});
    }

    void params(const std::vector<std::pair<std::int32_t, std::string>>& list) {
        Side& s = z();
        s.parampos.clear();
        s.paramrec.clear();
        for (const auto& [p, image] : list) {
            s.parampos.push_back(p);
            s.paramrec.push_back(image);
        }
        s.paramcount = static_cast<std::int32_t>(list.size());
        if (!list.empty()) s.parampos[0] = 0;
        s.parampos.push_back(s.lastposition);
        s.paramrec.push_back(list.empty() ? "" : list.back().second);
    }

    // GPS entries at 1000, 2000, ... with the integral values of each row, each position its own
    // kilometre 12.0 + row / 1000; the index loaded.
    void integral(const std::vector<IntegralRow>& rows) {
        Side& s = z();
        s.gpspos.clear();
        s.gpstext.clear();
        s.suppressionon.clear();
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const auto p = static_cast<std::int32_t>(1000 * (i + 1));
            std::string text = rows[i].fixed ? "454612340126381234" : "000000000000000000";
            for (int v : rows[i].values) text += hexbyte(v);
            text += "80";
            s.gpspos.push_back(p);
            s.gpstext.push_back(text);
            s.suppressionon.push_back(rows[i].suppression);
            mileage(p, p, 12.0f + static_cast<float>(i + 1) / 1000);
        }
        s.gpscount = static_cast<std::int32_t>(rows.size());
        s.gpspos.push_back(s.lastposition);
        s.gpstext.push_back("");
        s.suppressionon.push_back(false);
        indexload(st);
    }
    static std::vector<IntegralRow> even(std::size_t n, int value = 150) {
        IntegralRow row;
        row.values.fill(value);
        return std::vector<IntegralRow>(n, row);
    }
    // The mileage text of list row R.
    std::string at(int r) const { return st.form.Grid1jf[static_cast<std::size_t>(r)][0]; }

    Workbook book() { return dailybook(st, 3.0f); }
    // Sheet N of the report, kept by the caller.
    Sheet sheet(int n) { return book().sheets().at(static_cast<std::size_t>(n - 1)); }
};

TEST_F(DailyTest, TheJobSheetHoldsEveryLabelAndTheInstrumentsModel) {
    integral(even(5));
    z().Grid3 = {{"反射", "穿透", "失检", "抑制", "轨型"}, {"反射开", "穿透关", "失检开", "", "60"}};
    z().stopcount = 7;
    st.form.Grid1bj.push_back({"1", "A", "0012.000"});
    st.form.Grid1bj.push_back({"2", "B", "0012.100"});
    const Workbook b = book();
    ASSERT_EQ(b.sheets().size(), 8u);
    const char* names[] = {"日台数据分析报告", "超速详情表", "草状波不达标地段汇总表", "全程超速汇总表",
                           "积分值列表"};
    for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(b.sheets()[i].name, names[i]);
    const Sheet& s = b.sheets()[0];
    EXPECT_EQ(s.read(1, 1).text, "                            日台数据分析报告                ");
    EXPECT_EQ(s.rowfonts.at(1), 20);
    EXPECT_EQ(s.read(2, 1).text, "工区/组别");
    EXPECT_EQ(s.read(3, 13).text, "股别");
    EXPECT_EQ(s.read(4, 9).text, "实际位置");
    EXPECT_EQ(s.read(5, 3).text, "仪器型号");
    EXPECT_EQ(s.read(5, 4).text, "KRM-5T");
    EXPECT_EQ(s.read(4, 14).text, "60");
    // The penetration switch stands where the reflection switch was written first.
    EXPECT_EQ(s.read(6, 3).text, "穿透开关");
    EXPECT_EQ(s.read(6, 4).text, "穿透关");
    EXPECT_EQ(s.read(6, 2).text, "失检开");
    EXPECT_EQ(s.read(6, 10), (CellValue{true, 3.0, ""}));
    EXPECT_EQ(s.read(6, 14).text, "0");
    EXPECT_EQ(s.read(7, 1).text, "倒车确认");
    EXPECT_EQ(s.read(7, 2), (CellValue{true, 7.0, ""}));
    EXPECT_EQ(s.read(7, 4), (CellValue{true, 2.0, ""}));
    EXPECT_EQ(s.read(7, 13).text, "未复核出伤损监控处所");
    EXPECT_EQ(s.read(7, 14).text, "");
    EXPECT_EQ(s.read(9, 10).text, "I");
    EXPECT_EQ(s.read(9, 11).text, "调整位置");
    EXPECT_EQ(s.read(18, 1).text, "差值4");
    EXPECT_EQ(s.read(21, 6).text, "标记4");
    EXPECT_EQ(s.borders, (std::vector<std::string>{"A2:N22", "A23:N26"}));
}

TEST_F(DailyTest, TheGpsRatioCountsTheEntriesWithAFix) {
    auto rows = even(3);
    rows[1].fixed = false;
    integral(rows);
    EXPECT_EQ(gpsratio(z()), "2/3");
    EXPECT_EQ(sheet(1).read(6, 8).text, "2/3");
}

TEST_F(DailyTest, ThreeGpsEntriesOrFewerLeaveNoRowForTheLowestValues) {
    integral(even(3, 40));
    const Sheet& s = sheet(1);
    for (int c = 0; c < 9; ++c) {
        EXPECT_EQ(s.read(19, 2 + c), (CellValue{true, 0, ""}));
        EXPECT_EQ(s.read(20, 2 + c).text, "<5");
    }
}

TEST_F(DailyTest, TheFirstThreeRowsAreLeftOutOfTheLowestValues) {
    auto rows = even(5);
    rows[0].values.fill(10); // row 1
    rows[3].values.fill(90); // row 4
    integral(rows);
    const auto low = lowestintegral(st.form.Grid1jf);
    EXPECT_EQ(low[0], 90);
    EXPECT_EQ(low[8], 90);
}

TEST_F(DailyTest, AZeroRowIsSkippedButAZeroChannelAmongOthersCounts) {
    auto rows = even(8);
    rows[4].values.fill(0); // row 5: all nine 0
    rows[5].values[2] = 0;  // row 6: channel C alone 0
    rows[6].values[6] = 40; // row 7: G low
    integral(rows);
    const auto low = lowestintegral(st.form.Grid1jf);
    EXPECT_EQ(low[0], 150);
    EXPECT_EQ(low[2], 0);
    EXPECT_EQ(low[6], 40);
    const Sheet& s = sheet(1);
    EXPECT_EQ(s.read(19, 2), (CellValue{true, 150, ""}));
    EXPECT_EQ(s.read(19, 4), (CellValue{true, 0, ""}));
    EXPECT_EQ(s.read(20, 2).text, "25");
    EXPECT_EQ(s.read(20, 4).text, "<5");
    EXPECT_EQ(s.read(20, 8).text, "5");
}

TEST_F(DailyTest, OnlyZeroRowsGiveZeroEverywhere) {
    integral(even(6, 0));
    const auto low = lowestintegral(st.form.Grid1jf);
    for (double v : low) EXPECT_EQ(v, 0);
}

TEST_F(DailyTest, TheGrassWaveRatingsOfBothScales) {
    const std::pair<double, const char*> wide[] = {{49, "<5"},  {50, "5"},   {59, "5"},   {60, "10"},
                                                   {79, "10"},  {80, "15"},  {90, "18"},  {99, "18"},
                                                   {100, "20"}, {109, "20"}, {110, "25"}, {255, "25"}};
    for (const auto& [v, text] : wide) {
        EXPECT_EQ(grassrating(0, v), text) << v;
        EXPECT_EQ(grassrating(8, v), text) << v;
    }
    const std::pair<double, const char*> inclined[] = {{37, "<5"},   {37.5, "5"}, {45, "10"},   {52, "10"},
                                                       {52.5, "15"}, {57, "15"},  {57.5, "18"}, {59, "18"},
                                                       {60, "20"},   {64, "20"},  {65, "25"}};
    for (const auto& [v, text] : inclined) {
        EXPECT_EQ(grassrating(6, v), text) << v;
        EXPECT_EQ(grassrating(7, v), text) << v;
    }
}

TEST_F(DailyTest, ARunOfFourThousandStepsTakesItsFirstPointAtAQuarter) {
    z().lastposition = 4000;
    params({{0, paramimage(10, false)},
            {500, paramimage(20, false)},
            {1200, paramimage(30, false)},
            {3000, paramimage(40, false)}});
    mileage(0, 4000, 12.0f);
    mileage(1200, 1200, 12.5f);
    // 1000 lies in the record of 500: the next, at 1200, is read. A third (1333) and two thirds (2667)
    // lie in the record of 1200; the last record is the fourth point.
    EXPECT_EQ(sensitivityrecords(z()), (std::array<std::int32_t, 4>{2, 3, 3, 3}));
    const Sheet& s = sheet(1);
    EXPECT_EQ(s.read(11, 2).text, "65.0");
    EXPECT_EQ(s.read(11, 10).text, "65.0");
    EXPECT_EQ(s.read(11, 11).text, "0012.500");
    EXPECT_EQ(s.read(13, 2).text, "60.0");
    EXPECT_EQ(s.read(17, 2).text, "60.0");
    EXPECT_EQ(s.read(17, 11).text, "0012.000");
}

TEST_F(DailyTest, ALongRunTakesItsFirstPointAt5000AndTheLastRecordAtTheEnd) {
    z().lastposition = 90000;
    params({{0, paramimage(10, false)},
            {10000, paramimage(20, false)},
            {20000, paramimage(30, false)},
            {40000, paramimage(40, false)},
            {70000, paramimage(50, false)}});
    EXPECT_EQ(sensitivityrecords(z()), (std::array<std::int32_t, 4>{1, 3, 4, 4}));
}

TEST_F(DailyTest, SuppressionAtTwoOfTheFourPointsReadsOffAndAtThreeOn) {
    z().lastposition = 90000;
    auto run = [&](bool first, bool third, bool fourth) {
        params({{0, paramimage(10, false)},
                {10000, paramimage(20, first)},
                {20000, paramimage(30, false)},
                {40000, paramimage(40, third)},
                {70000, paramimage(50, fourth)}});
        return sheet(1).read(5, 14).text;
    };
    // The points read records 1, 3, 4 and 4.
    EXPECT_EQ(run(true, true, false), "关");
    EXPECT_EQ(run(true, false, true), "开");
    EXPECT_EQ(run(false, false, true), "关");
}

TEST_F(DailyTest, TheHandMarksAreCounted) {
    marks({{100, "0"}, {200, "3"}, {300, "3"}, {400, "12345"}, {500, "4"}, {600, "107"}});
    const Sheet& s = sheet(1);
    const double counts[] = {1, 0, 0, 2, 1};
    for (int m = 0; m < 5; ++m) EXPECT_EQ(s.read(22, 2 + m), (CellValue{true, counts[m], ""})) << m;
}

TEST_F(DailyTest, TheHandoverListGivesTheEntriesOnceEachAtMostEleven) {
    EXPECT_EQ(handovernames({{"执机人", "", ""},
                             {"执机：甲", "", ""},
                             {"里程突变", "", ""},
                             {"执机：甲", "", ""},
                             {"里程突变", "", ""}}),
              (std::vector<std::string>{"执机：甲", "里程突变"}));
    Table many{{"执机人", "", ""}};
    for (int i = 0; i < 13; ++i) many.push_back({"执机：" + std::to_string(i), "", ""});
    const auto names = handovernames(many);
    ASSERT_EQ(names.size(), 11u);
    EXPECT_EQ(names.back(), "执机：10");
}

TEST_F(DailyTest, ThePrefixedEntriesMeetOnlyANameThatCarriesThePrefix) {
    integral(even(4));
    EXPECT_EQ(handovernames(st.form.Grid1ry),
              (std::vector<std::string>{"执机：执机：乙", "股道：003", "执机：乙"}));
    const auto rowop = integraloperators(st);
    ASSERT_EQ(rowop.size(), 5u);
    EXPECT_EQ(rowop[1], "执机：乙");
}

TEST_F(DailyTest, ALowStretchOfRowsFiveToSevenIsOneRunEndingAtRowEight) {
    auto rows = even(10);
    for (int r = 5; r <= 7; ++r) rows[static_cast<std::size_t>(r - 1)].values[0] = 100;
    integral(rows);
    const auto names = handovernames(st.form.Grid1ry);
    const auto runs = grassruns(st, names, integraloperators(st), true);
    EXPECT_EQ(runs.count[2][0], 1);
    EXPECT_EQ(runs.text[2][0], "  " + at(5) + "-" + at(8));
    EXPECT_EQ(runs.count[0][0], 0); // "执机：执机：乙" is nobody's bare name
    for (std::size_t c = 1; c < 9; ++c) EXPECT_EQ(runs.count[2][c], 0);
}

TEST_F(DailyTest, ARunToTheLastRowEndsThereAndTheLastRowNeverStartsOne) {
    auto rows = even(10);
    rows[8].values[0] = 100; // A low at rows 9 and 10
    rows[9].values[0] = 100;
    rows[9].values[1] = 100; // B low at row 10 only
    integral(rows);
    const auto names = handovernames(st.form.Grid1ry);
    const auto runs = grassruns(st, names, integraloperators(st), true);
    EXPECT_EQ(runs.text[2][0], "  " + at(9) + "-" + at(10));
    EXPECT_EQ(runs.count[2][1], 0);
}

TEST_F(DailyTest, ValuesEqualToTheThresholdsMakeNoRun) {
    auto rows = even(8);
    for (auto& row : rows) {
        row.values[0] = 120;
        row.values[1] = 220;
        row.values[2] = 119;
        row.values[3] = 221;
        row.values[6] = 57;
        row.values[7] = 160;
    }
    integral(rows);
    const auto names = handovernames(st.form.Grid1ry);
    const auto rowop = integraloperators(st);
    const auto low = grassruns(st, names, rowop, true), high = grassruns(st, names, rowop, false);
    EXPECT_EQ(low.count[2][0], 0);
    EXPECT_EQ(high.count[2][1], 0);
    EXPECT_EQ(low.count[2][2], 1);
    EXPECT_EQ(high.count[2][3], 1);
    EXPECT_EQ(low.count[2][6], 1); // G below 57.5
    EXPECT_EQ(high.count[2][7], 0);
    // The run over the whole list starts at row 1 and ends at the last row.
    EXPECT_EQ(low.text[2][2], "  " + at(1) + "-" + at(8));
}

TEST_F(DailyTest, RowsWithSuppressionOffNeitherStartNorContinueARun) {
    auto rows = even(10);
    for (int r = 2; r <= 8; ++r) rows[static_cast<std::size_t>(r - 1)].values[4] = 100;
    rows[4].suppression = false; // row 5
    integral(rows);
    const auto names = handovernames(st.form.Grid1ry);
    const auto runs = grassruns(st, names, integraloperators(st), true);
    EXPECT_EQ(runs.count[2][4], 2);
    EXPECT_EQ(runs.text[2][4], "  " + at(2) + "-" + at(5) + "  " + at(6) + "-" + at(9));
}

TEST_F(DailyTest, SuppressionOffThroughoutFindsNoRunAndListsOnlyTheHead) {
    auto rows = even(10, 100);
    for (auto& row : rows) row.suppression = false;
    integral(rows);
    const Workbook b = book();
    const Sheet& grass = b.sheets()[2];
    EXPECT_EQ(grass.read(4, 1).text, "执机：乙低于20%   共0处： ");
    EXPECT_EQ(grass.read(7, 1).text, "执机：乙高于30%  共0处： ");
    const Sheet& list = b.sheets()[4];
    EXPECT_EQ(list.read(1, 1).text, "积分值表");
    EXPECT_EQ(list.read(2, 1).text, "里程(km)");
    EXPECT_EQ(list.read(2, 11).text, "执机人");
    EXPECT_EQ(list.read(3, 1).text, "");
    EXPECT_EQ(list.borders, std::vector<std::string>{"A1:K2"});
    EXPECT_EQ(b.sheets()[0].read(25, 3).text, "低于20%     高于30% ");
}

TEST_F(DailyTest, TheIntegralSheetCopiesTheRowsWithSuppressionOnAndTheirOperator) {
    auto rows = even(4);
    rows[1].suppression = false;
    integral(rows);
    const Sheet& list = sheet(5);
    EXPECT_EQ(list.read(3, 1).text, at(1));
    EXPECT_EQ(list.read(3, 2).text, "150");
    EXPECT_EQ(list.read(3, 11).text, "执机：乙");
    EXPECT_EQ(list.read(4, 1).text, at(3));
    EXPECT_EQ(list.read(5, 1).text, at(4));
    EXPECT_EQ(list.borders, std::vector<std::string>{"A1:K5"});
}

TEST_F(DailyTest, EveryFifthRunBreaksTheLineAndTheSheetListsEachChannel) {
    auto rows = even(16);
    for (int r = 1; r <= 15; r += 2)
        rows[static_cast<std::size_t>(r - 1)].values[0] = 100; // rows 1, 3, ..., 15
    rows[3].values[7] = 170;                                   // H high at row 4
    integral(rows);
    const auto names = handovernames(st.form.Grid1ry);
    const auto runs = grassruns(st, names, integraloperators(st), true);
    std::string expected;
    for (int k = 1; k <= 8; ++k) {
        expected += "  " + at(2 * k - 1) + "-" + at(2 * k);
        if (k == 5) expected += "\r\n";
    }
    EXPECT_EQ(runs.count[2][0], 8);
    EXPECT_EQ(runs.text[2][0], expected);

    const Workbook b = book();
    const Sheet& grass = b.sheets()[2];
    EXPECT_EQ(grass.read(1, 1).text, "                          草状波不达标地段汇总表");
    EXPECT_EQ(grass.columnwidths.at("A"), 150);
    EXPECT_EQ(grass.read(2, 1).text, "执机：执机：乙低于20%   共0处： ");
    std::string low = "执机：乙低于20%  共8处： \r\nA通道共8处： " + expected + "\r\n";
    for (char c = 'B'; c <= 'I'; ++c) low += std::string(1, c) + "通道共0处： \r\n";
    EXPECT_EQ(grass.read(4, 1).text, low);
    std::string high = "执机：乙高于30%  共1处： \r\n";
    for (char c = 'A'; c <= 'I'; ++c)
        high +=
            std::string(1, c) + "通道共" + (c == 'H' ? "1处：   " + at(4) + "-" + at(5) : "0处： ") + "\r\n";
    EXPECT_EQ(grass.read(7, 1).text, high);
    EXPECT_EQ(grass.borders, std::vector<std::string>{"A2:A7"});
    EXPECT_EQ(b.sheets()[0].read(25, 1).text, "草状波核对 ");
    EXPECT_EQ(b.sheets()[0].read(25, 3).text, "低于20%  执机：乙共8处    高于30% 执机：乙共1处 ");
}

TEST_F(DailyTest, TheRowLoopStopsAbove999) {
    z().lastposition = 2000000;
    jobs({{0, jobimage("001", "003")}, {1500000, jobimage("002", "003")}});
    auto rows = even(1100);
    for (int r = 995; r <= 1005; ++r) rows[static_cast<std::size_t>(r - 1)].values[0] = 100;
    rows[1049].values[1] = 100;
    integral(rows);
    const auto names = handovernames(st.form.Grid1ry);
    const auto rowop = integraloperators(st);
    EXPECT_EQ(rowop.size(), 1000u);
    const auto runs = grassruns(st, names, rowop, true);
    EXPECT_EQ(runs.text[2][0], "  " + at(995) + "-" + at(1000));
    EXPECT_EQ(runs.count[2][1], 0);
}

TEST_F(DailyTest, SuppressionOffFromTheFirstToTheLastRecordIsTheWholeSpan) {
    params({{0, paramimage(10, false)}, {10000, paramimage(20, false)}, {30000, paramimage(20, false)}});
    EXPECT_EQ(suppressionlength(z()), 30000);
    const Sheet& s = sheet(1);
    EXPECT_EQ(s.read(26, 1).text, "抑制为通常核对");
    EXPECT_EQ(s.read(26, 3).text, "105.000米");
}

TEST_F(DailyTest, TheSuppressionLengthSumsTheStretchesWithSuppressionOff) {
    params({{0, paramimage(10, false)},
            {10000, paramimage(20, true)},
            {15000, paramimage(20, true)},
            {20000, paramimage(20, false)},
            {25000, paramimage(20, false)},
            {30000, paramimage(20, false)}});
    EXPECT_EQ(suppressionlength(z()), 10000 + 10000);
    params({{0, paramimage(10, true)}});
    EXPECT_EQ(suppressionlength(z()), 0);
}

TEST_F(DailyTest, TheOverspeedSheetsListTheWindowsUnderTheOperatorThatCarriesThePrefix) {
    integral(even(4));
    // Windows of three samples 1300 steps apart: eleven from sample 1, the twelfth left incomplete.
    std::vector<SampleRow> list;
    for (int i = 0; i < 36; ++i)
        list.push_back({1000 + 1300 * i, 4.0f, testkit::sampleclock("0830" + std::to_string(10 + i), 12, 0)});
    samples(list);
    mileage(0, 50000, 12.345f);
    const auto windows = windowoverspeed(z(), 3.0f);
    ASSERT_EQ(windows.size(), 11u);
    const Workbook b = book();
    const Sheet& details = b.sheets()[1];
    EXPECT_EQ(details.read(1, 1).text, "              超速详情表");
    EXPECT_EQ(details.read(2, 8).text, "速度");
    EXPECT_EQ(details.read(3, 1).text, b.sheets()[0].read(4, 4).text);
    EXPECT_EQ(details.read(3, 2).text, b.sheets()[0].read(4, 8).text);
    EXPECT_EQ(details.read(3, 6).text, "0012.345±5米");
    EXPECT_EQ(details.read(3, 7).text, "执机：乙");
    EXPECT_EQ(details.read(3, 8).text, "4.00");
    EXPECT_EQ(details.read(14, 1).text, "");
    EXPECT_EQ(details.borders, std::vector<std::string>{"A2:H13"});

    const Sheet& speed = b.sheets()[3];
    EXPECT_EQ(speed.read(1, 1).text, "                                    全程超速汇总表");
    EXPECT_EQ(speed.read(2, 1).text, "执机：执机：乙共0处： ");
    std::string places;
    for (int k = 1; k <= 11; ++k) {
        places += "0012.345  ";
        if (k == 10) places += "\r\n";
    }
    EXPECT_EQ(speed.read(4, 1).text, "执机：乙共11处： " + places);
    EXPECT_EQ(speed.borders, std::vector<std::string>{"A2:A4"});
    EXPECT_EQ(b.sheets()[0].read(24, 3).text, "执机：乙共11处   ");
    EXPECT_EQ(b.sheets()[0].read(6, 14).text, "11");
}

TEST_F(DailyTest, WithoutParameterRecordsTheSensitivityBlocksStayEmpty) {
    params({});
    integral(even(5));
    const Sheet& s = sheet(1);
    EXPECT_EQ(s.read(11, 1).text, "起始灵敏度");
    EXPECT_EQ(s.read(11, 2).text, "");
    EXPECT_EQ(s.read(17, 11).text, "");
    EXPECT_EQ(s.read(5, 14).text, "关");
    EXPECT_EQ(s.read(26, 3).text, "0.000米");
}

TEST_F(DailyTest, WithoutGpsTheListsAreEmptyAndTheSheetsStillWritten) {
    integral({});
    const Workbook b = book();
    EXPECT_EQ(b.sheets()[0].read(6, 8).text, "0/0");
    EXPECT_EQ(b.sheets()[0].read(20, 2).text, "<5");
    EXPECT_EQ(b.sheets()[4].borders, std::vector<std::string>{"A1:K2"});
}

TEST_F(DailyTest, ARunOfOneSampleIsRefusedWithTheMessage) {
    samples({{100, 2.0f, testkit::sampleclock("083000", 12, 0)}});
    ui.answers = {"3"};
    pressdaily(st);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"距离过短，无法统计速度"});
}

} // namespace
} // namespace orvane

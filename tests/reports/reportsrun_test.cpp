// The index and the reports on a small synthetic recording, through the controls a user presses;
// the cells checked against the scenario the recording was made from and the rules.
#include "../processing/recordingfixture.h"
#include "indexfixture.h"
#include "replay/bofang.h"
#include "reports/index.h"
#include "reports/quality.h"
#include "reports/shelf.h"
#include "reports/workbook.h"
#include "reports/xlsx.h"
#include "station/controls.h"
#include "station/numbers.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace orvane {
namespace {

// Keeps every workbook handed over, with the report's name.
class KeptBooks : public Workbooks {
  public:
    std::vector<std::pair<std::string, Workbook>> books;
    void show(const Workbook& book, const std::string& report) override { books.emplace_back(report, book); }
};

class ReportsRun : public testkit::RecordingTest {
  protected:
    KeptBooks kept;
    ktrgen::Truth truth;
    void SetUp() override {
        RecordingTest::SetUp();
        st.workbooks = &kept;
        truth = ktrgen::generate(ktrgen::preset("small"), 2).truth;
    }
    const Sheet& lastsheet(int n = 1) {
        return kept.books.back().second.sheets().at(static_cast<std::size_t>(n - 1));
    }
};

// The test's own reading of the mark table.
std::string expectedtype(const Station& st, const std::string& text) {
    const long v = std::stol(text);
    if (v < 5) return "标记" + text;
    if (text == "12345") return "里程校对";
    if (text == "12346") return "积分模式";
    if (v >= 100 && v <= 137) return st.settings.biaojikcpair[static_cast<std::size_t>(v - 100)][0];
    if (v >= 1949 && v <= 11999) return "道岔" + std::to_string(v + 50 - 2000);
    return "";
}

TEST_F(ReportsRun, TheIndexListsEveryMarkOfTheRecordingInItsOrder) {
    press(st, "Command1");
    ASSERT_EQ(st.form.Grid1ts.size(), truth.marks.size() + 1);
    for (std::size_t i = 0; i < truth.marks.size(); ++i) {
        EXPECT_EQ(st.form.Grid1ts[i + 1][0], std::to_string(i + 1));
        EXPECT_EQ(st.form.Grid1ts[i + 1][1], expectedtype(st, truth.marks[i].second));
        EXPECT_EQ(st.markrowpos[i], truth.marks[i].first);
    }
    EXPECT_EQ(st.form.Grid1jf.size(), static_cast<std::size_t>(truth.gps) + 1);
    EXPECT_TRUE(st.form.Frame3visible);
    EXPECT_EQ(st.form.SSTab1, 0);
}

TEST_F(ReportsRun, ARowClickGoesToItsPlaceWithTheListsOffset) {
    press(st, "Command1");
    clickrow(st, "Grid1ts", 2);
    const std::int32_t there = st.zhu.viewindex;
    gotoposition(st, truth.marks[1].first - 300);
    EXPECT_EQ(st.zhu.viewindex, there);
    clickrow(st, "Grid1jf", 3);
    const std::int32_t integral = st.zhu.viewindex;
    gotoposition(st, st.zhu.gpspos[2] - 300);
    EXPECT_EQ(st.zhu.viewindex, integral);
    clickrow(st, "Grid1ry", 3);
    const std::int32_t handover = st.zhu.viewindex;
    gotoposition(st, st.handoverrowpos[2]);
    EXPECT_EQ(st.zhu.viewindex, handover);
    // The heads do nothing.
    clickrow(st, "Grid1ts", 0);
    EXPECT_EQ(st.zhu.viewindex, handover);
}

TEST_F(ReportsRun, TheMenuEntriesOpenTheirTabs) {
    press(st, "asz");
    EXPECT_EQ(st.form.SSTab1, 4);
    press(st, "bjdcz");
    EXPECT_EQ(st.form.SSTab1, 1);
    setcontrol(st, "SSTab1", "2");
    EXPECT_EQ(st.form.SSTab1, 2);
}

TEST_F(ReportsRun, TheSwitchSearchGoesToTheSwitchOfThatNumber) {
    std::int32_t position = -1;
    for (const auto& [p, text] : truth.marks)
        if (text == "2051") position = p;
    ASSERT_GE(position, 0);
    st.T1 = true;
    turnoutsearch(st, "101");
    EXPECT_FALSE(st.T1);
    const std::int32_t there = st.zhu.viewindex;
    gotoposition(st, position - 500);
    EXPECT_EQ(st.zhu.viewindex, there);
}

TEST_F(ReportsRun, BadSpeedAnswersStopWithOrWithoutTheMessage) {
    for (const char* answer : {"", "abc", "3,5", "1e400"}) {
        ui.answers = {answer};
        ui.messages.clear();
        press(st, "Command19");
        EXPECT_TRUE(kept.books.empty()) << answer;
        EXPECT_EQ(ui.messages.size(), std::string(answer).empty() ? 0u : 1u) << answer;
    }
    EXPECT_EQ(ui.messages.back(), "输入有误。。。请注意，速度标准值中不能出现非数字的字符");
    // Cancel is a silent stop too.
    ui.answers.clear();
    ui.messages.clear();
    press(st, "Command24");
    EXPECT_TRUE(kept.books.empty());
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(ui.questions.back(), "请输入推行速度标准值（单位为：公里/小时）");
}

TEST_F(ReportsRun, ANegativeStandardListsEveryMarkAndLoadsTheIndexFirst) {
    ui.answers = {"-1"};
    press(st, "Command19");
    ASSERT_EQ(kept.books.size(), 1u);
    EXPECT_EQ(kept.books[0].first, "markspeed");
    EXPECT_EQ(st.form.Grid1ts.size(), truth.marks.size() + 1);
    EXPECT_EQ(st.overspeedcount, static_cast<std::int32_t>(truth.marks.size()));
}

TEST_F(ReportsRun, TheQualitySummaryHoldsTheJobAndTheOverspeedWindows) {
    ui.answers = {"2.5"};
    press(st, "Command24");
    ASSERT_EQ(kept.books.size(), 1u);
    const Sheet& s = lastsheet();
    EXPECT_EQ(s.read(1, 1).text, "                钢  轨  探  伤  作  业  质  量  汇  总                ");
    EXPECT_EQ(s.rowfonts.at(1), 20);
    EXPECT_EQ(s.read(2, 3).text, "仪器编号");
    EXPECT_EQ(s.read(3, 3).text, "51207");
    EXPECT_EQ(s.read(3, 2).text, "26.11.22");
    EXPECT_EQ(s.read(3, 4).text, "张伟  李娜");
    EXPECT_EQ(s.read(2, 30).text, "     I");
    // The windows by the rule, counted here from the samples.
    const Side& z = st.zhu;
    int count = 0;
    for (std::int32_t i = 1; i < z.samplecount - 1;) {
        const std::int32_t start = i;
        float sum = 0;
        std::int32_t j = start;
        while (j <= z.samplecount - 1) {
            sum += z.samplespeed[j];
            if (z.samplepos[j] - z.samplepos[start] > 2500) break;
            ++j;
        }
        if (j > z.samplecount - 1) break;
        if (sum / static_cast<float>(j - start + 1) > 2.5f) {
            const int row = 7 + count;
            EXPECT_EQ(s.read(row, 1).text, s.read(3, 6).text);
            EXPECT_EQ(s.read(row, 2).text, s.read(3, 7).text);
            EXPECT_EQ(s.read(row, 3).text, s.read(3, 1).text);
            EXPECT_EQ(s.read(row, 4).text, s.read(3, 2).text);
            const std::string clock = z.sampleclock[(j - start) / 2 + start];
            EXPECT_EQ(s.read(row, 5).text,
                      clock.substr(0, 2) + ":" + clock.substr(2, 2) + ":" + clock.substr(4, 2));
            EXPECT_NE(s.read(row, 6).text.find("±5米"), std::string::npos);
            ++count;
        }
        i = j + 1;
    }
    ASSERT_GT(count, 0);
    EXPECT_EQ(s.read(3, 21).text, std::to_string(count));
    EXPECT_EQ(s.read(5, 1).text, "超速详情");
    EXPECT_EQ(s.read(7 + count, 1).text, "");
}

TEST_F(ReportsRun, EachConfigurationMakesItsReport) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"haerbin", "tarvik", "                            日台数据分析报告                "},
        {"longxi", "tarvik", "    钢  轨  探  伤  作  业  质  量  汇  总                "},
        {"haerbin", "feitarvik", "                钢  轨  探  伤  作  业  质  量  汇  总                "},
        {"hu", "feitarvik", "    钢  轨  探  伤  作  业  质  量  汇  总                "}};
    for (const auto& [build, tarvik, title] : rows) {
        st.buildvariant = build;
        st.tarvikmode = tarvik;
        kept.books.clear();
        ui.answers = {"3"};
        press(st, "Command24");
        ASSERT_EQ(kept.books.size(), 1u) << build;
        EXPECT_EQ(lastsheet().read(1, 1).text, title) << build;
    }
    // The sample layout stacks the fields nine columns wide.
    EXPECT_EQ(lastsheet().read(4, 1).text, "作业到发线或其它站专线位置");
    EXPECT_EQ(lastsheet().read(6, 3).text, "超速次数");
    EXPECT_EQ(lastsheet().read(8, 9).text, "     I");
}

TEST_F(ReportsRun, TheJobOverviewCopiesThePanelsAndTheThirdBlockCountsGrid3WithTheCellsOfGrid2) {
    press(st, "Lzygk");
    ASSERT_EQ(kept.books.size(), 1u);
    EXPECT_EQ(kept.books[0].first, "overview");
    const Sheet& s = lastsheet();
    const Side& z = st.zhu;
    EXPECT_EQ(s.read(3, 21).text, "0");
    EXPECT_EQ(s.read(7, 1).text, "探头状态");
    for (std::size_t r = 0; r < z.Grid1.size(); ++r)
        for (std::size_t c = 0; c < z.Grid1[r].size(); ++c)
            EXPECT_EQ(s.read(8 + static_cast<int>(r), static_cast<int>(c) + 1).text, z.Grid1[r][c]);
    const int second = 7 + static_cast<int>(z.Grid1.size()) + 3;
    EXPECT_EQ(s.read(second, 1).text, "工作参数");
    EXPECT_EQ(s.read(second + 1, 2).text, z.Grid2[0][1]);
    const int third = second + static_cast<int>(z.Grid2.size()) + 3;
    EXPECT_EQ(s.read(third, 1).text, "仪器设置");
    for (std::size_t r = 0; r < z.Grid3.size(); ++r)
        for (std::size_t c = 0; c < z.Grid2[r].size(); ++c)
            EXPECT_EQ(s.read(third + 1 + static_cast<int>(r), static_cast<int>(c) + 1).text, z.Grid2[r][c]);
}

TEST_F(ReportsRun, ADoubleClickOnTheIntegralListExportsItAsText) {
    press(st, "Command1");
    dblclick(st, "Grid1jf", 1);
    ASSERT_EQ(kept.books.size(), 1u);
    const Sheet& s = lastsheet();
    EXPECT_EQ(s.read(1, 1).text, "积分值表");
    EXPECT_EQ(s.read(2, 1).text, "里程(km)");
    EXPECT_EQ(s.read(3, 10), (CellValue{false, 0, st.form.Grid1jf[1][9]}));
    EXPECT_TRUE(s.borders.empty());
}

TEST_F(ReportsRun, AReportIsKeptUnderTheStationFolderByNameAndTime) {
    clock.time.tm_year = 126;
    clock.time.tm_mon = 10;
    clock.time.tm_mday = 23;
    clock.time.tm_hour = 9;
    clock.time.tm_min = 5;
    clock.time.tm_sec = 7;
    const Shelved shelved = shelve(st, Workbook{}, "quality");
    EXPECT_EQ(shelved.failed, std::nullopt);
    EXPECT_EQ(shelved.path,
              (fs::path(st.folder) / "reports" / "20261122_083-quality-20261123-090507.xlsx").string());
    EXPECT_EQ(readxlsx(shelved.path).sheets().size(), 3u);
}

TEST_F(ReportsRun, AReportsFolderThatCannotBeMadeIsAClearReasonAndNothingIsWritten) {
    fs::remove_all(fs::path(st.folder) / "reports");
    { std::ofstream(fs::path(st.folder) / "reports") << "in the way"; }
    const Shelved shelved = shelve(st, Workbook{}, "quality");
    ASSERT_TRUE(shelved.failed);
    EXPECT_NE(shelved.failed->find("reports"), std::string::npos);
}

class ShortRun : public testkit::IndexTest {};

TEST_F(ShortRun, FewerThanTwoSamplesGiveTheMessageAndNoReport) {
    KeptBooks kept;
    st.workbooks = &kept;
    samples({{0, 2.0f, "08300000010000"}});
    ui.answers = {"3"};
    pressoverspeed(st);
    EXPECT_TRUE(kept.books.empty());
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0], "距离过短，无法统计速度");
}

} // namespace
} // namespace orvane

// The daily report of a synthetic recording of two operators with a stretch of suppression holding a
// low and a high stretch of integral values, through the buttons a user presses; the cells checked
// against what the recording was made of and the rules, counted here.
#include "../processing/recordingfixture.h"
#include "app/startup.h"
#include "recording/hex.h"
#include "reports/index.h"
#include "reports/workbook.h"
#include "station/controls.h"
#include "station/numbers.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <set>

namespace orvane {
namespace {

class KeptBooks : public Workbooks {
  public:
    std::vector<Workbook> books;
    void show(const Workbook& book, const std::string&) override { books.push_back(book); }
};

// The demo recording: 2 km, operator 1 hands over to operator 2 at 900 m; suppression is on from
// 600 to 800 m, with the integral values low from 640 to 700 m and high from 720 to 780 m.
class DailyRun : public testkit::StationTest {
  protected:
    KeptBooks kept;
    ktrgen::Truth truth;
    void SetUp() override {
        start();
        const ktrgen::Recording rec = ktrgen::generate(ktrgen::preset("demo"), 5);
        truth = rec.truth;
        const std::string path =
            writefile("20261122_083.ktr", std::string(rec.bytes.begin(), rec.bytes.end()));
        // A bare name that carries the handover list's prefix meets the entry of the other operator.
        st.gpsxdb->exec("update gzryb set xm=? where bh='1'", {"执机：乙"});
        st.gpsxdb->exec("update gzryb set xm=? where bh='2'", {"乙"});
        windowload(st, path);
        windowactivate(st);
        st.workbooks = &kept;
        st.buildvariant = "haerbin";
        st.tarvikmode = "tarvik";
        // The report reads the lists of the index as they stand: the analyst opens them first.
        press(st, "Command1");
    }
    const Side& z() const { return st.zhu; }

    // The rows of the list of integral values at the GPS positions of LIST.
    std::vector<std::size_t> rowsat(const std::vector<std::int32_t>& list) const {
        std::vector<std::size_t> rows;
        for (std::int32_t p : list)
            for (std::int32_t i = 0; i < z().gpscount; ++i)
                if (z().gpspos[static_cast<std::size_t>(i)] == p)
                    rows.push_back(static_cast<std::size_t>(i) + 1);
        return rows;
    }
    std::string mileageof(std::size_t row) const { return st.form.Grid1jf[row][0]; }
};

// The grass-wave rating by its two tables.
std::string rating(int channel, double v) {
    const bool inclined = channel == 6 || channel == 7;
    const double limits[2][6] = {{50, 60, 80, 90, 100, 110}, {37.5, 45, 52.5, 57.5, 60, 65}};
    const char* texts[] = {"<5", "5", "10", "15", "18", "20", "25"};
    int i = 0;
    while (i < 6 && v >= limits[inclined ? 1 : 0][i]) ++i;
    return texts[i];
}

TEST_F(DailyRun, TheFiveSheetsOfTheDay) {
    ui.answers = {"3"};
    press(st, "Command24");
    ASSERT_EQ(kept.books.size(), 1u);
    const Workbook& book = kept.books[0];
    const Sheet& job = book.sheets()[0];
    const Side& s = z();
    ASSERT_GT(truth.lowintegral.size(), 5u);
    ASSERT_GT(truth.highintegral.size(), 5u);

    // The job block.
    EXPECT_EQ(job.read(5, 2).text, "51207");
    EXPECT_EQ(job.read(4, 2).text, "26.11.22");
    EXPECT_EQ(job.read(5, 12).text, "执机：乙  乙");
    EXPECT_EQ(job.read(6, 8).text, std::to_string(truth.gps) + "/" + std::to_string(truth.gps));
    EXPECT_EQ(job.read(7, 2), (CellValue{true, static_cast<double>(truth.stops.size()), ""}));
    EXPECT_EQ(job.read(7, 4), (CellValue{true, 0, ""}));

    // The four points: 5000, a third, two thirds, each the record after the one in force; the last.
    const std::int32_t last = s.lastposition;
    const double points[] = {5000, std::round(last / 3.0), std::round(2.0 * last / 3.0)};
    for (int k = 0; k < 4; ++k) {
        std::int32_t record = s.paramcount - 1;
        if (k < 3) {
            record = 1;
            while (record < s.paramcount && s.parampos[static_cast<std::size_t>(record)] <= points[k])
                ++record;
        }
        const std::string& image = s.paramrec[static_cast<std::size_t>(record)];
        for (int c = 0; c < 9; ++c) {
            const long gain =
                std::strtol(image.substr(236 + 2 * static_cast<std::size_t>(c), 2).c_str(), nullptr, 16);
            EXPECT_EQ(job.read(11 + 2 * k, 2 + c).text, formatfixed((800 - 5 * gain) / 10.0, 0, 1)) << k << c;
        }
        EXPECT_EQ(job.read(11 + 2 * k, 11).text,
                  formatfixed(s.mileageat(s.parampos[static_cast<std::size_t>(record)]), 4, 3));
    }
    // Suppression was on only between 600 and 800 m: at none of the points.
    EXPECT_EQ(job.read(5, 14).text, "关");

    // The lowest values lie in the low stretch, read here from the GPS entries themselves.
    for (int c = 0; c < 9; ++c) {
        int low = 900;
        for (std::int32_t i = 3; i < s.gpscount; ++i)
            low = std::min<int>(low, static_cast<int>(hexvalue(s.gpstext[static_cast<std::size_t>(i)].substr(
                                         18 + 2 * static_cast<std::size_t>(c), 2))));
        EXPECT_EQ(job.read(19, 2 + c), (CellValue{true, static_cast<double>(low), ""})) << c;
        EXPECT_EQ(job.read(20, 2 + c).text, rating(c, low)) << c;
        EXPECT_LT(low, c == 6 || c == 7 ? 57.5 : 120) << c;
    }
    for (int m = 0; m < 5; ++m) {
        const auto n = std::count_if(truth.marks.begin(), truth.marks.end(),
                                     [m](const auto& mark) { return mark.second == std::to_string(m); });
        EXPECT_EQ(job.read(22, 2 + m), (CellValue{true, static_cast<double>(n), ""})) << m;
    }

    // The entries of the handover list; operator 1's rows are the third's.
    std::vector<std::string> names;
    for (std::size_t r = 1; r < st.form.Grid1ry.size(); ++r)
        if (std::find(names.begin(), names.end(), st.form.Grid1ry[r][0]) == names.end())
            names.push_back(st.form.Grid1ry[r][0]);
    ASSERT_EQ(names[0], "执机：执机：乙");
    const auto own = std::find(names.begin(), names.end(), "执机：乙") - names.begin();
    ASSERT_LT(static_cast<std::size_t>(own), names.size());

    // The windows of the speed rule, counted here; those of operator 1 are its overspeed places.
    const Sheet& details = book.sheets()[1];
    const std::int32_t handover = s.jobpos[1];
    std::vector<std::string> places;
    int row = 3;
    for (std::int32_t i = 1; i < s.samplecount - 1;) {
        const std::int32_t start = i;
        float sum = 0;
        std::int32_t j = start;
        for (; j <= s.samplecount - 1; ++j) {
            sum += s.samplespeed[static_cast<std::size_t>(j)];
            if (s.samplepos[static_cast<std::size_t>(j)] - s.samplepos[static_cast<std::size_t>(start)] >
                2500)
                break;
        }
        if (j > s.samplecount - 1) break;
        const float average = sum / static_cast<float>(j - start + 1);
        if (average > 3.0f) {
            EXPECT_EQ(details.read(row, 1).text, job.read(4, 4).text);
            EXPECT_EQ(details.read(row, 3).text, job.read(2, 2).text);
            const bool first = s.samplepos[static_cast<std::size_t>(start)] < handover;
            EXPECT_EQ(details.read(row, 7).text, first ? "执机：乙" : "乙") << row;
            EXPECT_EQ(details.read(row, 8).text, formatfixed(average, 1, 2));
            if (first) places.push_back(details.read(row, 6).text.substr(0, 8));
            ++row;
        }
        i = j + 1;
    }
    ASSERT_GT(places.size(), 0u);
    EXPECT_EQ(details.read(row, 1).text, "");
    EXPECT_EQ(job.read(6, 14).text, std::to_string(row - 3));

    // One low and one high run on every channel, from the stretch's first row to the row after it.
    const auto lows = rowsat(truth.lowintegral), highs = rowsat(truth.highintegral);
    auto block = [&](const std::vector<std::size_t>& rows, const char* head) {
        std::string text = std::string("执机：乙") + head + "共9处： \r\n";
        for (char c = 'A'; c <= 'I'; ++c)
            text += std::string(1, c) + "通道共1处：   " + mileageof(rows.front()) + "-" +
                    mileageof(rows.back() + 1) + "\r\n";
        return text;
    };
    const Sheet& grass = book.sheets()[2];
    const int n = static_cast<int>(names.size());
    for (int k = 0; k < n; ++k) {
        if (k == own) continue;
        EXPECT_EQ(grass.read(2 + k, 1).text, names[static_cast<std::size_t>(k)] + "低于20%   共0处： ");
        EXPECT_EQ(grass.read(2 + n + k, 1).text, names[static_cast<std::size_t>(k)] + "高于30%  共0处： ");
    }
    EXPECT_EQ(grass.read(2 + static_cast<int>(own), 1).text, block(lows, "低于20%  "));
    EXPECT_EQ(grass.read(2 + n + static_cast<int>(own), 1).text, block(highs, "高于30%  "));
    EXPECT_EQ(job.read(25, 3).text, "低于20%  执机：乙共9处    高于30% 执机：乙共9处 ");

    // The overspeed summary of operator 1.
    std::string text;
    for (std::size_t i = 0; i < places.size(); ++i) {
        text += places[i] + "  ";
        if ((i + 1) % 10 == 0) text += "\r\n";
    }
    const Sheet& speed = book.sheets()[3];
    EXPECT_EQ(speed.read(2 + static_cast<int>(own), 1).text,
              "执机：乙共" + std::to_string(places.size()) + "处： " + text);
    EXPECT_EQ(speed.read(2, 1).text, "执机：执机：乙共0处： ");
    EXPECT_EQ(job.read(24, 3).text, "执机：乙共" + std::to_string(places.size()) + "处   ");

    // Suppression off everywhere but between its two records.
    std::size_t on = 0;
    while (on < static_cast<std::size_t>(s.paramcount) && s.paramrec[on].substr(20, 2) == "00") ++on;
    ASSERT_LT(on + 1, static_cast<std::size_t>(s.paramcount));
    const std::int64_t off = s.parampos[static_cast<std::size_t>(s.paramcount - 1)] - s.parampos[0] -
                             (s.parampos[on + 1] - s.parampos[on]);
    EXPECT_EQ(job.read(26, 3).text, formatfixed(static_cast<double>(off) * 0.0035, 1, 3) + "米");

    // The list of the rows with suppression on: the low and high stretches among them, all operator 1's.
    const Sheet& list = book.sheets()[4];
    std::set<std::string> listed;
    int lastrow = 2;
    for (int r = 3; !list.read(r, 1).text.empty(); ++r) {
        listed.insert(list.read(r, 1).text);
        EXPECT_EQ(list.read(r, 11).text, "执机：乙");
        lastrow = r;
    }
    for (std::size_t r : lows) EXPECT_TRUE(listed.count(mileageof(r))) << r;
    for (std::size_t r : highs) EXPECT_TRUE(listed.count(mileageof(r))) << r;
    EXPECT_EQ(list.borders, std::vector<std::string>{"A1:K" + std::to_string(lastrow)});
}

TEST_F(DailyRun, TheWindowsEntryGivesTheSameReportInAnyConfiguration) {
    ui.answers = {"3", "3"};
    press(st, "Command24");
    st.buildvariant = "longxi";
    st.tarvikmode = "feitarvik";
    press(st, "Commanddaily");
    ASSERT_EQ(kept.books.size(), 2u);
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(kept.books[0].sheets()[i].cells, kept.books[1].sheets()[i].cells);
}

} // namespace
} // namespace orvane

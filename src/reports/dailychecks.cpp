#include "reports/dailychecks.h"

#include "recording/hex.h"
#include "reports/index.h"
#include "reports/workbook.h"
#include "station/numbers.h"
#include "station/text.h"
#include "station/vbval.h"

#include <algorithm>
#include <utility>

namespace orvane {

namespace {

// The report walks at most 999 rows of the list of integral values and keeps at most 11 operators.
constexpr std::int64_t lastintegralrow = 999;
constexpr std::size_t mostnames = 11;

std::string cellof(const Table& t, std::int64_t r, std::size_t c) {
    return r >= 0 && r < static_cast<std::int64_t>(t.size()) && c < t[static_cast<std::size_t>(r)].size()
               ? t[static_cast<std::size_t>(r)][c]
               : "";
}

// An overspeed place of sheet 2: its mileage text and its operator.
struct SpeedPlace {
    std::string mileage, who;
};

// Sheet 2 "超速详情表": a row for each overspeed window, line, direction, team and date copied from
// the job sheet. The places come back for the summary of sheet 4.
std::vector<SpeedPlace> speeddetails(Sheet& s, const Sheet& job, const Station& st,
                                     const std::vector<SpeedWindow>& windows) {
    s.rowfont(1, 20);
    s.write(1, 1, "              超速详情表");
    overspeedheads(s, 2);
    std::vector<SpeedPlace> places;
    int row = 3;
    for (const SpeedWindow& w : windows) {
        s.write(row, 1, job.read(4, 4));
        s.write(row, 2, job.read(4, 8));
        s.write(row, 3, job.read(2, 2));
        s.write(row, 4, job.read(4, 2));
        windowplace(s, row, st, w);
        places.push_back({s.read(row, 6).text, s.read(row, 7).text});
        ++row;
    }
    s.border("A2:H" + std::to_string(row - 1));
    return places;
}

int total(const std::array<int, 9>& counts) {
    int sum = 0;
    for (int n : counts) sum += n;
    return sum;
}

// A sheet of one wide column titled TITLE in large type, as sheets 3 and 4 are.
void widesheet(Sheet& s, const char* title) {
    s.columnwidth("A", 150);
    s.rowfont(1, 20);
    s.write(1, 1, title);
}

// Sheet 3 "草状波不达标地段汇总表": per operator the low runs, then the high runs, channel by channel.
// The grass-wave summary of the check rows comes back.
std::string grasssheet(Sheet& s, const std::vector<std::string>& names, const GrassRuns& low,
                       const GrassRuns& high) {
    widesheet(s, "                          草状波不达标地段汇总表");
    const int n = static_cast<int>(names.size());
    auto block = [&](const GrassRuns& runs, int first, const std::string& head, const char* none) {
        std::string summary;
        for (int k = 0; k < n; ++k) {
            const auto kk = static_cast<std::size_t>(k);
            const int sum = total(runs.count[kk]);
            std::string text = names[kk] + head;
            if (sum == 0) {
                text += none;
            } else {
                text += "共" + std::to_string(sum) + "处： \r\n";
                for (std::size_t c = 0; c < 9; ++c)
                    text += std::string(1, static_cast<char>('A' + c)) + "通道共" +
                            std::to_string(runs.count[kk][c]) + "处： " + runs.text[kk][c] + "\r\n";
                summary += names[kk] + "共" + std::to_string(sum) + "处 ";
            }
            s.write(first + k, 1, text);
        }
        return summary;
    };
    std::string summary = "低于20%  " + block(low, 2, "低于20%  ", " 共0处： ");
    summary += "   高于30% " + block(high, 2 + n, "高于30%  ", "共0处： ");
    s.border("A2:A" + std::to_string(2 * n + 1));
    return summary;
}

// Sheet 4 "全程超速汇总表": per operator the overspeed places by their mileage. The speed summary of
// the check rows comes back.
std::string speedsheet(Sheet& s, const std::vector<std::string>& names,
                       const std::vector<SpeedPlace>& places) {
    widesheet(s, "                                    全程超速汇总表");
    std::string summary;
    for (std::size_t k = 0; k < names.size(); ++k) {
        int count = 0;
        std::string text;
        for (const SpeedPlace& place : places) {
            if (place.who != names[k]) continue;
            text += utf8of(utf32of(place.mileage).substr(0, 8)) + "  ";
            if (++count % 10 == 0) text += "\r\n";
        }
        s.write(static_cast<int>(k) + 2, 1, names[k] + "共" + std::to_string(count) + "处： " + text);
        if (count > 0) summary += names[k] + "共" + std::to_string(count) + "处   ";
    }
    s.border("A2:A" + std::to_string(names.size() + 1));
    return summary;
}

// Sheet 5 "积分值列表": the rows of the list of integral values walked with suppression on, the head
// row with them, and the operator in force behind each.
void integralsheet(Sheet& s, const Station& st) {
    const Table& list = st.form.Grid1jf;
    s.write(1, 1, "积分值表");
    int row = 2;
    for (std::size_t r = 0; r < list.size(); ++r) {
        if (r > 0 && !element(st.zhu.suppressionon, static_cast<std::int64_t>(r) - 1)) continue;
        for (std::size_t c = 0; c < list[r].size(); ++c)
            s.write(row, static_cast<int>(c) + 1, CellValue{false, 0, list[r][c]});
        s.write(row, 11,
                r == 0 ? "执机人" : operatorat(st, element(st.zhu.gpspos, static_cast<std::int64_t>(r) - 1)));
        ++row;
    }
    s.border("A1:K" + std::to_string(row - 1));
}

} // namespace

bool suppressing(const std::string& paramimage) {
    return mid(paramimage, 21, 2) != "00";
}

std::vector<std::string> handovernames(const Table& handover) {
    std::vector<std::string> names;
    for (std::size_t r = 1; r < handover.size() && names.size() < mostnames; ++r) {
        const std::string text = cellof(handover, static_cast<std::int64_t>(r), 0);
        if (std::find(names.begin(), names.end(), text) == names.end()) names.push_back(text);
    }
    return names;
}

std::vector<std::string> integraloperators(const Station& st) {
    const auto rows =
        std::min<std::int64_t>(static_cast<std::int64_t>(st.form.Grid1jf.size()) - 1, lastintegralrow);
    std::vector<std::string> rowop(1);
    for (std::int64_t r = 1; r <= rows; ++r) rowop.push_back(operatorat(st, element(st.zhu.gpspos, r - 1)));
    return rowop;
}

GrassRuns grassruns(const Station& st, const std::vector<std::string>& names,
                    const std::vector<std::string>& rowop, bool low) {
    const Table& list = st.form.Grid1jf;
    const auto rows = static_cast<std::int64_t>(list.size());
    auto on = [&st](std::int64_t r) { return element(st.zhu.suppressionon, r - 1); };
    GrassRuns runs;
    runs.count.assign(names.size(), {});
    runs.text.assign(names.size(), {});
    for (std::size_t k = 0; k < names.size(); ++k) {
        for (std::size_t c = 0; c < 9; ++c) {
            // The 37 degree probes G and H have thresholds of their own; both tests are strict.
            const bool inclined = c == 6 || c == 7;
            const double limit = low ? (inclined ? 57.5 : 120) : (inclined ? 160 : 220);
            auto beyond = [&](std::int64_t r) {
                const double v = vbval(cellof(list, r, c + 1));
                return low ? v < limit : v > limit;
            };
            auto walks = [&](std::int64_t r) { return element(rowop, r) == names[k]; };
            for (std::int64_t r = 1; r <= rows - 2 && r <= lastintegralrow; ++r) {
                if (!on(r) || !beyond(r) || !walks(r)) continue;
                const std::string start = cellof(list, r, 0);
                std::int64_t e = r + 1;
                while (e <= rows - 1 && e <= lastintegralrow && beyond(e) && walks(e) && on(e)) ++e;
                if (e > rows - 1) e = rows - 1;
                // The end is the first row outside the run, unless the run reached the list's end.
                std::string& text = runs.text[k][c];
                text += "  " + start + "-" + cellof(list, e, 0);
                if (++runs.count[k][c] % 5 == 0) text += "\r\n";
                r = e; // and the loop's step: row e can't start the next run
            }
        }
    }
    return runs;
}

std::int64_t suppressionlength(const Side& z) {
    std::int64_t length = 0;
    std::int32_t start = 0;
    bool off = false;
    for (std::int32_t j = 0; j < z.paramcount; ++j) {
        const bool on = suppressing(element(z.paramrec, j));
        if (!on && !off) {
            start = j;
            off = true;
        } else if (on && off) {
            off = false;
            length += element(z.parampos, j) - element(z.parampos, start);
        }
    }
    if (off) length += element(z.parampos, z.paramcount - 1) - element(z.parampos, start);
    return length;
}

void dailychecks(Workbook& book, const Station& st, const std::vector<SpeedWindow>& windows) {
    Sheet& job = book.sheet(1);
    const auto places = speeddetails(book.sheet(2), job, st, windows);
    const auto names = handovernames(st.form.Grid1ry);
    const auto rowop = integraloperators(st);
    const std::string grass = grasssheet(book.sheet(3), names, grassruns(st, names, rowop, true),
                                         grassruns(st, names, rowop, false));
    const std::string speed = speedsheet(book.sheet(4), names, places);

    job.write(24, 1, "作业速度核对");
    job.write(24, 3, speed);
    job.write(25, 1, "草状波核对 ");
    job.write(25, 3, grass);
    job.write(26, 1, "抑制为通常核对");
    job.write(26, 3, formatfixed(static_cast<double>(suppressionlength(st.zhu)) * 0.0035, 1, 3) + "米");
    job.border("A23:N26");
    integralsheet(book.sheet(5), st);
}

} // namespace orvane

#include "reports/quality.h"

#include "recording/hex.h"
#include "reports/daily.h"
#include "reports/index.h"
#include "reports/shelf.h"
#include "reports/workbook.h"
#include "station/numbers.h"
#include "station/station.h"
#include "station/text.h"

#include <cmath>
#include <optional>

namespace orvane {

namespace {

std::string cellof(const Table& t, std::size_t r, std::size_t c) {
    return r < t.size() && c < t[r].size() ? t[r][c] : "";
}

std::string labelof(const Station& st, const std::string& name) {
    const auto it = st.form.labels.find(name);
    return it == st.form.labels.end() ? "" : it->second;
}

// An operator's name; a number that the staff table doesn't know shows with "号" behind it.
std::string operatorfield(const Station& st, const std::string& number) {
    const std::string name = operatorname(st, number);
    return name == number ? number + "号" : name;
}

std::string team(const Station& st, const std::string& instrument) {
    if (!st.yqhbzdb) return "";
    if (st.yqhbzdb->scalar("select count(*) from yqhbz where yqh=?", {instrument}).number() == 0) return "";
    return st.yqhbzdb->scalar("select bz from yqhbz where yqh=?", {instrument}).astext();
}

// The 21 heads of the job's fields with their values, in the order of the window layout's columns.
std::vector<std::pair<const char*, std::string>> jobcolumns(const JobFields& f, const std::string& count) {
    return {{"工区班组", f.team},
            {"作业日期", f.date},
            {"仪器编号", f.instrument},
            {"执机人", f.operators},
            {"作业线别", f.line},
            {"行别", f.direction},
            {"股别", f.railside},
            {"轨型", f.railtype},
            {"作业区间", ""},
            {"作业到发线或其它站专线位置", ""},
            {"起始里程", f.startmileage},
            {"结束里程", f.endmileage},
            {"上道时间", f.starttime},
            {"下道时间", f.endtime},
            {"工作里程", f.length},
            {"作业用时", f.workingtime},
            {"平均速度", f.meanspeed},
            {"反射", f.reflection},
            {"穿透", f.penetration},
            {"失检", f.loss},
            {"超速次数", count}};
}

// Rows 2 and 3 of the window layout, columns 1 to 21.
void jobrows(Sheet& s, const JobFields& f, const std::string& count) {
    int c = 1;
    for (const auto& [head, value] : jobcolumns(f, count)) {
        s.write(2, c, head);
        s.write(3, c, value);
        ++c;
    }
}

// The channel heads "     A" to "     I".
std::string channelhead(int c) {
    return std::string("     ") + static_cast<char>('A' + c);
}

std::string lastparam(const Station& st) {
    return element(st.zhu.paramrec, st.zhu.paramcount - 1);
}

// The heading of the overspeed places at ROW and their eight heads below it; the first row of the
// places.
int detailblock(Sheet& s, int row) {
    s.write(row, 1, "超速详情");
    overspeedheads(s, row + 1);
    return row + 2;
}

// Columns 1 to 4 of a detail row: the copies of cells (3,6), (3,7), (3,1), (3,2), which hold
// direction, rail side, team and date under the heads "线别", "行别", "班组", "日期".
void detailcopies(Sheet& s, int row) {
    s.write(row, 1, s.read(3, 6));
    s.write(row, 2, s.read(3, 7));
    s.write(row, 3, s.read(3, 1));
    s.write(row, 4, s.read(3, 2));
}

// The first sheet of BOOK with the title of the summary in row 1 (font size 20): centred by blanks
// over the 30 columns of the window layout, or over the nine of the sample layout.
Sheet& titled(Workbook& book, bool window) {
    Sheet& s = book.sheet(1);
    s.rowfont(1, 20);
    s.write(1, 1,
            window ? "                钢  轨  探  伤  作  业  质  量  汇  总                "
                   : "    钢  轨  探  伤  作  业  质  量  汇  总                ");
    return s;
}

} // namespace

void overspeedheads(Sheet& s, int row) {
    const char* heads[] = {"线别", "行别", "班组", "日期", "时间", "里程", "执机人", "速度"};
    for (int c = 0; c < 8; ++c) s.write(row, c + 1, heads[c]);
}

void windowplace(Sheet& s, int row, const Station& st, const SpeedWindow& w) {
    const Side& z = st.zhu;
    // The time takes the middle cut down, the mileage the middle rounded to even.
    const std::int32_t half = w.start + (w.end - w.start) / 2;
    const auto middle = static_cast<std::int32_t>(roundeven((w.end - w.start) / 2.0 + w.start));
    s.write(row, 5, sampletime(element(z.sampleclock, half)));
    s.write(row, 6, formatfixed(z.mileageat(element(z.samplepos, middle)), 4, 3) + "±5米");
    s.write(row, 7, operatorat(st, element(z.samplepos, w.start)));
    s.write(row, 8, formatfixed(w.average, 1, 2));
}

JobFields jobfields(const Station& st) {
    const Side& z = st.zhu;
    JobFields f;
    // The caption from its fourth character on: "机号:" is three characters.
    const std::u32string caption = utf32of(st.jobcaption);
    f.instrument = caption.size() > 3 ? utf8of(caption.substr(3)) : "";
    f.team = team(st, f.instrument);
    f.date = labelof(st, "Lzyrq");
    const std::string first = operatortext(element(z.jobrec, 0));
    f.operators = operatorfield(st, first);
    for (std::int32_t j = 1; j < z.jobcount; ++j) {
        const std::string other = operatortext(z.jobrec[static_cast<std::size_t>(j)]);
        if (other != first) {
            f.operators += "  " + operatorfield(st, other);
            break;
        }
    }
    f.line = cellof(z.Grid2, 1, 4);
    f.direction = cellof(z.Grid2, 1, 2);
    f.railside = cellof(z.Grid2, 1, 3);
    f.railtype = cellof(z.Grid3, 1, 4);
    f.startmileage = labelof(st, "Lqslc");
    f.endmileage = labelof(st, "Ljslc");
    f.starttime = labelof(st, "Lqssj");
    f.endtime = labelof(st, "Ljssj");
    f.length = labelof(st, "Ltccd");
    f.workingtime = labelof(st, "Lgzsj");
    f.meanspeed = st.meanspeed;
    f.reflection = cellof(z.Grid3, 1, 0);
    f.penetration = cellof(z.Grid3, 1, 1);
    f.loss = cellof(z.Grid3, 1, 2);
    return f;
}

std::string sensitivityof(int gainbyte) {
    return formatfixed((800 - 5 * gainbyte) / 10.0, 0, 1);
}

namespace {

int gainbyte(const std::string& paramimage, int channel) {
    return static_cast<int>(hexvalue(mid(paramimage, 237 + 2 * static_cast<std::size_t>(channel), 2)));
}

} // namespace

double gainof(const std::string& paramimage, int channel) {
    return (800 - 5 * gainbyte(paramimage, channel)) / 10.0;
}

std::string sensitivityof(const std::string& paramimage, int channel) {
    return sensitivityof(gainbyte(paramimage, channel));
}

int stepsize(std::int32_t n) {
    if (n >= 20 && n < 200) return 10;
    if (n >= 5 && n < 20) return 2;
    if (n < 5) return 1;
    return 100;
}

std::vector<std::int32_t> sampleoverspeed(const Side& side, float standard) {
    std::vector<std::int32_t> found;
    const int step = stepsize(side.samplecount);
    for (std::int32_t i = 1; i <= side.samplecount - 1; i += step)
        if (element(side.samplespeed, i) > standard) found.push_back(i);
    return found;
}

std::vector<SpeedWindow> windowoverspeed(const Side& side, float standard) {
    std::vector<SpeedWindow> found;
    const std::int32_t n = side.samplecount;
    for (std::int32_t i = 1; i < n - 1;) {
        const std::int32_t start = i;
        float sum = 0;
        std::int32_t j = start;
        for (; j <= n - 1; ++j) {
            sum += element(side.samplespeed, j);
            if (static_cast<std::int64_t>(element(side.samplepos, j)) - element(side.samplepos, start) > 2500)
                break;
        }
        if (j > n - 1) break; // the last stretch is shorter than a window: it isn't tested
        const float average = sum / static_cast<float>(j - start + 1);
        if (average > standard) found.push_back({start, j, average});
        i = j + 1;
    }
    return found;
}

std::int32_t overspeedcount(const Station& st, float standard) {
    if (st.buildvariant == "longxi" || st.buildvariant == "hu")
        return static_cast<std::int32_t>(sampleoverspeed(st.zhu, standard).size());
    return static_cast<std::int32_t>(windowoverspeed(st.zhu, standard).size());
}

Workbook windowlayout(const Station& st, float standard) {
    const Side& z = st.zhu;
    const std::int32_t count = overspeedcount(st, standard);
    Workbook book;
    Sheet& s = titled(book, true);
    jobrows(s, jobfields(st), "'" + std::to_string(count));
    for (int c = 0; c < 9; ++c) {
        s.write(2, 22 + c, channelhead(c));
        s.write(3, 22 + c, sensitivityof(lastparam(st), c));
    }
    if (count > 0) {
        int row = detailblock(s, 5);
        for (const SpeedWindow& w : windowoverspeed(z, standard)) {
            detailcopies(s, row);
            windowplace(s, row, st, w);
            ++row;
        }
    }
    return book;
}

Workbook samplelayout(const Station& st, float standard) {
    const Side& z = st.zhu;
    const std::int32_t count = overspeedcount(st, standard);
    Workbook book;
    Sheet& s = titled(book, false);
    const auto fields = jobcolumns(jobfields(st), "'" + std::to_string(count));
    // Nine columns a pair of rows: heads in rows 2, 4, 6 and values below them.
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const int row = 2 + 2 * static_cast<int>(i / 9), column = 1 + static_cast<int>(i % 9);
        s.write(row, column, fields[i].first);
        s.write(row + 1, column, fields[i].second);
    }
    for (int c = 0; c < 9; ++c) {
        s.write(8, 1 + c, channelhead(c));
        s.write(9, 1 + c, sensitivityof(lastparam(st), c));
    }
    if (count > 0) {
        int row = detailblock(s, 11);
        for (std::int32_t i : sampleoverspeed(z, standard)) {
            detailcopies(s, row);
            s.write(row, 5, sampletime(element(z.sampleclock, i)));
            s.write(row, 6, formatfixed(z.mileageat(element(z.samplepos, i)), 4, 3));
            s.write(row, 7, operatorat(st, element(z.samplepos, i)));
            s.write(row, 8, formatfixed(element(z.samplespeed, i), 1, 2));
            ++row;
        }
    }
    return book;
}

Workbook joboverview(const Station& st) {
    const Side& z = st.zhu;
    Workbook book;
    Sheet& s = titled(book, true);
    jobrows(s, jobfields(st), "'0");
    // The panels of the replay display cell by cell; the third block counts the rows of Grid3 but
    // copies the cells of Grid2.
    auto block = [&s](int row, const char* heading, const Table& cells, std::size_t rows) {
        s.write(row, 1, heading);
        for (std::size_t r = 0; r < rows && r < cells.size(); ++r)
            for (std::size_t c = 0; c < cells[r].size(); ++c)
                s.write(row + 1 + static_cast<int>(r), static_cast<int>(c) + 1,
                        CellValue{false, 0, cells[r][c]});
        return row + static_cast<int>(rows); // the last row of the block
    };
    int last = block(7, "探头状态", z.Grid1, z.Grid1.size());
    last = block(last + 3, "工作参数", z.Grid2, z.Grid2.size());
    block(last + 3, "仪器设置", z.Grid2, z.Grid3.size());
    return book;
}

std::string reportlayout(const Station& st) {
    if (st.tarvikmode == "tarvik") return st.buildvariant == "haerbin" ? "daily" : "sample";
    return st.buildvariant == "haerbin" ? "window" : "sample";
}

void qualityreport(Station& st, const std::string& layout, float standard) {
    st.overspeedcount = overspeedcount(st, standard);
    handover(st, layout == "window" ? windowlayout(st, standard) : samplelayout(st, standard), "quality");
}

namespace {

// The start of every speed report: the standard asked for, and no report on a run of fewer than
// two samples.
std::optional<float> speedreportstart(Station& st) {
    const auto standard = askspeedstandard(st, "标准设置", "请输入推行速度标准值（单位为：公里/小时）");
    if (standard && st.zhu.samplecount < 2) {
        st.ui->message(shortrunmessage);
        return std::nullopt;
    }
    return standard;
}

} // namespace

void pressoverspeed(Station& st) {
    const std::string layout = reportlayout(st);
    if (layout == "daily") return pressdaily(st);
    if (const auto standard = speedreportstart(st)) qualityreport(st, layout, *standard);
}

void pressdaily(Station& st) {
    if (const auto standard = speedreportstart(st)) dailyreport(st, *standard);
}

void pressdailyentry(Station& st) {
    if (const auto standard = speedreportstart(st)) {
        indexload(st);
        dailyreport(st, *standard);
    }
}

void pressjoboverview(Station& st) {
    handover(st, joboverview(st), "overview");
}

} // namespace orvane

#include "reports/daily.h"

#include "recording/hex.h"
#include "reports/dailychecks.h"
#include "reports/index.h"
#include "reports/quality.h"
#include "reports/shelf.h"
#include "reports/workbook.h"
#include "station/numbers.h"
#include "station/vbval.h"

namespace orvane {

namespace {

// The image of parameter record R, with the sentinel behind the last; empty past it or in a run
// without parameter records.
std::string recordimage(const Side& z, std::int32_t r) {
    return z.paramcount > 0 && r >= 0 && r <= z.paramcount ? element(z.paramrec, r) : "";
}

// Rows 2 to 7: labels in the odd columns, values to their right; the empty cells are for the
// analyst's hand.
void jobblock(Sheet& s, const Station& st, float standard, std::int32_t count,
              const std::string& suppression) {
    const Side& z = st.zhu;
    const JobFields f = jobfields(st);
    s.write(2, 1, "工区/组别");
    s.write(2, 2, f.team);
    const char* planned[] = {"计划作业日期", "计划线名或站名", "计划作业区间", "行别",
                             "计划位置",     "计划探测长度",   "股别"};
    for (int i = 0; i < 7; ++i) s.write(3, 1 + 2 * i, planned[i]);
    s.write(3, 14, f.railside);
    const std::pair<const char*, std::string> rows[4][7] = {
        {{"实际作业日期", f.date},
         {"实际线名或站名", f.line},
         {"实际作业区间", ""},
         {"行别", f.direction},
         {"实际位置", f.startmileage + "-" + f.endmileage},
         {"实际探测长度", f.length},
         {"轨型", f.railtype}},
        {{"仪器编号", f.instrument},
         {"仪器型号", "KRM-5T"},
         {"开始作业时间", f.starttime},
         {"结束作业时间", f.endtime},
         {"实际用时", f.workingtime},
         {"执机人", f.operators},
         {"抑制开关", suppression}},
        // The reflection switch goes into (6,4) first and the penetration switch over it.
        {{"失检开关", f.loss},
         {"穿透开关", f.penetration},
         {"仪器性能", ""},
         {"GPS数值", gpsratio(z)},
         {"速度门限", ""},
         {"平均速度", f.meanspeed},
         {"超速次数", "'" + std::to_string(count)}},
        {{"倒车确认", ""},
         {"报警点次数", ""},
         {"曲线条数", ""},
         {"大桥数量", ""},
         {"隧道数量", ""},
         {"加固监控处所", ""},
         {"未复核出伤损监控处所", ""}}};
    for (int r = 0; r < 4; ++r)
        for (int i = 0; i < 7; ++i) {
            s.write(4 + r, 1 + 2 * i, rows[r][i].first);
            if (!rows[r][i].second.empty()) s.write(4 + r, 2 + 2 * i, rows[r][i].second);
        }
    s.write(6, 10, static_cast<double>(standard));
    s.write(7, 2, static_cast<double>(z.stopcount));
    s.write(7, 4, static_cast<double>(st.form.Grid1bj.size()) - 1);
}

// Rows 8 to 22: the sensitivities at the four points with their mileages, the lowest integral
// values with their ratings, the counts of the hand marks.
void instrumentblock(Sheet& s, const Station& st, const std::array<std::int32_t, 4>& records) {
    const Side& z = st.zhu;
    s.write(8, 1, "仪器设置状态");
    s.write(9, 1, "通道");
    for (int c = 0; c < 9; ++c) s.write(9, 2 + c, std::string(1, static_cast<char>('A' + c)));
    s.write(9, 11, "调整位置");
    s.write(10, 1, "月测试灵敏度");
    const char* points[] = {"起始灵敏度", "中间灵敏度", "中间灵敏度", "结束灵敏度"};
    for (int k = 0; k < 4; ++k) {
        const int row = 11 + 2 * k;
        s.write(row, 1, points[k]);
        s.write(row + 1, 1, "差值" + std::to_string(k + 1));
        const std::string image = recordimage(z, records[static_cast<std::size_t>(k)]);
        if (image.empty()) continue; // no record, nothing to show
        for (int c = 0; c < 9; ++c) s.write(row, 2 + c, sensitivityof(image, c));
        s.write(row, 11,
                formatfixed(z.mileageat(element(z.parampos, records[static_cast<std::size_t>(k)])), 4, 3));
    }
    s.write(19, 1, "积分最低值");
    s.write(20, 1, "草状波最低值");
    const auto low = lowestintegral(st.form.Grid1jf);
    for (int c = 0; c < 9; ++c) {
        s.write(19, 2 + c, low[static_cast<std::size_t>(c)]);
        s.write(20, 2 + c, grassrating(c, low[static_cast<std::size_t>(c)]));
    }
    s.write(21, 1, "标记点个数");
    const auto counts = markcounts(z);
    for (int m = 0; m < 5; ++m) {
        s.write(21, 2 + m, "标记" + std::to_string(m));
        s.write(22, 2 + m, static_cast<double>(counts[static_cast<std::size_t>(m)]));
    }
}

} // namespace

std::array<std::int32_t, 4> sensitivityrecords(const Side& z) {
    const std::int32_t last = z.lastposition;
    // The record after the one in force at P: the one the instrument wrote next.
    auto after = [&z](double p) {
        std::int32_t j = 0;
        while (j < z.paramcount && !between(element(z.parampos, j), p, element(z.parampos, j + 1))) ++j;
        return j + 1;
    };
    const double first = last < 5000 ? roundeven(last / 4.0) : 5000;
    return {after(first), after(roundeven(last / 3.0)), after(roundeven(2.0 * last / 3.0)), z.paramcount - 1};
}

std::string gpsratio(const Side& z) {
    std::int32_t fixed = 0;
    for (std::int32_t i = 0; i < z.gpscount; ++i)
        if (vbval(mid(element(z.gpstext, i), 1, 2)) != 0) ++fixed;
    return std::to_string(fixed) + "/" + std::to_string(z.gpscount);
}

std::array<double, 9> lowestintegral(const Table& integral) {
    std::array<double, 9> low;
    low.fill(900);
    // The first three rows of values are left out.
    for (std::size_t r = 4; r < integral.size(); ++r) {
        std::array<double, 9> v{};
        double sum = 0;
        for (std::size_t c = 0; c < 9; ++c) {
            v[c] = c + 1 < integral[r].size() ? vbval(integral[r][c + 1]) : 0;
            sum += v[c];
        }
        if (sum == 0) continue;
        for (std::size_t c = 0; c < 9; ++c)
            if (v[c] < low[c]) low[c] = v[c];
    }
    if (low[0] == 900) low.fill(0);
    return low;
}

std::string grassrating(int channel, double v) {
    // The 37 degree probes G and H hear less grass: their scale lies lower.
    static const double wide[] = {50, 60, 80, 90, 100, 110};
    static const double inclined[] = {37.5, 45, 52.5, 57.5, 60, 65};
    static const char* texts[] = {"<5", "5", "10", "15", "18", "20", "25"};
    const double* limits = channel == 6 || channel == 7 ? inclined : wide;
    int i = 0;
    while (i < 6 && v >= limits[i]) ++i;
    return texts[i];
}

std::array<int, 5> markcounts(const Side& z) {
    std::array<int, 5> counts{};
    for (std::int32_t i = 0; i < z.markcount; ++i) {
        const double v = markvalue(element(z.marktext, i));
        if (v >= 0 && v < 5) ++counts[static_cast<std::size_t>(v)];
    }
    return counts;
}

Workbook dailybook(const Station& st, float standard) {
    const Side& z = st.zhu;
    const auto windows = windowoverspeed(z, standard);
    Workbook book;
    book.addsheets(5);
    const char* names[] = {"日台数据分析报告", "超速详情表", "草状波不达标地段汇总表", "全程超速汇总表",
                           "积分值列表"};
    for (int i = 0; i < 5; ++i) book.sheet(i + 1).name = names[i];
    Sheet& s = book.sheet(1);
    s.rowfont(1, 20);
    s.write(1, 1, "                            日台数据分析报告                ");
    const auto records = sensitivityrecords(z);
    // Suppression counts as on for the day when it was on at three or four of the points.
    int suppressed = 0;
    for (std::int32_t r : records)
        if (const std::string image = recordimage(z, r); !image.empty() && suppressing(image)) ++suppressed;
    jobblock(s, st, standard, static_cast<std::int32_t>(windows.size()), suppressed > 2 ? "开" : "关");
    instrumentblock(s, st, records);
    s.border("A2:N22");
    dailychecks(book, st, windows);
    return book;
}

void dailyreport(Station& st, float standard) {
    const Workbook book = dailybook(st, standard);
    st.overspeedcount = static_cast<std::int32_t>(windowoverspeed(st.zhu, standard).size());
    handover(st, book, "daily");
}

} // namespace orvane

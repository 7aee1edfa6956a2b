#include "reports/markspeed.h"

#include "recording/hex.h"
#include "reports/index.h"
#include "reports/shelf.h"
#include "reports/workbook.h"
#include "station/station.h"
#include "station/vbval.h"

#include <algorithm>

namespace orvane {

namespace {

void alarmsheet(const Station& st, Sheet& s) {
    const Side& z = st.zhu;
    s.name = "报警开关状态一览表";
    s.rowfont(1, 20);
    s.write(1, 1, "             报警开关状态一览表                ");
    std::string reflection, penetration, who;
    int q = 0;
    for (std::int32_t i = 0; i < z.paramcount; ++i) {
        const std::int32_t p = element(z.parampos, i);
        const std::string name = operatorat(st, p);
        // The low digit of byte 141: bit 0 the reflection alarm, bit 1 the penetration alarm.
        const std::string bits = hexbits(mid(element(z.paramrec, i), 284, 1));
        const std::string r = bits.size() == 4 && bits[3] != '0' ? "开" : "关";
        const std::string t = bits.size() == 4 && bits[2] != '0' ? "开" : "关";
        if (r == reflection && t == penetration && name == who) continue;
        const int row = q + 2;
        s.write(row, 1, "反射报警：");
        s.write(row, 2, r);
        s.write(row, 3, "穿透报警：");
        s.write(row, 4, t);
        s.write(row, 5, "里程：");
        s.write(row, 6, static_cast<double>(z.mileageat(p)));
        s.write(row, 7, "执机人：");
        s.write(row, 8, name);
        reflection = r;
        penetration = t;
        who = name;
        ++q;
    }
    s.border("A2:H" + std::to_string(q + 1));
}

} // namespace

std::vector<OperatorMarks> marksabove(const Station& st, float standard) {
    std::vector<OperatorMarks> list;
    const Table& marks = st.form.Grid1ts;
    for (std::size_t i = 1; i < marks.size(); ++i) {
        // The speed as the list shows it, one decimal: 3.04 km/h reads 3.0.
        const float speed = static_cast<float>(vbval(marks[i][3]));
        if (!(speed > standard)) continue;
        const std::string name = operatorat(st, element(st.markrowpos, static_cast<std::int64_t>(i) - 1));
        auto it =
            std::find_if(list.begin(), list.end(), [&](const OperatorMarks& o) { return o.name == name; });
        if (it == list.end()) it = list.insert(list.end(), OperatorMarks{name, 0, ""});
        it->text += marks[i][2] + " ";
        ++it->count;
        if (it->count % 15 == 0) it->text += "\r\n";
    }
    return list;
}

namespace {

Workbook bookof(const Station& st, const std::vector<OperatorMarks>& list) {
    Workbook book;
    Sheet& s = book.sheet(1);
    s.columnwidth("A", 150);
    s.name = "标记点超速汇总表";
    s.rowfont(1, 20);
    s.write(1, 1, "                                   标记点超速汇总表                ");
    for (std::size_t k = 0; k < list.size(); ++k)
        s.write(static_cast<int>(k) + 2, 1,
                list[k].name + "共" + std::to_string(list[k].count) + "处： " + "\r\n" + list[k].text);
    if (!list.empty()) s.border("A2:A" + std::to_string(list.size() + 1));
    alarmsheet(st, book.sheet(2));
    return book;
}

} // namespace

Workbook markspeedbook(const Station& st, float standard) {
    return bookof(st, marksabove(st, standard));
}

void markoverspeed(Station& st) {
    const auto standard = askspeedstandard(st, "标准输入", "请输入速度标准值（单位为：公里/小时）");
    if (!standard) return;
    if (st.form.Grid1jf.size() < 5) indexload(st);
    const std::vector<OperatorMarks> list = marksabove(st, *standard);
    st.overspeedcount = 0;
    for (const OperatorMarks& o : list) st.overspeedcount += o.count;
    handover(st, bookof(st, list), "markspeed");
}

void integralexport(Station& st) {
    Workbook book;
    Sheet& s = book.sheet(1);
    s.write(1, 1, "积分值表");
    const Table& list = st.form.Grid1jf;
    for (std::size_t r = 0; r < list.size(); ++r)
        for (std::size_t c = 0; c < list[r].size(); ++c)
            s.write(static_cast<int>(r) + 2, static_cast<int>(c) + 1, CellValue{false, 0, list[r][c]});
    handover(st, book, "integral");
}

} // namespace orvane

#include "reports/index.h"

#include "recording/hex.h"
#include "recording/panels.h"
#include "replay/bofang.h"
#include "station/numbers.h"
#include "station/station.h"
#include "station/vbval.h"

#include <cmath>

namespace orvane {

namespace {

std::string mileagetext(const Side& side, std::int64_t position) {
    return formatfixed(side.mileageat(position), 4, 3);
}

// Keeps the position of list row ROW (from 1), growing the list when a long run needs more rows.
void keeprowpos(std::vector<std::int32_t>& list, std::size_t row, std::int32_t position) {
    if (row > list.size()) list.resize(row);
    list[row - 1] = position;
}

// A row of the list of marks: number, type, mileage, and the speed filled by the caller.
void addmarkrow(Station& st, std::int32_t i, const std::string& type) {
    const Side& z = st.zhu;
    const std::size_t row = st.form.Grid1ts.size();
    const std::int32_t position = element(z.markpos, i);
    st.form.Grid1ts.push_back({std::to_string(row), type, mileagetext(z, position), ""});
    keeprowpos(st.markrowpos, row, position);
}

void addhandoverrow(Station& st, const std::string& who, std::int32_t position, const std::string& clock) {
    const std::size_t row = st.form.Grid1ry.size();
    st.form.Grid1ry.push_back({who, mileagetext(st.zhu, position), sampletime(clock)});
    keeprowpos(st.handoverrowpos, row, position);
}

} // namespace

double markvalue(const std::string& text) {
    return roundeven(vbval(text));
}

std::int32_t sampleinforce(const Side& side, std::int32_t p, std::int32_t& k) {
    if (between(element(side.samplepos, k), p, element(side.samplepos, k + 1))) return k;
    while (k < side.samplecount && !between(element(side.samplepos, k), p, element(side.samplepos, k + 1)))
        ++k;
    return k;
}

float speedatmark(const Side& side, std::int32_t p, std::int32_t& k) {
    sampleinforce(side, p, k);
    const float here = element(side.samplespeed, k), next = element(side.samplespeed, k + 1);
    return next < here ? next : here;
}

std::string marktypetext(const Station& st, const std::string& text) {
    const double v = markvalue(text);
    std::string type;
    if (v < 5) type = "标记" + text;
    if (text == "12345") type = "里程校对";
    if (text == "12346") type = "积分模式";
    if (v >= 1949 && v <= 11999) type = "道岔" + std::to_string(static_cast<int>(v) + 50 - 2000);
    if (v >= 100 && v <= 137) type = st.settings.biaojikcpair[static_cast<std::size_t>(v) - 100][0];
    return type;
}

std::string sampletime(const std::string& sampleclock) {
    return mid(sampleclock, 1, 2) + ":" + mid(sampleclock, 3, 2) + ":" + mid(sampleclock, 5, 2);
}

std::int64_t clockmetres(const std::string& sampleclock) {
    // Kilometres and metres read as one number, then counted in whole metres: a step of 20.000 m
    // stays 20 m exactly.
    return std::llround(vbval(mid(sampleclock, 7, 4) + "." + mid(sampleclock, 11, 3)) * 1000);
}

std::string operatortext(const std::string& jobimage) {
    std::string text;
    for (std::size_t b = 55; b <= 57; ++b) text += static_cast<char>(imagebyte(jobimage, b));
    return text;
}

std::string tracknumber(const std::string& jobimage) {
    return mid(jobimage, 214, 1) + mid(jobimage, 216, 1) + mid(jobimage, 218, 1);
}

std::string operatorname(const Station& st, const std::string& number) {
    const double value = roundeven(vbval(number));
    if (std::fabs(value) > 2147483647.0) return number;
    return codename(st.gpsxdb.get(), "gzryb", "xm", value).value_or(number);
}

std::int32_t jobinforce(const Side& side, std::int32_t p) {
    std::int32_t j = 0;
    while (j < side.jobcount && !between(element(side.jobpos, j), p, element(side.jobpos, j + 1))) ++j;
    return j;
}

std::string operatorat(const Station& st, std::int32_t p) {
    return operatorname(st, operatortext(element(st.zhu.jobrec, jobinforce(st.zhu, p))));
}

void indexload(Station& st) {
    Side& z = st.zhu;
    st.form.Frame3visible = true;
    st.form.Grid1ts.resize(1);
    std::int32_t k = 0;
    for (std::int32_t i = 0; i < z.markcount; ++i) {
        const std::string& text = z.marktext[static_cast<std::size_t>(i)];
        addmarkrow(st, i, marktypetext(st, text));
        st.form.Grid1ts.back()[3] =
            formatfixed(speedatmark(z, z.markpos[static_cast<std::size_t>(i)], k), 1, 1);
    }

    st.form.Grid1jf.resize(1);
    for (std::int32_t i = 0; i < z.gpscount; ++i) {
        std::vector<std::string> row{formatfixed(z.mileageat(element(z.gpspos, i)), 4, 4)};
        const std::string& text = z.gpstext[static_cast<std::size_t>(i)];
        for (int c = 0; c < 9; ++c) {
            std::string value = std::to_string(hexvalue(mid(text, 19 + 2 * c, 2)));
            row.push_back(std::string(value.size() < 3 ? 3 - value.size() : 0, ' ') + value);
        }
        st.form.Grid1jf.push_back(row);
    }

    st.form.Grid1ry.resize(1);
    std::string operatorbefore = "***", trackbefore = "***";
    k = 0;
    for (std::int32_t j = 0; j < z.jobcount; ++j) {
        const std::string& image = z.jobrec[static_cast<std::size_t>(j)];
        const std::int32_t position = element(z.jobpos, j);
        const std::string who = operatortext(image), track = tracknumber(image);
        const std::string clock = element(z.sampleclock, sampleinforce(z, position, k));
        if (who != operatorbefore) addhandoverrow(st, "执机：" + operatorname(st, who), position, clock);
        if (track != trackbefore) addhandoverrow(st, "股道：" + track, position, clock);
        operatorbefore = who;
        trackbefore = track;
    }
    // Samples 0 to 2 are never examined: the clock of a start is not yet steady.
    for (std::int32_t i = 3; i <= z.samplecount - 2; ++i) {
        const std::string& here = z.sampleclock[static_cast<std::size_t>(i)];
        const std::string& next = z.sampleclock[static_cast<std::size_t>(i) + 1];
        if (std::llabs(clockmetres(next) - clockmetres(here)) > 20)
            addhandoverrow(st, "里程突变", z.samplepos[static_cast<std::size_t>(i) + 1], next);
    }
    st.form.SSTab1 = 0;
    ++st.form.listrevision;
}

void markfilter(Station& st) {
    const Side& z = st.zhu;
    const auto& box = st.form.Checkts;
    st.form.Grid1ts.resize(1);
    std::int32_t k = 0;
    for (std::int32_t i = 0; i < z.markcount; ++i) {
        const std::string& text = z.marktext[static_cast<std::size_t>(i)];
        const double v = markvalue(text);
        const std::size_t rows = st.form.Grid1ts.size();
        if (v >= 5) {
            if (box[6] && (v == 12345 || v == 105 || v == 106)) {
                if (text == "12345") addmarkrow(st, i, "里程校对");
                if (v == 105 || v == 106) addmarkrow(st, i, marktypetext(st, text));
            }
            if (text == "12346") addmarkrow(st, i, "积分模式");
            if (v >= 1949 && v < 12000 && box[5]) addmarkrow(st, i, marktypetext(st, text));
        } else if (v >= 0 && box[static_cast<std::size_t>(v)]) {
            addmarkrow(st, i, "标记" + text);
        }
        // Attribute marks other than 105 and 106 show whatever the boxes say.
        if (v >= 100 && v < 138 && v != 105 && v != 106) addmarkrow(st, i, marktypetext(st, text));
        if (st.form.Grid1ts.size() > rows)
            st.form.Grid1ts.back()[3] = formatfixed(speedatmark(z, element(z.markpos, i), k), 1, 1);
    }
    ++st.form.listrevision;
}

void gotomarkrow(Station& st, int row) {
    if (row < 1 || row >= static_cast<int>(st.form.Grid1ts.size())) return;
    gotoposition(st, element(st.markrowpos, row - 1) - 300);
}

void gotointegralrow(Station& st, int row) {
    if (row < 1 || row >= static_cast<int>(st.form.Grid1jf.size())) return;
    gotoposition(st, element(st.zhu.gpspos, row - 1) - 300);
}

void gotohandoverrow(Station& st, int row) {
    if (row < 1 || row >= static_cast<int>(st.form.Grid1ry.size())) return;
    gotoposition(st, element(st.handoverrowpos, row - 1));
}

void turnoutsearch(Station& st, const std::string& text) {
    const auto number = toint16(vbval(text));
    if (!number) return;
    st.T1 = st.T2 = false;
    const Side& z = st.zhu;
    for (std::int32_t i = 0; i < z.markcount; ++i) {
        const double v = markvalue(z.marktext[static_cast<std::size_t>(i)]);
        if (v >= 1949 && v <= 11999 && v + 50 - 2000 == *number) {
            gotoposition(st, z.markpos[static_cast<std::size_t>(i)] - 500);
            return;
        }
    }
}

} // namespace orvane

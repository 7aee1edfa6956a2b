// The job record in force in Grid2, and the job summary of the main recording after a load.
#include "recording/hex.h"
#include "recording/panels.h"
#include "station/numbers.h"
#include "station/station.h"
#include "station/text.h"
#include "station/vbval.h"

#include <cmath>

namespace orvane {

namespace {

// Character N (from 1) of a record image; "" past its end.
std::string charof(const std::string& image, std::size_t n) {
    return mid(image, n, 1);
}

} // namespace

std::optional<std::string> codename(Db* db, const std::string& table, const std::string& column,
                                    double code) {
    if (!db) return std::nullopt;
    const std::string n = shortestdouble(code);
    if (db->scalar("select count(*) from " + table + " where val(bh)=val(?)", {n}).number() == 0)
        return std::nullopt;
    return db->scalar("select " + column + " from " + table + " where val(bh)=val(?)", {n}).astext();
}

namespace {

std::string directiontext(int code, bool english) {
    static const char* const names[] = {"上行", "下行", "站线", "联线", "单线", "其它"};
    const bool up = code < 0 || code > 5 || code == 0;
    if (english) return up ? "up" : "down";
    return up ? names[0] : names[code];
}

// The last job record, or an empty one when the recording has none.
const std::string& lastjob(const Side& side) {
    return side.jobrec[side.jobcount > 0 ? side.jobcount - 1 : 0];
}

// Minutes of the day of a sample clock "hhmmss…".
long clockminutes(const std::string& clock) {
    return static_cast<long>(vbval(mid(clock, 1, 2))) * 60 + static_cast<long>(vbval(mid(clock, 3, 2)));
}

// The kilometre of a sample clock as "kkkk公里mmm米".
std::string clockmileage(const std::string& clock) {
    return mid(clock, 7, 4) + "公里" + mid(clock, 11, 3) + "米";
}

// The start and end of the job, as times "hhmmss" and mileage texts.
struct Span {
    std::string starttime, startmileage, endtime, endmileage;
};

Span jobspan(const Side& side, std::int32_t gpscount) {
    Span s;
    // Element 1: with one sample the sentinel repeats element 0.
    s.starttime = mid(side.sampleclock[1], 1, 6);
    s.startmileage = clockmileage(side.sampleclock[1]);
    const std::string& last = side.sampleclock[side.samplecount - 1];
    s.endtime = mid(last, 1, 6);
    s.endmileage = clockmileage(last);

    const std::int64_t at = static_cast<std::int64_t>(side.lastposition) - 500;
    const bool valid = at >= 0 && at < side.gridrows;
    auto mileagetext = [](float km) {
        const std::string t = formatfixed(km, 4, 3);
        return mid(t, 1, 4) + "公里" + mid(t, 6, 3) + "米";
    };
    if (gpscount > 4 && valid) {
        float km = side.mileage[at][0];
        for (std::int64_t p = at; km == 0 && p >= 800; --p) km = side.mileage[p][0];
        s.endmileage = mileagetext(km);
    }
    if (gpscount > 40) {
        if (valid) s.endmileage = mileagetext(side.mileage[at][0]);
        // A clock that jumps at the ends of the file is passed over: the start and the end are the
        // first samples whose clock agrees with the one five samples on (or back) within 3 minutes.
        for (std::int32_t i = 0; i <= side.samplecount - 10; ++i) {
            if (std::labs(clockminutes(side.sampleclock[i]) - clockminutes(side.sampleclock[i + 5])) < 3) {
                s.starttime = mid(side.sampleclock[i], 1, 6);
                s.startmileage = clockmileage(side.sampleclock[i]);
                break;
            }
        }
        for (std::int32_t i = side.samplecount - 1; i >= 11; --i) {
            if (std::labs(clockminutes(side.sampleclock[i]) - clockminutes(side.sampleclock[i - 5])) < 3) {
                s.endtime = mid(side.sampleclock[i], 1, 6);
                s.endmileage = clockmileage(side.sampleclock[i]);
                break;
            }
        }
    }
    return s;
}

// The five characters of the instrument number in a job record (bytes 47..51), trimmed.
std::string numbercharacters(const std::string& image) {
    std::string number;
    for (int i = 0; i < 5; ++i) {
        const int b = imagebyte(image, 47 + i);
        number += b < 0x80 ? std::string(1, static_cast<char>(b)) : std::string("?");
    }
    return trimblanks(number);
}

// The instrument number of a job record: its characters, "00000" when the field is unset.
std::string instrumentnumber(const std::string& image) {
    const std::string field = mid(image, 95, 10);
    if (field.rfind("0100", 0) == 0 || field.rfind("000000", 0) == 0) return "00000";
    return numbercharacters(image);
}

// The date of a job record, "yy.mm.dd".
std::string jobdate(const std::string& image) {
    auto c = [&](std::size_t n) { return charof(image, n); };
    return c(48) + c(46) + "." + c(44) + c(42) + "." + c(40) + c(38);
}

// The alignment words of table pinkong for this instrument, channels A to H.
void loadpinkong(Station& st) {
    Db& db = *st.gpsxdb;
    if (db.scalar("select count(*) from pinkong where jqbh=?", {st.machineno}).number() != 1) return;
    st.pinkonghit = 1;
    const auto rows =
        db.rows("select apk, bpk, cpk, dpk, epk, fpk, gpk, hpk from pinkong where jqbh=?", {st.machineno});
    if (rows.empty()) return;
    for (int k = 0; k < 8 && k < static_cast<int>(rows[0].size()); ++k)
        st.zhu.pinkongval[k] = toint16(rows[0][k].number()).value_or(0);
}

} // namespace

void applyjob(Station& st, Side& side, std::int32_t index, bool timecolumn) {
    if (index < 0 || index >= static_cast<std::int32_t>(side.jobrec.size())) return;
    const std::string& image = side.jobrec[index];
    const bool english = st.language == "english";
    auto c = [&](std::size_t n) { return charof(image, n); };

    // A section of a restart record carries its own time.
    if (timecolumn && imagebyte(image, 0) == 0x53 && c(242) == "1")
        setcell(side.Grid2, 1, 0, c(36) + c(34) + "时" + c(32) + c(30) + "分" + c(28) + c(26) + "秒");

    std::string operatortext;
    for (int i = 0; i < 3; ++i) {
        const char ch = static_cast<char>(imagebyte(image, 55 + i));
        operatortext += ch == 'O' || ch == ' ' ? '0' : ch;
    }
    const double operatorno = toint16(vbval(operatortext)).value_or(0);
    setcell(side.Grid2, 1, 1, codename(st.gpsxdb.get(), "gzryb", "xm", operatorno).value_or(operatortext));

    setcell(side.Grid2, 1, 2, directiontext(imagebyte(image, 58), english));
    const bool leftrail = imagebyte(image, 59) == 0x4C;
    setcell(side.Grid2, 1, 3, english ? (leftrail ? "left" : "right") : (leftrail ? "左股" : "右股"));

    const double linecode = vbval(c(210) + c(212));
    setcell(side.Grid2, 1, 4, codename(st.gpsxdb.get(), "zyqjb", "mc", linecode).value_or(""));
    setcell(side.Grid2, 1, 5, c(214) + c(216) + c(218));
    setcell(side.Grid2, 1, 6, c(220) + c(222) + c(224));
    const double linename = vbval(c(226) + c(228) + c(230));
    setcell(side.Grid2, 1, 7, codename(st.gpsxdb.get(), "zyqjb", "mc", linename).value_or(""));

    if (!side.main) return;
    st.countdirection = imagebyte(image, 63) == 0x49 ? "+" : "-";
    st.trackside = imagebyte(image, 62) == 0x4C ? "左手" : "右手";
    st.resetmodetext = "复位模式:" + std::to_string(imagebyte(image, 121));
}

void jobsummary(Station& st) {
    Side& side = st.zhu;
    auto& labels = st.form.labels;
    const bool english = st.language == "english";
    const std::string& image = lastjob(side);
    auto c = [&](std::size_t n) { return charof(image, n); };

    st.machineno = instrumentnumber(image);
    st.jobcaption = "机号:" + st.machineno;
    const std::string date = jobdate(image);
    st.jobdatetext = date + "." + c(36) + c(34);
    labels["Lzygk"] =
        english ? "Date:" + date + " M/C:" + st.machineno : "日期:" + date + "  机号:" + st.machineno;
    labels["Lzyrq"] = date;
    labels["Ljqbh"] = st.machineno;

    const Span span = jobspan(side, side.gpscount);
    loadpinkong(st);

    const long starthour = static_cast<long>(vbval(mid(span.starttime, 1, 2)));
    const long startminute = static_cast<long>(vbval(mid(span.starttime, 3, 2)));
    const long endhour = static_cast<long>(vbval(mid(span.endtime, 1, 2)));
    const long endminute = static_cast<long>(vbval(mid(span.endtime, 3, 2)));
    const long minutes = ((endhour - starthour + 24) % 24) * 60 + (endminute - startminute);
    labels["Lqssj"] = mid(span.starttime, 1, 2) + "时" + mid(span.starttime, 3, 2) + "分";
    labels["Ljssj"] = mid(span.endtime, 1, 2) + "时" + mid(span.endtime, 3, 2) + "分";
    labels["Lgzsj"] = shortestdouble(std::floor(minutes / 60.0)) + "时" + std::to_string(minutes % 60) + "分";

    // The walked length without the margins the walk adds: the start offset, the gap behind each
    // restart and the margin of each stop; corrected by the wheel calibration.
    int wheel = imagebyte(image, 138);
    if (wheel < 50) wheel = 100;
    const double length =
        (static_cast<double>(side.lastposition) - 800 - st.restartcount * 1000.0 - side.stopcount * 400.0) *
        0.0035 / 1000 * wheel / 100;
    const double whole = std::floor(length);
    labels["Ltccd"] = shortestdouble(whole) + "." + formatfixed(std::floor((length - whole) * 1000), 3, 0);

    const double hours = minutes / 60.0;
    st.meanspeed = hours > 0 ? formatfixed(length / hours, 1, 1) : "0";
    labels["Lqslc"] = span.startmileage;
    labels["Ljslc"] = span.endmileage;
    labels["Label2_1"] =
        std::string(english ? "Speed：" : "探测速度：") + formatfixed(side.samplespeed[0], 1, 1) + "km/h";
    const std::string& first = side.sampleclock[0];
    setcell(side.Grid2, 1, 0, mid(first, 1, 2) + ":" + mid(first, 3, 2) + ":" + mid(first, 5, 2));
}

std::string comparisonheading(const Station& st) {
    const std::string& image = lastjob(st.cong);
    const std::string number = numbercharacters(image), date = jobdate(image);
    return english(st) ? " M/C:" + number + "Date:" + date : "机号：" + number + "日期：" + date;
}

} // namespace orvane

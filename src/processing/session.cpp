#include "processing/session.h"

#include "amode/amode.h"
#include "processing/safefile.h"
#include "recording/hex.h"
#include "replay/bofang.h"
#include "station/numbers.h"
#include "station/station.h"
#include "station/text.h"
#include "station/vbval.h"

#include <cstdio>
#include <filesystem>
#include <iconv.h>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace orvane {

namespace {

constexpr std::size_t analystunits = 41; // characters of the name a 0x59 record holds
constexpr int entriesperrecord = 20;

std::string digits(const std::tm& t, bool date) {
    char text[40]; // room for any int the fields may hold
    if (date)
        std::snprintf(text, sizeof text, "%04d%02d%02d", t.tm_year + 1900, t.tm_mon + 1, t.tm_mday);
    else
        std::snprintf(text, sizeof text, "%02d%02d%02d", t.tm_hour, t.tm_min, t.tm_sec);
    return text;
}

// "hhmmss" as "hh:mm:ss".
std::string colons(const std::string& hhmmss) {
    return mid(hhmmss, 1, 2) + ":" + mid(hhmmss, 3, 2) + ":" + mid(hhmmss, 5, 2);
}

// The bytes of one character in the system's code page (GBK); "?" when it has none.
std::string gbkbytes(const std::string& character) {
    iconv_t cd = iconv_open("GBK", "UTF-8");
    if (cd == reinterpret_cast<iconv_t>(-1)) return "?";
    std::string in = character;
    char* inp = in.data();
    std::size_t inleft = in.size();
    char out[8];
    char* outp = out;
    std::size_t outleft = sizeof out;
    const std::size_t done = iconv(cd, &inp, &inleft, &outp, &outleft);
    iconv_close(cd);
    if (done == static_cast<std::size_t>(-1) || inleft != 0 || outp == out) return "?";
    return std::string(out, outp);
}

// The analyst's name as the 0x59 record writes it: per character the code-page value as a signed
// 16-bit number, c + 65536 - 256 when negative, high byte c / 256 rounded half to even. For a low
// byte of 0x80 or below that high byte comes out one too small; existing files were written so.
std::string analystname(const std::string& name) {
    std::string text = "59";
    for (char32_t c : utf32of(trimblanks(name))) {
        const std::string bytes = gbkbytes(utf8of(std::u32string(1, c)));
        std::int32_t value = static_cast<unsigned char>(bytes[0]);
        if (bytes.size() == 2)
            value = static_cast<std::int16_t>(value << 8 | static_cast<unsigned char>(bytes[1]));
        if (value < 0) value = value + 65536 - 256;
        text += hexbyte(static_cast<std::int32_t>(roundeven(value / 256.0))) + hexbyte(value % 256);
    }
    return recordof(text);
}

// Record 0x58: the view's position, the date, the session's start and end.
std::string sessionrecord(const Station& st, const std::string& today, const std::string& now) {
    return recordof("58" + hexlong(st.zhu.mapat(st.zhu.viewindex)) + today + st.sessionstart + now);
}

// Records 0x44 of the session's points. The count runs on the absolute index, so the first record
// behind earlier points may hold fewer than twenty; of an entry's code only its second digit is kept.
std::string pointrecords(const Station& st) {
    std::string records, text = "44";
    const std::int32_t last = st.analysiscount + st.newpoints - 1;
    for (std::int32_t i = st.analysiscount; i <= last; ++i) {
        const std::string& entry = st.analysislist[i];
        text += hexlong(st.analysispos[i]) + hexbyte(static_cast<std::int32_t>(vbval(mid(entry, 2, 1)))) +
                mid(entry, 3, 14);
        if ((i + 1) % entriesperrecord == 0) {
            records += recordof(text);
            text = "44";
        }
    }
    if (text.size() > 2) records += recordof(text);
    return records;
}

// The line of the session in record.txt, whose normal state is read-only: made writable, extended,
// read-only again.
void logsession(Station& st, const std::string& today, const std::string& now, int minutes) {
    const std::string log = (fs::path(st.folder) / "record.txt").string();
    const std::string line =
        trimblanks(st.form.Tmc) + "  " + st.zhu.filepath + "  " + today + "  " + colons(st.sessionstart) +
        "  " + colons(now) + "  " + std::to_string(minutes / 60) + "时" + std::to_string(minutes % 60) +
        "分" + "  " + formatfixed(st.zhu.mileageat(st.zhu.mapat(st.zhu.viewindex)), 4, 3) + "km\r\n";
    std::error_code ec;
    const bool exists = fs::exists(log, ec);
    if (exists) fs::permissions(log, fs::perms::owner_write, fs::perm_options::add, ec);
    if (const auto failed = commitfile(log, exists ? log : std::string(), line)) {
        st.ui->message(*failed);
    } else {
        st.written.push_back(log);
    }
    fs::permissions(log, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove, ec);
}

enum class Kept { written, dropped, forlater };

// The session written to TARGET (the bytes of SOURCE and TAIL). A target that can't be written is
// named with the reason, and the user chooses another place, or drops the session when asked.
Kept commitsession(Station& st, std::string target, const std::string& source, const std::string& tail) {
    std::error_code ec;
    for (;;) {
        // The instrument's recording is evidence: no choice of place may write it.
        std::optional<std::string> failed =
            fs::equivalent(target, st.zhu.filepath, ec) && target != source
                ? std::optional<std::string>("不能覆盖原始记录文件：" + target)
                : commitfile(target, source, tail);
        if (!failed) {
            st.written.push_back(target);
            return Kept::written;
        }
        st.ui->message(*failed + "。请另选保存位置。");
        const auto chosen = st.ui->savefile("分析文件 (*.ktr)|*.ktr", "ktr");
        if (!chosen || chosen->empty())
            return st.ui->askyesno("本次分析记录尚未保存，确实要放弃吗？") ? Kept::dropped : Kept::forlater;
        target = *chosen;
    }
}

} // namespace

std::optional<std::string> badanalyst(const std::string& name) {
    const std::u32string chars = utf32of(name);
    if (chars.size() > analystunits) return "分析员姓名最多" + std::to_string(analystunits) + "个字";
    if (name == "." || name == "..") return "分析员姓名不能是“" + name + "”";
    for (char32_t c : chars)
        if (c < 0x20 || c == 0x7F || std::u32string_view(U"/\\:*?\"<>|").find(c) != std::u32string_view::npos)
            return "分析员姓名不能含有 / \\ : * ? \" < > | 或控制字符";
    return std::nullopt;
}

void typeanalyst(Station& st, const std::string& name) {
    // The name becomes part of the analysis file's name.
    if (const auto why = badanalyst(name)) {
        st.ui->message(*why);
        return;
    }
    st.form.Tmc = name;
}

void addanalysispoint(Station& st) {
    if (!pausefirst(st)) return;
    if (st.form.Tmc.empty()) {
        const auto name = st.ui->inputbox(analystprompt, "姓名", "");
        if (!name || name->empty()) return;
        typeanalyst(st, *name);
        if (st.form.Tmc.empty()) return;
    }
    // The point is taken in the left part of the view, at a sample a quarter of the picture from its
    // left edge, not at a click.
    const Side& side = st.zhu;
    const std::int64_t v = side.viewindex;
    const auto inwindow = [&](std::int32_t s, std::int64_t from, std::int64_t to) {
        return s >= 0 && s <= side.samplecount &&
               between(side.mapat(v + from), side.samplepos[s], side.mapat(v + to));
    };
    std::int32_t found = -1;
    const std::int32_t s = std::max(side.samplecursor, 0);
    if (inwindow(s, 858, 1144)) found = s;
    for (std::int32_t j = 0; found < 0 && j < side.samplecount; ++j)
        if (inwindow(j, 858, 1144)) found = j;
    if (found < 0 && inwindow(s + 2, 572, 858)) found = s + 2;
    if (found < 0) return;

    const std::int32_t i = st.analysiscount + st.newpoints;
    if (i >= static_cast<std::int32_t>(st.analysislist.size())) {
        st.ui->message("分析点已满，无法再添加");
        return;
    }
    const std::tm now = st.clock->now();
    char code[8];
    std::snprintf(code, sizeof code, "%02d", st.markcode);
    st.analysislist[i] = code + digits(now, true) + digits(now, false);
    st.analysispos[i] = side.samplepos[found];
    ++st.newpoints;
    pointlist(st);
    bofang(st);
}

void pointlist(Station& st) {
    Table& grid = st.form.grid1bz;
    grid.assign(1, {"序号", "标注", "里程", "时间"});
    st.pointlistpos.clear();
    st.pointlisttext.clear();
    const Side& side = st.zhu;
    int listed = 0;
    for (std::int32_t i = 0; i < st.analysiscount + st.newpoints; ++i) {
        const std::string& text = st.analysislist[i];
        const int entry = static_cast<int>(vbval(mid(text, 2, 1))) - 1;
        const bool all = st.form.Combo3 == "全部";
        if (!all && (entry < 0 || entry > 7 || utf8of(utf32of(f1to8[entry]).substr(3)) != st.form.Combo3))
            continue;
        ++listed;
        std::string place;
        for (std::int32_t k = 0; k < side.samplecount; ++k)
            if (side.samplepos[k] == st.analysispos[i]) {
                const std::string& clock = side.sampleclock[k];
                place = mid(clock, 7, 4) + "km" + mid(clock, 11, 3) + "m";
                break;
            }
        const std::string caption = entry >= 0 && entry <= 7 ? utf8of(utf32of(f1to8[entry]).substr(3)) : "";
        grid.push_back(
            {std::to_string(all ? i + 1 : listed), caption, place,
             mid(text, 3, 8) + "-" + mid(text, 11, 2) + ":" + mid(text, 13, 2) + ":" + mid(text, 15, 2)});
        st.pointlistpos.push_back(st.analysispos[i]);
        st.pointlisttext.push_back(text);
    }
}

void gotopoint(Station& st, int row) {
    if (row < 1 || row > static_cast<int>(st.pointlistpos.size())) return;
    gotoposition(st, st.pointlistpos[row - 1] - 900);
}

bool saveanalysis(Station& st) {
    const std::tm clock = st.clock->now();
    const std::string today = digits(clock, true), now = digits(clock, false);
    const int minutes = (clock.tm_hour - static_cast<int>(vbval(mid(st.sessionstart, 1, 2)))) * 60 +
                        (clock.tm_min - static_cast<int>(vbval(mid(st.sessionstart, 3, 2))));
    if (st.newpoints == 0 && minutes < 1) return true;

    const std::string& path = st.zhu.filepath;
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
    const std::u32string base =
        utf32of(path.substr(slash == std::string::npos ? 0 : slash + 1)).substr(0, 30);
    const std::string stamp = st.form.Tmc + today + "-" + now + ".ktr";
    std::string source = path, target;
    bool first = false;
    if (base.size() >= 20) {
        // Already an analysis file: its own analyst goes on in it, another starts from the original.
        if (base.substr(12, 2) == utf32of(st.form.Tmc).substr(0, 2)) {
            target = path;
        } else {
            const std::string original = folder + utf8of(base.substr(0, 12));
            source = original + ".ktr";
            target = original + stamp;
            std::error_code ec;
            if (!fs::exists(source, ec)) {
                st.ui->message(source + changedanalyst);
                return true;
            }
        }
    } else {
        const std::u32string chars = utf32of(path);
        target = utf8of(chars.substr(0, chars.size() < 4 ? 0 : chars.size() - 4)) + stamp;
        first = true;
    }
    std::string tail;
    if (minutes >= 1) {
        tail += sessionrecord(st, today, now);
        if (first) tail += analystname(st.form.Tmc);
    }
    if (st.newpoints > 0) tail += pointrecords(st);
    const Kept kept = commitsession(st, target, source, tail);
    if (kept != Kept::written) return kept == Kept::dropped;
    logsession(st, today, now, minutes);
    st.analysiscount = static_cast<std::int16_t>(st.analysiscount + st.newpoints);
    st.newpoints = 0;
    return true;
}

} // namespace orvane

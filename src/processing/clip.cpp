#include "processing/clip.h"

#include "processing/comparison.h"
#include "processing/safefile.h"
#include "recording/hex.h"
#include "station/station.h"
#include "station/text.h"

#include <cstdio>
#include <filesystem>

namespace fs = std::filesystem;

namespace orvane {

namespace {

constexpr std::int32_t margin = 200;
constexpr int subentries = 51;  // of an echo record
constexpr int clipsamples = 20; // of a sample record
constexpr int feentries = 1000;

// A position of the clip: 24 bits.
std::string position(std::int64_t p) {
    return hexlong(static_cast<std::int32_t>(p & 0xFFFFFF));
}

// The element in force at P of an ascending list of COUNT positions: pos[i] <= p < pos[i + 1].
std::int32_t inforce(const EventList<std::int32_t>& pos, std::int32_t count, std::int32_t p) {
    for (std::int32_t i = 0; i < count && i + 1 < static_cast<std::int32_t>(pos.size()); ++i)
        if (pos[i] <= p && p < pos[i + 1]) return i;
    return 0;
}

// The GPS pair of a sample record: "47", "00", the first 18 digits of the entry, "4A", the other 20.
std::string gpspair(const Side& s, std::int32_t g) {
    const std::string& gps = s.gpstext[g];
    return "4700" + mid(gps, 1, 18) + "4A" + mid(gps, 19, 20);
}

// The echo records: 51 sub-entries of position, code and value a record.
class EchoRecords {
  public:
    explicit EchoRecords(std::string& out) : out_(out) {}
    void add(std::int64_t p, int code, int value) {
        text_ += position(p) + hexbyte(code & 0xFF) + hexbyte(value & 0xFF);
        if (++count_ == subentries) flush();
    }
    void flush() {
        if (text_.size() > 2) out_ += recordof(text_);
        text_ = "42";
        count_ = 0;
    }

  private:
    std::string& out_;
    std::string text_ = "42";
    int count_ = 0;
};

// The sub-entries of the mark column: each rule by itself, so one value may give two. The offsets
// -300 and +100 undo those of the decoder.
void markentries(EchoRecords& echoes, const Side& s, std::int64_t i, std::int64_t a) {
    const int v = s.samplegrid[i][9];
    if (v >= 10 && v <= 14) echoes.add(i - a, 0xFF, s.rawgrid[i][9]);
    if (v == 1) echoes.add(i - a - 300, 0xFF, 1);
    if (v >= 1001 && v <= 1950) echoes.add(i - a + 100, 0xFC, v - 1000);
    if (v >= 1951 && v <= 11949) echoes.add(i - a, 144 + (v - 1950) / 200, (v - 1950) % 200);
    if (v >= 1951 && v <= 2950) echoes.add(i - a, 0xF0 + (v - 1950) / 200, (v - 1950) % 200);
}

} // namespace

std::string cliprecords(const Station& st, std::int32_t a, std::int32_t b) {
    const Side& s = st.zhu;
    const std::string& job =
        s.jobrec[std::clamp(s.jobcursor, 0, static_cast<std::int32_t>(s.jobrec.size()) - 1)];
    const std::string& param =
        s.paramrec[std::clamp(s.paramcursor, 0, static_cast<std::int32_t>(s.paramrec.size()) - 1)];
    std::string out;
    // A restart record from the job in force opens the clip at position 0; then the parameters.
    out += recordof("53" + (job.size() > 8 ? job.substr(2, job.size() - 8) : std::string()) + "000000");
    out += recordof(mid(param, 1, 506) + "000000");

    const std::int32_t g0 = inforce(s.gpspos, s.gpscount, a), g1 = inforce(s.gpspos, s.gpscount, b);
    const std::int32_t s0 = inforce(s.samplepos, s.samplecount, a),
                       s1 = inforce(s.samplepos, s.samplecount, b);
    // The first sample made by hand: its clock, no kilometre, its speed, position 0.
    out += recordof("4D" + mid(s.sampleclock[s0], 1, 6) + "00000000" + mid(s.speedhex[s0], 1, 2) + "000000" +
                    gpspair(s, g0));
    std::string text = "4D";
    int n = 0;
    for (std::int32_t k = s0 + 1; k <= s1 - 1; ++k) {
        text += s.sampleclock[k] + mid(s.speedhex[k], 1, 2) +
                position(s.samplepos[k] - static_cast<std::int64_t>(a));
        if (++n % clipsamples == 0 || k == s1 - 1) {
            out += recordof(text);
            text = "4D";
        }
    }

    EchoRecords echoes(out);
    int fe = 0;
    for (std::int32_t k = 0; k < s.fecount && fe < feentries; ++k) {
        if (s.fepos[k] > b) break;
        if (s.fepos[k] < a) continue;
        echoes.add(s.fepos[k] - static_cast<std::int64_t>(a), 0xFE, s.feval[k]);
        ++fe;
    }
    const std::int64_t last = std::min<std::int64_t>(b, s.gridrows - 1);
    for (std::int64_t i = std::max<std::int32_t>(a, 0); i <= last; ++i) {
        for (int k = 0; k <= 8; ++k)
            if (s.rawgrid[i][k] > 0) echoes.add(i - a, k + 1, s.rawgrid[i][k]);
        markentries(echoes, s, i, a);
        for (int c = 10; c <= 12; ++c)
            if (s.rawgrid[i][c] > 0) echoes.add(i - a, c + 1, s.rawgrid[i][c]);
    }
    echoes.flush();

    // The end: the last sample with its GPS pair, parameters and job at the length plus the 400 that
    // the walk expects behind the last sample.
    const std::int32_t length = b - a + 1 + 400;
    out += recordof("4D" + s.sampleclock[s1] + mid(s.speedhex[s1], 1, 2) +
                    position(s.samplepos[s1] - static_cast<std::int64_t>(a)) + gpspair(s, g1));
    out += recordof(mid(param, 1, 506) + hexlong(length));
    out += recordof("45" + mid(job, 3, 504) + hexlong(length));
    return out;
}

void saveclip(Station& st) {
    std::string target = st.scratchpath;
    if (st.scratchpath == "deng") {
        const auto chosen = st.ui->savefile("记录文件 (*.ktr)|*.ktr", "ktr");
        if (!chosen || chosen->empty()) return;
        target = *chosen;
    }
    std::int32_t a = std::min(st.clipstart, st.clipend) - margin,
                 b = std::max(st.clipstart, st.clipend) + margin;
    if (a < 0) a += margin;
    if (b > st.zhu.lastposition) b -= margin;
    if (target.size() < 3 || target.compare(target.size() - 3, 3, "ktr") != 0) target += ".ktr";
    st.cliptarget = target;
    std::error_code ec;
    if (fs::equivalent(target, st.zhu.filepath, ec)) {
        st.ui->message("不能把剪辑存入正在打开的记录文件：" + target);
        return;
    }
    // An existing file is extended by the clip, as a second clip follows the first.
    const std::string base = fs::is_regular_file(target, ec) ? target : std::string();
    if (const auto failed = commitfile(target, base, cliprecords(st, a, b))) {
        st.ui->message(*failed);
        return;
    }
    st.written.push_back(target);
    st.form.accenabled = false;
}

void reversingclip(Station& st) {
    const std::tm now = st.clock->now();
    char hhmmss[16];
    std::snprintf(hhmmss, sizeof hhmmss, "%02d%02d%02d", now.tm_hour, now.tm_min, now.tm_sec);
    st.scratchpath = (fs::path(st.folder) / (std::string(hhmmss) + "daoche.ktr")).string();
    const Side& s = st.zhu;
    st.clipstart = s.mapat(s.viewindex) - 600;
    st.clipend = s.mapat(static_cast<std::int64_t>(s.viewindex) + st.settings.viewspan);
    saveclip(st);
    presscomparison(st);
}

} // namespace orvane

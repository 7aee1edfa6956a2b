#include "processing/filter.h"

#include "replay/bofang.h"
#include "station/numbers.h"
#include "station/station.h"
#include "station/vbval.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace orvane {

namespace {

// Rows between two steps of the progress bar.
constexpr std::int64_t progressrows = 65536;

// The cells the filter works on: columns 0..8 of both grids and the late waves 10..12 of the
// scaled grid, rows 0..LAST, from FROM to TO; with EMPTY the cells of FROM are zeroed as they are read.
void movecells(Side& from, Side& to, std::int64_t last, bool empty) {
    last = std::min({last, from.gridrows - 1, to.gridrows - 1});
    for (std::int64_t r = 0; r <= last; ++r) {
        std::int16_t* source = from.samplegrid[r];
        std::int16_t* target = to.samplegrid[r];
        std::uint8_t* rawsource = from.rawgrid[r];
        std::copy(source, source + 9, target);
        std::copy(source + 10, source + 13, target + 10);
        std::copy(rawsource, rawsource + 9, to.rawgrid[r]);
        if (!empty) continue;
        std::fill(source, source + 9, 0);
        std::fill(source + 10, source + 13, 0);
        std::fill(rawsource, rawsource + 9, 0);
    }
}

// One column's scan: its threshold, whether its raw cells are wiped too, the channel its events
// name, the run under way and the first positions of the runs kept.
struct Scan {
    int column;
    int channel;
    std::int16_t threshold;
    bool raw;
    std::int32_t run = 0;
    std::vector<std::int32_t> starts;
};

// Channels A..I in columns 0..8, then the late waves of G, H, I in columns 10..12 with the
// thresholds of their channels; a threshold of 0 leaves its column alone.
std::vector<Scan> scansfor(const std::array<std::int16_t, 9>& threshold) {
    std::vector<Scan> scans;
    for (int k = 0; k < 9; ++k)
        if (threshold[k] != 0) scans.push_back({k, k, threshold[k], true, 0, {}});
    for (int c = 10; c <= 12; ++c)
        if (threshold[c - 4] != 0) scans.push_back({c, c - 4, threshold[c - 4], false, 0, {}});
    return scans;
}

// All columns walk down the rows together, so the grid is read once; each column keeps its own
// run. A run ends at a zero cell: at most the threshold long it is wiped, longer it is kept. A run
// still open behind the last row is neither.
void scan(Station& st, std::vector<Scan>& scans) {
    Side& side = st.zhu;
    const std::int64_t end = static_cast<std::int64_t>(side.lastposition) + 1;
    const std::int16_t none[13] = {};
    st.ui->progressmax(static_cast<double>(end));
    for (std::int64_t i = 0; i <= end; ++i) {
        if (i % progressrows == 0) st.ui->progress(static_cast<long>(i));
        const std::int16_t* row = i < side.gridrows ? side.samplegrid[i] : none;
        for (Scan& s : scans) {
            if (row[s.column] != 0) {
                ++s.run;
                continue;
            }
            if (s.run <= s.threshold) {
                for (std::int64_t r = i - s.run; r < i; ++r) {
                    side.samplegrid[r][s.column] = 0;
                    if (s.raw) side.rawgrid[r][s.column] = 0;
                }
            } else {
                s.starts.push_back(static_cast<std::int32_t>(i - s.run));
            }
            s.run = 0;
        }
    }
}

// The events in the order the columns were scanned, one column after another; at the cap every
// later event overwrites the last element.
void listevents(Station& st, const std::vector<Scan>& scans) {
    std::size_t total = 0;
    for (const Scan& s : scans) total += s.starts.size();
    const std::size_t size = std::min<std::size_t>(total, eventcap);
    st.eventpos.assign(size, 0);
    st.eventchannel.assign(size, 0);
    st.eventcount = 0;
    for (const Scan& s : scans) {
        for (std::int32_t p : s.starts) {
            const std::int32_t at = std::min(st.eventcount, eventcap - 1);
            st.eventpos[at] = p;
            st.eventchannel[at] = static_cast<std::int16_t>(s.channel);
            st.eventcount = std::min(st.eventcount + 1, eventcap);
        }
    }
}

void closecluster(Station& st, std::int32_t anchor) {
    std::string letters(9, ' ');
    for (int k = 0; k < 9; ++k)
        if (st.channelcount[k] != 0) letters[k] = static_cast<char>('A' + k);
    if (st.hitcount >= static_cast<std::int32_t>(st.hitpos.size())) {
        st.hitpos.resize(st.hitcount + 1);
        st.hitchannel.resize(st.hitcount + 1);
    }
    st.hitpos[st.hitcount] = anchor;
    st.hitchannel[st.hitcount] = letters;
    ++st.hitcount;
}

} // namespace

bool makecomparisonstore(Station& st, std::int64_t last, std::int64_t need) {
    if (st.comparisonstore == "no") {
        if (need > last) return false;
        st.cong.gridlast = last;
        st.comparisonstore = "yes";
    }
    return need <= st.cong.gridlast && st.cong.reachgrids(need);
}

std::optional<std::int16_t> filterthreshold(const std::string& text) {
    return toint16(vbval(text));
}

void processfilter(Station& st) {
    if (comparisonopen(st)) {
        st.ui->message(filterincomparison);
        return;
    }
    std::array<std::int16_t, 9> threshold{};
    for (int k = 0; k < 9; ++k) {
        const auto t = filterthreshold(st.form.filtertext[k]);
        if (!t) {
            st.ui->message(std::string("通道") + static_cast<char>('A' + k) + "的过滤门限“" +
                           st.form.filtertext[k] + "”超出范围（-32768～32767），未处理。");
            return;
        }
        threshold[k] = *t;
    }
    Side& side = st.zhu;
    // The backup of the original cells needs every row of the recording in the store.
    const std::int64_t bound = st.comparisonstore == "no" ? filterstorelast : st.cong.gridlast;
    if (!makecomparisonstore(st, filterstorelast, side.lastposition)) {
        st.ui->message("无法过滤：" + side.filepath + " 的结束位置 " + std::to_string(side.lastposition) +
                       " 超出对比存储的范围（最多到位置 " + std::to_string(bound) + "），未处理。");
        return;
    }
    // A second processing starts again from the original cells.
    if (st.filteractive == 1) {
        movecells(st.cong, side, side.lastposition, false);
    } else {
        movecells(side, st.cong, side.lastposition, false);
        st.filteractive = 1;
    }
    st.form.pb1visible = true;
    std::vector<Scan> scans = scansfor(threshold);
    scan(st, scans);
    listevents(st, scans);
    st.form.pb1visible = false;
    st.form.Command14enabled = true;
    bofang(st);
    buildhitlist(st);
}

void cancelfilter(Station& st) {
    st.filteractive = 0;
    if (st.comparisonstore == "yes") movecells(st.cong, st.zhu, st.zhu.lastposition, true);
    st.form.Command14enabled = false;
    bofang(st);
}

void buildhitlist(Station& st) {
    // Sorted by position; the order of events at one position shows nowhere.
    std::vector<std::uint64_t> keys(static_cast<std::size_t>(st.eventcount));
    for (std::size_t e = 0; e < keys.size(); ++e)
        keys[e] = static_cast<std::uint64_t>(static_cast<std::uint32_t>(st.eventpos[e])) << 8 |
                  static_cast<std::uint8_t>(st.eventchannel[e]);
    std::sort(keys.begin(), keys.end());
    for (std::size_t e = 0; e < keys.size(); ++e) {
        st.eventpos[e] = static_cast<std::int32_t>(keys[e] >> 8);
        st.eventchannel[e] = static_cast<std::int16_t>(keys[e] & 0xFF);
    }

    st.form.Grid1bj.resize(1);
    st.hitcount = 0;
    st.channelcount.fill(0);
    // An anchor of exactly 800 reads as unset, also when a cluster starting at 500 really has it:
    // that cluster then runs on into the next event's.
    std::int32_t anchor = 800;
    bool seen = false;
    for (std::int32_t e = 0; e < st.eventcount; ++e) {
        const std::int32_t p = st.eventpos[e];
        if (anchor == 800) anchor = p + anchorlead;
        if (std::abs(static_cast<std::int64_t>(p) - anchor) >= clusterreach) {
            closecluster(st, anchor);
            anchor = p + anchorlead;
            st.channelcount.fill(0);
        }
        ++st.channelcount[st.eventchannel[e]];
        seen = true;
    }
    if (seen) closecluster(st, anchor);
    for (std::int32_t i = 0; i < st.hitcount; ++i)
        st.form.Grid1bj.push_back({std::to_string(i + 1), st.hitchannel[i],
                                   formatfixed(st.zhu.mileageat(st.hitpos[i] - anchorlead), 4, 3)});
}

void gotohit(Station& st, int row) {
    if (row < 1 || row > st.hitcount) return; // the heads, or below the list
    gotoposition(st, st.hitpos[row - 1] - st.baseoffset);
}

} // namespace orvane

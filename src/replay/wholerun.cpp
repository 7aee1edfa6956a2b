#include "replay/wholerun.h"

#include "replay/bofang.h"
#include "station/station.h"

#include <algorithm>
#include <cmath>

namespace orvane {

namespace {

// The group of a channel by the kind its parameters give it: the straight probes (0°), the 37° and
// the 70° probes; -1 for a column that holds no echo of its own.
int groupof(const std::string& kind) {
    if (kind.empty()) return -1;
    if (kind[0] == '4') return 2;
    if (kind[0] == '2') return 1;
    return 0;
}

// What the strip is built from, folded into one number.
std::uint64_t signatureof(const Station& st) {
    const Side& s = st.zhu;
    std::uint64_t h = 1469598103934665603ull;
    auto fold = [&h](std::int64_t v) { h = (h ^ static_cast<std::uint64_t>(v)) * 1099511628211ull; };
    fold(std::ssize(s.viewmap));
    fold(s.viewmap.empty() ? 0 : s.viewmap.back());
    fold(s.gridrows);
    fold(st.filteractive);
    fold(st.hitcount);
    fold(st.eventcount);
    fold(st.settings.reverseshow);
    fold(st.settings.wholefile);
    fold(st.settings.losswavelimit);
    for (std::int16_t v : s.pinkongval) fold(v);
    for (const std::string& kind : s.channelkind) fold(groupof(kind));
    return h;
}

// The event of a value of the mark column.
std::uint8_t markevent(std::int16_t v) {
    if (v == 1) return Overview::reversal;
    if (v == 23) return Overview::restart;
    if ((v >= 10 && v <= 14) || (v >= 101 && v <= 355) || v == 12345) return Overview::mark;
    if (v > 1949 && v < 12000) return Overview::turnout;
    return 0;
}

void build(Station& st) {
    const Side& s = st.zhu;
    Overview& o = st.overview;
    o.length = std::ssize(s.viewmap);
    o.columns = static_cast<int>(std::min<std::int64_t>(overviewcolumns, o.length));
    o.echoes.assign(static_cast<std::size_t>(o.columns), {0, 0, 0});
    o.events.assign(static_cast<std::size_t>(o.columns), 0);
    o.km.assign(static_cast<std::size_t>(o.columns), 0.0f);
    if (o.columns == 0) return;
    // Column 8 is the made bottom wave, nearly everywhere: its losses stand as events of their own.
    std::array<int, 13> group{};
    for (int c = 0; c < 13; ++c) group[static_cast<std::size_t>(c)] = -1;
    for (int c = 0; c < 8; ++c)
        group[static_cast<std::size_t>(c)] = groupof(s.channelkind[static_cast<std::size_t>(c)]);
    group[10] = group[6];
    group[11] = group[7];
    group[12] = groupof(s.channelkind[8]);
    const bool losses = !s.lossmark.empty();
    std::int64_t column = -1, columnend = 0;
    bool lost = false;
    for (std::int64_t k = 0; k < o.length; ++k) {
        const std::int32_t p = s.viewmap[static_cast<std::size_t>(k)];
        const bool inrun = p >= 0 && p < s.gridrows && p <= s.lastposition;
        if (k >= columnend) {
            ++column;
            columnend = (column + 1) * o.length / o.columns;
            // Past the run's rows the column keeps the kilometre of the one before.
            o.km[static_cast<std::size_t>(column)] =
                inrun || column == 0 ? s.mileageat(p) : o.km[static_cast<std::size_t>(column - 1)];
        }
        if (!inrun) continue;
        const std::int16_t* row = s.samplegrid[p];
        auto& echoes = o.echoes[static_cast<std::size_t>(column)];
        for (int c = 0; c < 13; ++c)
            if (row[c] != 0 && group[static_cast<std::size_t>(c)] >= 0)
                ++echoes[static_cast<std::size_t>(group[static_cast<std::size_t>(c)])];
        if (row[9] != 0) o.events[static_cast<std::size_t>(column)] |= markevent(row[9]);
        if (losses) {
            const bool here = p < std::ssize(s.lossmark) && s.lossmark[static_cast<std::size_t>(p)];
            if (here && !lost) o.events[static_cast<std::size_t>(column)] |= Overview::loss;
            lost = here;
        }
    }
    // The filter's hits by their positions: the first view index that reaches each.
    for (std::int32_t h = 0; h < st.hitcount && h < std::ssize(st.hitpos); ++h) {
        const auto at =
            std::lower_bound(s.viewmap.begin(), s.viewmap.end(), st.hitpos[static_cast<std::size_t>(h)]);
        if (at == s.viewmap.end()) continue;
        const std::int64_t k = at - s.viewmap.begin();
        o.events[static_cast<std::size_t>(k * o.columns / o.length)] |= Overview::filterhit;
    }
}

} // namespace

bool updateoverview(Station& st) {
    const std::uint64_t signature = signatureof(st);
    if (signature == st.overview.signature && st.overview.length == std::ssize(st.zhu.viewmap)) return false;
    build(st);
    st.overview.signature = signature;
    return true;
}

double overviewkm(const Station& st, double x) {
    const Overview& o = st.overview;
    if (o.columns == 0 || !std::isfinite(x)) return 0;
    return o.km[static_cast<std::size_t>(std::clamp(x, 0.0, static_cast<double>(o.columns - 1)))];
}

long overviewindex(const Station& st, double x) {
    const Overview& o = st.overview;
    if (o.columns == 0 || !std::isfinite(x)) return 0;
    const double share = std::clamp(x / o.columns, 0.0, 1.0);
    return static_cast<long>(
        std::min<double>(static_cast<double>(o.length - 1), share * static_cast<double>(o.length)));
}

void overviewgo(Station& st, double x) {
    const Side& s = st.zhu;
    if (st.overview.columns == 0) return;
    const std::int64_t middle =
        std::int64_t{overviewindex(st, x)} + std::max<std::int16_t>(st.settings.viewspan, 0) / 2;
    gotoposition(st, s.mapat(std::min<std::int64_t>(middle, std::ssize(s.viewmap) - 1)));
}

void registeroverview(Station& st) {
    Control strip = control("Overview", ControlKind::canvas);
    strip.enabled = recordingloaded;
    strip.mouse = [](Station& st, const MouseAct& act) {
        if (act.kind == "down" && act.button == "left") st.overview.held = true;
        if (act.kind == "up") st.overview.held = false;
        if ((act.kind == "down" && act.button == "left") || (act.kind == "move" && st.overview.held))
            overviewgo(st, act.x);
    };
    st.controls.add(strip);
}

} // namespace orvane

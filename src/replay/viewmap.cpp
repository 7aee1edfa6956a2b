#include "replay/viewmap.h"

#include "station/station.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace orvane {

namespace {

// Room for the map: every position, the tail of empty positions behind the end, and what a clip
// stretch may copy past the end.
void sizemap(Side& side, std::int64_t extra) {
    const auto size = static_cast<std::size_t>(side.lastposition + 2001 + std::max<std::int64_t>(extra, 0));
    // Exactly the room asked for: a map of a long recording is tens of MB, and a vector that grows by
    // doubling would hold as much again unused after a change of the view's mode.
    auto fit = [size](auto& list) {
        if (list.size() >= size) return;
        list.reserve(size);
        list.resize(size, 0);
    };
    fit(side.viewmap);
    fit(side.markflags);
}

void filltail(Side& side, std::int64_t from) {
    for (std::int64_t k = std::max<std::int64_t>(from, 0); k <= side.lastposition + 2000; ++k)
        side.viewmap[k] = side.lastposition + 1;
}

// A position carries something: a mark, or an echo of a channel under its alignment word.
bool filledat(const Side& side, std::int64_t position) {
    if (side.cellat(position, 9) != 0) return true;
    for (int c = 0; c < 9; ++c)
        if (side.rawat(position + side.pinkongval[c], c) != 0) return true;
    return false;
}

// The same test for the positions whose shifted rows all lie in the grids, without the tests of
// each read: the map reads every position of the recording.
class FilledTest {
  public:
    explicit FilledTest(const Side& side) : side_(side) {
        const auto [low, high] = std::minmax_element(side.pinkongval.begin(), side.pinkongval.end());
        from_ = std::max<std::int64_t>(0, -*low);
        to_ = std::min<std::int64_t>(side.gridrows, side.gridrows - *high) - 1;
    }
    bool operator()(std::int64_t position) const {
        if (position < from_ || position > to_) return filledat(side_, position);
        if (side_.samplegrid[position][9] != 0) return true;
        for (int c = 0; c < 9; ++c)
            if (side_.rawgrid[position + side_.pinkongval[c]][c] != 0) return true;
        return false;
    }

  private:
    const Side& side_;
    std::int64_t from_ = 0, to_ = -1;
};

} // namespace

void jjfzjjsz(Station&, Side& side) {
    const auto [low, high] = std::minmax_element(side.pinkongval.begin(), side.pinkongval.end());
    const int m = std::max(std::abs(*low), std::abs(*high));
    const std::int64_t keep = m < 321 ? 320 : m + 10;
    const std::int64_t gap = m < 321 ? 650 : 2 * m + 100;
    sizemap(side, keep + 31 + 600);
    std::int64_t out = 600;
    auto copy = [&](std::int64_t from, std::int64_t to) {
        for (std::int64_t p = from; p <= to; ++p) side.viewmap[out++] = static_cast<std::int32_t>(p);
    };
    const std::int64_t last = side.lastposition;
    const FilledTest filled(side);
    std::int64_t k = 600;
    while (k <= last) {
        if (filled(k)) {
            side.viewmap[out++] = static_cast<std::int32_t>(k++);
            continue;
        }
        const std::int64_t first = k;
        std::int64_t next = k + 1;
        while (next <= last && !filled(next)) ++next;
        if (next > last) {
            // Silence to the end of the file: a short stretch of it, and the join is marked.
            copy(first, first + keep + 30);
            side.markflags[first + keep] = 1;
            break;
        }
        const std::int64_t end = next - 1;
        if (std::abs(end - first) >= gap) {
            copy(first, first + keep);
            side.markflags[first + keep] = 1;
            copy(end - keep, end);
        } else {
            copy(first, end);
        }
        k = end + 1;
    }
    filltail(side, out);
    side.viewlength = static_cast<std::int32_t>(out);
    side.scrollmax = scrollmaximum(out);
}

void fzjjsz(Station& st, Side& side) {
    if (st.settings.wholefile == 1) return;
    std::int64_t k = side.viewindex;
    auto echo = [&](std::int64_t index) {
        for (int c = 0; c < 9; ++c)
            if (side.rawat(side.mapat(index + side.pinkongval[c]), c) != 0) return true;
        return false;
    };
    while (k < side.lastposition && !echo(k)) ++k;
    if (k - side.viewindex <= st.settings.viewspan + 150) return;
    side.viewindex = static_cast<std::int32_t>(k - (st.settings.viewspan - 100));
    const std::int64_t flag = static_cast<std::int64_t>(side.viewindex) + 200;
    if (flag >= 0 && flag < std::ssize(side.markflags)) side.markflags[flag] = 1;
}

void rebuildmap(Station& st, Side& side) {
    if (st.settings.wholefile != 0) {
        sizemap(side, 0);
        for (std::int64_t k = 0; k <= side.lastposition; ++k) {
            side.viewmap[k] = static_cast<std::int32_t>(k);
            side.markflags[k] = 0;
        }
        side.viewlength = side.lastposition;
        side.scrollmax = scrollmaximum(side.lastposition);
    } else {
        jjfzjjsz(st, side);
    }
    if (st.settings.reverseshow == 1) return;

    // The reverse filter: a stretch between two stops less than 1101 positions apart (about 3.85 m)
    // is a frequent reversal and leaves the view. The last stop is never examined.
    std::vector<std::int8_t> keep;
    std::int64_t previous = -2000;
    for (std::int32_t n = 0; n <= side.stopcount - 2; ++n) {
        const std::int64_t stop = side.stoplist[n];
        if (stop - previous < 1101) {
            if (keep.empty()) {
                keep.assign(static_cast<std::size_t>(side.lastposition) + 10001, 0);
                std::fill(keep.begin(), keep.begin() + side.lastposition + 1, 1);
            }
            for (std::int64_t k = std::max<std::int64_t>(previous, 0); k <= stop && k < std::ssize(keep); ++k)
                keep[k] = -1;
        }
        previous = stop;
    }
    // The map loses those positions in place: what is kept moves forward, never past what is read.
    std::int64_t out = 0;
    const std::int64_t end = std::min<std::int64_t>(side.viewlength, std::ssize(side.viewmap) - 1);
    if (keep.empty()) {
        out = end + 1;
    } else {
        for (std::int64_t k = 0; k <= end; ++k) {
            const std::int64_t p = side.viewmap[k];
            if (p < 0 || p >= std::ssize(keep) || keep[p] != -1)
                side.viewmap[out++] = static_cast<std::int32_t>(p);
        }
    }
    filltail(side, out);
    side.scrollmax = scrollmaximum(out);
}

} // namespace orvane

#pragma once
// The filter: runs of echoes along a channel no longer than its threshold are wiped from the main
// side, longer runs become events, and the events gather into the list of hits Grid1bj. The original
// cells wait in the comparison store until the filter is cancelled.
#include <cstdint>
#include <optional>
#include <string>

namespace orvane {

struct Station;

// The refusal while a comparison is open, in these words in both languages.
inline constexpr const char* filterincomparison = "在打开对比模式下，不支持处理！";
// The bounds of the comparison store, by the action that makes it first.
inline constexpr std::int64_t filterstorelast = 5000000;
inline constexpr std::int64_t comparisonstorelast = 6000000;
// The event list holds at most this many; later events overwrite its last element.
inline constexpr std::int32_t eventcap = 5990000;
// A cluster of hits spans 650 positions: 350 on either side of its anchor, first position plus 300.
inline constexpr std::int32_t anchorlead = 300;
inline constexpr std::int32_t clusterreach = 350;

// Makes the comparison store with rows 0..LAST unless it exists; false when it exists with fewer
// rows than NEED (the rows an action must have in it).
bool makecomparisonstore(Station& st, std::int64_t last, std::int64_t need);

// The threshold of a box text: the number it starts with, rounded half to even; nullopt when that
// does not fit in 16 bits.
std::optional<std::int16_t> filterthreshold(const std::string& text);

// "处理": the filter from the original cells with the thresholds of the nine boxes.
void processfilter(Station& st);
// "取消过滤": the original cells back, the backup emptied as it is read.
void cancelfilter(Station& st);
// The events sorted and gathered into hitpos/hitchannel and the rows of Grid1bj.
void buildhitlist(Station& st);
// A click on row ROW of Grid1bj: the view goes to the hit, 800 positions before its anchor.
void gotohit(Station& st, int row);

} // namespace orvane

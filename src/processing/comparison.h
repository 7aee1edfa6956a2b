#pragma once
// The comparison: a second recording walked into the comparison side and shown below the first,
// each side replaying by itself or both in step; closing gives the window back to the main side.

namespace orvane {

struct Station;

// The refusal while the filter stands.
inline constexpr const char* comparisoninfilter =
    "过滤处理模式中不支持对比播放，如需对比播放，请先取消过滤！";
// The filter of the file dialog.
inline constexpr const char* comparisonfilter = "所有文件 (*.KTR)|*.KTR";

// A press of "打开对比"/"关闭对比": refused during a replay and while the filter stands, otherwise
// opens or closes.
void presscomparison(Station& st);
// The opening: the store, the file (chosen, or scratchpath), the walk of the comparison side, the
// window in two halves. A cancelled dialog or a file that cannot be walked closes again.
void opencomparison(Station& st);
// The closing: the window back to the main side; a scratch recording is deleted.
void closecomparison(Station& st);

} // namespace orvane

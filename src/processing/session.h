#pragma once
// The analyst's session: the points marked with the menu f1to8, their list grid1bz, and the save at
// the window's close that appends the session to a copy of the recording, never to the original.
#include <optional>
#include <string>

namespace orvane {

struct Station;

inline constexpr const char* analystprompt = "请输入分析员（点击打印也可输入分析员）";
inline constexpr const char* changedanalyst = "您当前打开的是分析文件，如需更换分析人，请确保存在原始文件";

// Why a name can't be the analyst's (it becomes part of a file name), or nullopt when it can.
std::optional<std::string> badanalyst(const std::string& name);
// The name box Tmc typed: a name a file can't carry is refused with the reason.
void typeanalyst(Station& st, const std::string& name);

// A point of the menu entry markcode at the sample in the left part of the view.
void addanalysispoint(Station& st);
// grid1bz anew under the choice of Combo3.
void pointlist(Station& st);
// A click on row ROW of grid1bz: the replay goes 900 positions before the point.
void gotopoint(Station& st, int row);

// The session appended to the analysis file of the recording and its line in record.txt. True when
// nothing is left to save: written, nothing to write, or the user chose to drop it; false when the
// user keeps the window open to save later.
bool saveanalysis(Station& st);

} // namespace orvane

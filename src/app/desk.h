#pragma once
// The analyst's desk: opening recordings from the running station, the recordings opened last, the
// keys and the wheel on the picture, and the status bar's texts.
#include <string>
#include <vector>

namespace orvane {

struct Station;

// The filter of the open dialog for a recording.
inline constexpr const char* recordingfilter = "探伤记录 (*.ktr)|*.ktr;*.KTR|所有文件 (*.*)|*.*";
// How many recordings the list of the last opened keeps.
inline constexpr int recentlimit = 10;

// The recordings opened last, newest first, from the station folder; none when it has no list.
std::vector<std::string> recentrecordings(const std::string& folder);
// PATH, made absolute, in front of that list, once, cut to its limit; written whole and renamed into
// place, and kept in the window's state for the menu.
void rememberrecording(Station& st, const std::string& path);

// Whether PATH passes the tests of a recording's path at window load (length, a file, "KT" ending).
bool recordingpathok(const std::string& path);

// Opens PATH in the running station: the open recording's session closes as closing the window
// closes it (other windows closed, the analyst's session saved), then PATH takes the road of window
// load and first activation with a station as fresh as at start. A path that fails its tests is
// "…有误" and the open recording stays; so does one whose session could not be saved. True when
// PATH is the open recording now.
bool openrecording(Station& st, const std::string& path);

// The path of a start: the command line, or when it is empty, the path chosen in the open dialog (a
// cancel leaves it empty, and the start goes on to its messages).
std::string startpath(Station& st, const std::string& commandline);

// A key or the wheel on the picture: "Left"/"Right" and the wheel a hand step, "PageUp"/"PageDown"
// and Shift with the wheel a screen, "Home"/"End", "Space" play and pause, Ctrl with the wheel
// expanded or compressed, "Escape" closes the A-mode panel or the enlarged view.
void picturekey(Station& st, const std::string& key);
// The keys and the wheel as one tip.
inline constexpr const char* keystip =
    "滚轮：步进/步退　Shift+滚轮：翻一屏　Ctrl+滚轮：扩展/压缩\n"
    "←/→：步退/步进　PageUp/PageDown：翻一屏　Home/End：文件开头/结尾\n"
    "空格：连续播放/暂停　Ctrl+G：指定里程　Esc：关闭A显或局部放大　Ctrl+O：打开记录";

// The tip of the overview at X of its scale: the kilometre there, as the pointer's read-out writes it.
std::string overviewtip(const Station& st, double x);

// The status bar: what stands under the pointer, the view's place in the run, the replay's speed and
// time left, the open file.
std::string statuspointer(const Station& st);
std::string statusplace(const Station& st);
std::string statusspeed(const Station& st);
std::string statusfile(const Station& st);

// The controls of the desk: the open button, the recent entries, the keys of Picture1, the status
// bar's labels.
void registerdesk(Station& st);

} // namespace orvane

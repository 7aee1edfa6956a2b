#pragma once
// From process start to the first picture, and the close of the window.
#include <string>

namespace orvane {

struct Station;

// The question of a second start.
inline constexpr const char* secondinstancequestion = "播放程序已经处于运行中，确实要打开吗？";
inline constexpr const char* nodatamessage = "没有数据！";

// Every subsystem registers its controls and hooks in the station, once.
void assemble(Station& st);

// Process start: the fixed mode strings, the station folder and its three databases, the settings.
// Throws std::runtime_error with a message naming the path or key when the station cannot start.
void entry(Station& st, const std::string& folder, const std::string& language = "china");

// Creation of Form28: second-instance check, the recording's path from the command line and its tests.
void windowload(Station& st, const std::string& commandline);

// Window load from the recording's path on: its tests, the captions and the constants.
void loadpath(Station& st, const std::string& commandline);

// First activation: the walk, the panels, the first picture.
void windowactivate(Station& st);

// Close of Form28: the analyst's session is saved when a name stands in Tmc, then the process ends.
// False when the session could not be saved and the user keeps the window open for it.
bool windowunload(Station& st);

// The constants of the picture, set when the window loads: sound speeds, beam factors, angles.
void pictureconstants(Station& st);
// The two customer strings from "BUILD:TARVIK" (TARVIK "tarvik" or "feitarvik"); false, and nothing
// changed, for another text.
bool setvariant(Station& st, const std::string& text);

// The window caption for the build variant and language.
std::string captionof(const std::string& buildvariant, const std::string& language);

// The command line with every double quote removed.
std::string stripquotes(const std::string& commandline);

// Whether the two characters before the last of the trimmed path, upper-cased, are "KT".
bool extensionok(const std::string& path);

// Processes whose executable is EXE, counted through PROCDIR (/proc on Linux).
int countprocesses(const std::string& exe, const std::string& procdir = "/proc");

// This program's running instances.
int countthisprogram();

} // namespace orvane

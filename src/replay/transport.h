#pragma once
// The replay transport: the timer, the play button, the step keys, the seek by kilometre and the
// two markers of a stretch. Every move ends in bofang, or bofangdb on the comparison side; in step
// both sides move together, out of step only the side with the focus.

#include <cstdint>
#include <string>

namespace orvane {

struct Station;
struct Side;

// Whether continuous replay runs: the caption of Command8 says "播放暂停".
bool replaying(const Station& st);
// The view of SIDE comes to rest after a jump: the A-mode stopped, the cursors from the start, a redraw.
void settle(Station& st, Side& side);

// The view indices per tick and the timer interval of the speed bar HScroll8 (bofsd 1 to 9).
void setreplayspeed(Station& st);
// Option8 "扩展" chosen, or in force at the start: the replay step and the hand step at most 400.
void capexpanded(Station& st);
// One tick of T1: the main side, then the comparison side while it is shown.
void replaytick(Station& st);
// Command8: starts or pauses continuous replay.
void pressplay(Station& st);
// Command34 and Command27: a hand step forward or back, the comparison side following.
void stepforward(Station& st);
void stepback(Station& st);
// The same by AMOUNT view indices (a screen for the page keys), with the same end messages.
void stepforwardby(Station& st, std::int32_t amount);
void stepbackby(Station& st, std::int32_t amount);
// Command37 and Command38: the same with the comparison side leading.
void stepforwarddb(Station& st);
void stepbackdb(Station& st);
// Label20 pressed with the left button, or Enter in Text1: seek the kilometre of Text1. Another
// button walks on to the next place where that kilometre was passed.
void seekkilometre(Station& st);
void nextseekhit(Station& st);
// Label21 or Enter in Text2: the comparison side goes to the place nearest the kilometre of Text2.
void seekkilometredb(Station& st);
// The menu entries aqd "起点" and azd "终点" at the pointer's x (aqddb and azddb on the comparison
// picture).
void markstart(Station& st, Side& side);
void markend(Station& st, Side& side);
// Draws the marker of KIND ("qd" or "zd") with the length between the two.
void drawmarker(Station& st, const Side& side, const char* kind);
// After a change of the map (whole file or clip, reversals, alignment, loss limit): the maps are
// rebuilt and each view returns to the same kilometre.
void keepplace(Station& st);
// The kilometre at SIDE's view as the seek boxes take it: "0005.350".
std::string kilometrenote(const Side& s);
// Goes to the newest note of an earlier analysis.
void yybscs(Station& st);

// The end-of-file messages.
inline constexpr const char* atendmessage = "已经播放到文件最后位置！";
inline constexpr const char* atstartmessage = "已经播放到文件最初位置！";

} // namespace orvane

#pragma once
// bofang: brings the window up to viewindex. The cursors of the job, parameter, mark and sample
// lists follow the view and refresh their panels; the picture is drawn anew. bofangdb does the same
// for the comparison side on its own picture.

#include <string>

namespace orvane {

struct Station;
struct Side;

void bofang(Station& st, Side& side);
void bofang(Station& st);
void bofangdb(Station& st);

// The analyst's marks of the popup menu f1to8; a note names its entry by its second digit.
inline constexpr const char* f1to8[] = {"F1-阅",    "F2-怀疑",  "F3-鱼鳞纹起点", "F4-鱼鳞纹终点",
                                        "F5-关注1", "F6-关注2", "F7-关注3",      "F8-关注4"};

// The clock, speed and kilometre of the samples on screen, and the notes of earlier analysis.
void positionlabels(Station& st, Side& side);

// A sample clock "hhmmss…" as "hh:mm:ss".
std::string clocktext(const std::string& clock);

// Moves the view to the position seektarget, then redraws.
void gotoposition(Station& st, int seektarget);

} // namespace orvane

#pragma once
// The pictures going out: printed on the notice in the colours in force or in a white variant that
// saves ink, saved as a bitmap of what the user sees, or handed to the capture window.
#include <string>

namespace orvane {

struct Station;
struct Side;

// The caption of Labelaxxs, "A型显示" ("A-mode") until an A-mode was opened.
std::string amodecaption(const Station& st);
// Whether Labelaxxs names an A-mode that was opened.
bool amodeshown(const Station& st);

// Command15 pressed with BUTTON: the timers stop; the right button prints the white variant in the
// Chinese text set (nothing at all when white is in force already), any other the colours in force.
void printpicture(Station& st, const std::string& button);
// adytx: the picture printed in the colours in force; refused during a replay, the replay stopped.
void printshown(Station& st);
// Label33, and the notice closed: the print panel hides, the colours and the timers in force before
// the print come back and the pictures are drawn in them.
void closeprintpanel(Station& st);
// abctx: what the user sees saved as a bitmap under the name the save dialog gives.
void savewindowpicture(Station& st);
// ajt (the main side) and qjtdb (the comparison): the side drawn anew without its read-out, then the
// capture window over the screen.
void capturescreen(Station& st, Side& side);

} // namespace orvane

#pragma once
// A closer look: the enlarged view Picture9 over the picture (Command21), the defect note typed
// into Textbz, and the magnifier Form10 that follows the pointer.

namespace orvane {

struct Station;

// Command21: the cursor to the middle of the view and the enlargement drawn there; not during a replay.
void enlarge(Station& st);
// The enlargement drawn anew around the cursor, as bofang asks while it shows.
void drawenlargement(Station& st);
// Label9: the enlargement closes.
void closeenlargement(Station& st);
// The picture drawn anew with the note of Textbz beside the A-mode marker, shifted by HScroll2 and
// VScroll1; a note of blanks draws nothing more.
void drawdefectnote(Station& st);
// The factors of Form10's choices "0.5倍", "1倍", "2倍", "5倍": the caption's number plus one.
inline constexpr double magnifierfactors[4] = {1.5, 2.0, 3.0, 6.0};

// Form10 opened by a right release on Command21, and its factor: Option1(0..3) enlarge 1.5, 2, 3, 6 times.
void openmagnifier(Station& st);
void magnifierfactor(Station& st, int index);
// Timer1 of Form10: the caption names the pointer's place on the screen.
void magnifiertick(Station& st, int x, int y);

} // namespace orvane

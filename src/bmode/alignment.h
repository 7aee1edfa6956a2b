#pragma once
// The alignment of the channels (拼孔), window Formpk2: each channel's word is the number of
// positions by which the picture reads ahead in that channel. Channel I is the reference. Command3
// opens it for the main side, Command18 for the comparison side, which may only try words.

namespace orvane {

struct Station;
struct Side;

// Opens the window on the main side or, with COMPARISON, on the comparison side; the replay ticks with
// a step of 0 so that each change shows at once.
void openalignment(Station& st, bool comparison = false);
// The side whose words the open window tunes.
Side& alignedside(Station& st);
// HScroll1..HScroll8 (channels A..H) at VALUE, from -200 to 200 around the words at the opening.
void movealignment(Station& st, int channel, int value);
// Option2 "精确" (exact: every word 0, the words put aside) or Option1 "拼孔" (the words back);
// either closes the window.
void alignmentmode(Station& st, bool exact);
// Whether the window may store words: not in English, not for the comparison side.
bool alignmentstores(const Station& st);
// Cmdbc "保存" and Cmdsc "删除": the row of table pinkong for this instrument.
void savealignment(Station& st);
void deletealignment(Station& st);
// The window closes: the tuned words stay in force over later parameter records, the side is redrawn.
void closealignment(Station& st);

} // namespace orvane

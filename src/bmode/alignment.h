#pragma once
// The alignment of the main side's channels (拼孔), window Formpk2: each channel's word is the
// number of positions by which the picture reads ahead in that channel. Channel I is the reference.

namespace orvane {

struct Station;

// Command3: opens the window; the replay ticks with a step of 0 so that each change shows at once.
void openalignment(Station& st);
// HScroll1..HScroll8 (channels A..H) at VALUE, from -200 to 200 around the words at the opening.
void movealignment(Station& st, int channel, int value);
// Option2 "精确" (exact: every word 0, the words put aside) or Option1 "拼孔" (the words back);
// either closes the window.
void alignmentmode(Station& st, bool exact);
// Cmdbc "保存" and Cmdsc "删除": the row of table pinkong for this instrument.
void savealignment(Station& st);
void deletealignment(Station& st);
// The window closes: the tuned words stay in force over later parameter records.
void closealignment(Station& st);

} // namespace orvane

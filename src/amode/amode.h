#pragma once
// The A-mode picture: what the instrument's screen would have shown for the point under the cursor,
// made for every frame from the raw echo value, the gate bytes of the parameter record in force and
// a fixed echo shape. One channel (Picture3 with its timer T2), or all channels at once.
#include <cstdint>
#include <string>

namespace orvane {

class Canvas;
struct Station;
struct Side;

// The rule of every action that may not run during a replay: while T1 or T2 runs, both pause for the
// message "请暂停播放B显和A显！" ("Please pause at first!") and then run on; false when the action is
// to stop there.
bool pausefirst(Station& st);

// The interval of T2 for the speed bar HScroll1 (1 to 9): round(3.0 / factor) ms.
int amodeinterval(int speed);

// The side the A-mode shows.
Side& amodesideof(Station& st);

// The opening's common steps on SIDE: its picture drawn, the panel shown, the cursor's column from
// Lineyz(0), the B-mode replay paused, the limits of the column; with CHOOSE a blank channel is chosen.
void opencursor(Station& st, Side& side, bool choose);
// The dot grid of Picture3: every 12 units across and STEP down, on the lines every 60 across and every
// LINE down, at the picture's origin (10, 12).
void dotgrid(Station& st, Canvas& c, int step, int line);
// Whether the caption of Command12 says the A-mode stands.
bool amodepaused(const Station& st);
// Past amodelast the A-mode pauses and the column goes back to amodefirst + 20.
void pastlast(Station& st);

// Opens the A-mode of amodechannel on amodeside at the cursor Lineyz(0); a blank channel is chosen
// by the pointer's clicky.
void openamode(Station& st);
// The channel whose echo lies nearest to clicky around cursorposition: its index 0..8.
int choosechannel(Station& st, const Side& side);
// Gate 1, 2, 3 of channel K from the parameter record in force.
void readgates(Station& st, const Side& side, int k);
// One frame of channel K; TICK when the timer draws it (the column moves on, the marker's slope
// offset applies).
void drawamodeframe(Station& st, bool tick);
// The echo and the late echo of channel K at the scan column, into echox and latex.
void readecho(Station& st, const Side& side, int k);
// The marker Lineyz(21) over the B-mode picture of the side at the scan column.
void placemarker(Station& st, Side& side, int k, bool tick);
// Command12: runs or pauses T2.
void pressamode(Station& st);
// One tick of T2: a frame of the channel, or of all channels.
void amodetick(Station& st);
// HScroll9 moved while it holds the focus: the column to VALUE, paused, one frame.
void movescan(Station& st, int value);
// Label32: the panel closes, T2 stops.
void closeamode(Station& st);

// The view of all channels: its background once, then one echo a channel each tick.
void openallchannels(Station& st);
void allchanneltick(Station& st);
// The background of one channel: plain in bxianbackcolor, kept (each frame draws its dot grid).
void plainbackground(Station& st);
// The background of all channels with the colours in force: the dot grid, the gate rows, kept.
void allchannelbackground(Station& st);
// One frame of all channels; TICK when the timer draws it (the column moves on).
void drawallchannels(Station& st, bool tick);

// The picture of the A-mode in force anew with the colours in force, its background and one frame
// that doesn't move the column: what a print shows.
void redrawamode(Station& st);

// The index 0..8 of a channel letter "A".."I"; 8 for anything else.
int channelindex(const std::string& letter);

inline constexpr const char* pausemessage = "请暂停播放B显和A显！";

} // namespace orvane

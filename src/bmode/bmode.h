#pragma once
// The B-mode picture of the main side: the scale and background fitted to the rail, and one
// screenful of echoes and events drawn onto the canvas Picture1.

#include <string>
#include <vector>

namespace orvane {

struct Station;
struct Side;

// Fits the scale of each side's picture and its ruler to the side's rail code and the layout.
void layout(Station& st);
// Draws the background layer of each side's picture (running surface and, on request, the rail's
// lines) and keeps it.
void background(Station& st);

// One screenful of the main side from viewindex: channel sweeps, late waves, events.
void loadall(Station& st);
// Its relatives: the comparison side on Picture6; the repaint of the A-mode replay up to the column
// it reached; the enlargement on Picture9 of 300 view indices around the ruler's x.
void loadalldb(Station& st);
void loadallduotd(Station& st, int lastcolumn);
void loadallfangda(Station& st, double rulerx);
// The crosses where the clip map joined two stretches, on the side's own picture.
void loadjjxx(Station& st, const Side& side);

// The depth ruler over the picture in canvas units, from its left X0: the spine Lineyz(0), twenty
// ticks of 10 mm with a thick one every 50 mm, the labels Labelyz(1..4) and "毫米".
struct RulerLine {
    double x1, y1, x2, y2;
    int width;
};
struct RulerLabel {
    double left, top;
    std::string text;
};
std::vector<RulerLine> rulerlines(double x0);
std::vector<RulerLabel> rulerlabels(double x0);
// Whether a press at canvas x X takes hold of the ruler (its labels, spine and ticks).
bool onruler(const Side& side, double x);
// The ruler dragged by DX canvas units; it stays on the picture.
void moveruler(Station& st, Side& side, double dx);
// The ruler, which is also the cursor assembly, placed with its labels at X.
void placecursor(Side& side, double x);
// The x of the cursor line Lineyz(0): the ruler's spine, 20 units right of its labels.
double cursorline(const Side& side);

// The rows below the running surface of a rail code: head, web, foot (without the 18 above them).
struct RailRows {
    int head, web, foot;
};
RailRows railrows(const Station& st, const std::string& railcode);

} // namespace orvane

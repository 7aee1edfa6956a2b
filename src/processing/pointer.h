#pragma once
// The pointer on the B-mode pictures: a press pauses or arms, a move reads out kilometre, metres and
// depth, a release drags the view or, as a plain click, places the cursor and opens the A-mode there.
// The distance measurement with the cursor assembly on the same pictures.
#include <string>

namespace orvane {

struct Station;
struct Side;

// A press of BUTTON ("left", "right") at (X, Y) on the picture of SIDE.
void pointerdown(Station& st, Side& side, const std::string& button, double x, double y);
// The pointer moved to (X, Y): the read-out Label14 of SIDE.
void pointermove(Station& st, Side& side, double x, double y);
// The release of BUTTON at (X, Y): a drag of more than two units moves the view, a click opens the
// A-mode at the place.
void pointerup(Station& st, Side& side, const std::string& button, double x, double y);

// The depth in half-millimetres of a picture row Y by the layout, or -1 where the row has none.
double depthof(const Station& st, const Side& side, double y);
// The text of the read-out at kilometre KM and depth D (-1: none).
std::string readouttext(const Station& st, double km, double d);

// The position under the cursor line Lineyz(0) of SIDE.
std::int32_t cursorpositionof(const Station& st, const Side& side);
// A press on the grip Labelyz of SIDE: the left button takes it, the right one sets an end.
void gripdown(Station& st, Side& side, const std::string& button, double x, double y);
// The grip dragged to X; released.
void gripmove(Station& st, Side& side, double x);
void gripup(Station& st);
// The right press on the grip: the first end, then the second with the result in Label10.
void measure(Station& st, Side& side);
// A click on Label10: the seek comes back in its place.
void closemeasure(Station& st);

} // namespace orvane

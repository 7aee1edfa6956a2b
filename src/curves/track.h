#pragma once
// The GPS track on the canvas picturegj: the walked line drawn to scale from the fixes of the GPS
// entries, the holes between fixes filled along the positions, the places with a fix in red, and
// Shape6 at the replay's place.
#include <string>

namespace orvane {

struct Station;

// A coordinate of a fix in degrees and decimal minutes ("45.46123") as a linear value in hundreds of
// minutes; 0 stays 0.
double fixvalue(double v);
// Decodes the fixes and fills the elements without one along the positions; without two fixes the
// track is a straight diagonal.
void preparetrack(Station& st);
// Places the elements on the canvas with the smaller of the two factors; false (after the message)
// when all elements lie at one place.
bool scaletrack(Station& st);
void drawtrack(Station& st);
// Command22 (and the menu entry gpsqx): the small canvas with the track; Command30 and Command29 its
// big and its small size; Command28 closes it.
void showtrack(Station& st);
void bigtrack(Station& st);
void smalltrack(Station& st);
void closetrack(Station& st);
// Timer1: Shape6 goes to the element of the replay's place.
void followtrack(Station& st);

} // namespace orvane

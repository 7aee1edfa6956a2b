#pragma once
// The overview: the whole run of the main side in one strip, built from the grids once after the walk
// and again when the filter, the alignment or the map changes it; a click goes where it points.
namespace orvane {

struct Station;

// The most columns the strip has; a short run has one column a view index.
inline constexpr int overviewcolumns = 2048;

// Builds the strip again when what it is built from has changed since; true when it did.
bool updateoverview(Station& st);

// The view index at X of the strip's own scale (0 to its columns), and the kilometre there.
long overviewindex(const Station& st, double x);
double overviewkm(const Station& st, double x);

// The view comes to the place at X, the place in the middle of the screen.
void overviewgo(Station& st, double x);

// The strip as a canvas control "Overview": the left button pressed or dragged goes there.
void registeroverview(Station& st);

} // namespace orvane

#pragma once
// The controls of the curves and the track: the buttons and menu entries of the main window that open
// them, the windows Form29, Form8, Form9, Form4 with their letter buttons, canvases and read-outs, the
// track's canvas with its three buttons.
namespace orvane {

struct Station;

void registercurves(Station& st);

} // namespace orvane

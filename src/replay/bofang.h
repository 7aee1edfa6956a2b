#pragma once
// bofang: brings the main window up to viewindex. The cursors of the job, parameter, mark and
// sample lists follow the view and refresh their panels; the picture is drawn anew.

namespace orvane {

struct Station;

void bofang(Station& st);

// The clock, speed and kilometre of the samples on screen, and the notes of earlier analysis.
void positionlabels(Station& st);

// Moves the view to the position seektarget, then redraws.
void gotoposition(Station& st, int seektarget);

} // namespace orvane

#pragma once
// The controls of the replay: play and direction, the hand steps, the position and speed bars, the
// kilometre seek, the markers of a stretch, the options that change the view map or the step, the
// presses on the pictures, and the labels of the position. Also the hooks through which the walk
// and the pictures below reach the view map and bofang.

namespace orvane {

struct Station;

void registerreplay(Station& st);

} // namespace orvane

#pragma once
// The controls of the A-mode panel Picture5: the channel buttons, all channels, run and pause, the
// speed and the column bars, the picture Picture3, the caption and the close label.

namespace orvane {

struct Station;

void registeramode(Station& st);

} // namespace orvane

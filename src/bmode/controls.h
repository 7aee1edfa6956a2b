#pragma once
// The controls of the B-mode picture: the channel boxes, the display options, the colours, the dot
// size and the alignment window Formpk2.

namespace orvane {

struct Station;

void registerbmode(Station& st);

} // namespace orvane

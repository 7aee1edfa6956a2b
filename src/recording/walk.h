#pragma once
// The walk of a recording: record by record into the session model of one side.
#include <string>

namespace orvane {

struct Station;
struct Side;

// Walks the recording of SIDE: resets the side, decodes every record, then fixes the end position,
// completes the mileage and writes the sentinels. The comparison side is refused with the path
// and "有误" when its file does not exist or its name does not end in "R". False when the walk was
// refused, the file could not be read or its positions passed the side's grids; the message has
// then been shown.
bool walkfile(Station& st, Side& side);

// Fills the unknown kilometres between two samples at most 0.4 km apart, linearly.
void completemileage(Side& side);

} // namespace orvane

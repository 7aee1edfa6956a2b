#pragma once
// The walk of a recording: record by record into the session model of one side.
#include <span>
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

// The first part of the walk: the refusal of a comparison file, the reset of the side, and every
// record of the file read and decoded. False when the walk was refused or the file could not be read.
bool readrecords(Station& st, Side& side);

// The rest of the walk after reading, step by step; a step returns false when the walk ends there.
struct WalkStep {
    const char* name;
    bool (*run)(Station&, Side&);
};
std::span<const WalkStep> walksteps();

// Fills the unknown kilometres between two samples at most 0.4 km apart, linearly.
void completemileage(Side& side);

} // namespace orvane

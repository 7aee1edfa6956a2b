#pragma once
// The panels that the recording fills: channels and gains, the job in force, the switches, the job
// summary, and the label of the walk.

namespace orvane {

struct Station;

void registerrecording(Station& st);

} // namespace orvane

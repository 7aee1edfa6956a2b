#pragma once
// The controls of the processing: the filter's check boxes and threshold boxes of the nine channels,
// and the analyst's name box Tmc.

namespace orvane {

struct Station;

// A click on the filter's check box of CHANNEL (0..8).
void tickfilter(Station& st, int channel);

void registerprocessing(Station& st);

} // namespace orvane

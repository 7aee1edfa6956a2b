#pragma once
// The replay's second axis. The view walks view indices; viewmap turns each into a position, which
// lets the station leave out dead stretches and frequent reversing without touching the data.

#include <cstdint>

namespace orvane {

struct Station;
struct Side;

// Builds the map after a load and when a display mode changes: the whole file or the clip map,
// then, unless every reversal is shown, the reverse filter.
void rebuildmap(Station& st, Side& side);

// The clip map: filled positions are kept, a long empty stretch shrinks to its two ends.
void jjfzjjsz(Station& st, Side& side);

// The skip ahead of the clip state: a long empty stretch ahead of the view is jumped over.
void fzjjsz(Station& st, Side& side);

} // namespace orvane

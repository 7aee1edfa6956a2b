#pragma once
// The made bottom wave of channel I. The recording stores only where the 0 degree probe lost its
// bottom echo; the station draws the echo everywhere else, so the picture shows a continuous foot.

namespace orvane {

struct Station;
struct Side;

// Writes the foot line into column 8 (and on a subway recording the line of column 4) segment by
// segment of the parameter records, then clears it again where the echo was lost.
void zaodibo(Station& st, Side& side);

// Clears the foot line over every recorded loss and marks the losses longer than the loss limit.
// Runs again when the loss limit changes.
void markbottomloss(Station& st, Side& side);

} // namespace orvane

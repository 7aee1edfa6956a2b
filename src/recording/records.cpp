// The records kept whole: parameters, job records and restarts.
#include "recording/decoders.h"
#include "recording/hex.h"
#include "station/station.h"

namespace orvane {

namespace {

// The position at which a parameter or job record was written: its last three bytes.
std::int32_t tailposition(const Side& side, const std::uint8_t* record) {
    return side.segmentbase + bigendian(record + 253, 3);
}

} // namespace

void storeparam(Station&, Side& side, const std::uint8_t* record) {
    side.paramrec[side.paramcount] = hexof(record, recordbytes);
    side.parampos[side.paramcount] = tailposition(side, record);
    side.paramcount = std::min(side.paramcount, 9900) + 1;
    // The fields the detection decoder needs at once.
    side.foldvalue = record[174];
    for (int k = 0; k < 9; ++k) {
        side.channelkind[k] = hexof(record + 165 + k, 1);
        side.channelscale[k] = record[1 + k];
        // Low byte first in the record; a word above 7FFF reads as negative.
        side.pinkongval[k] = static_cast<std::int16_t>(record[91 + 2 * k] | (record[92 + 2 * k] << 8));
    }
}

void storejob(Station&, Side& side, const std::uint8_t* record) {
    side.jobrec[side.jobcount] = hexof(record, recordbytes);
    side.jobpos[side.jobcount] = tailposition(side, record);
    side.jobcount = std::min(side.jobcount + 1, 990);
}

void restartsegment(Station& st, Side& side, const std::uint8_t* record) {
    side.jobrec[side.jobcount] = hexof(record, recordbytes);
    if (side.samplecount > 0 && side.main) ++st.restartcount;
    // The new base leaves a gap behind everything met so far: the last sample plus 1000, or the
    // end of the detection data or the last GPS entry when those lie further on.
    std::int32_t base = st.baseoffset;
    if (side.samplecount > 0) base = side.samplepos[side.samplecount - 1] + 1000;
    if (base < side.lastposition) base = side.lastposition;
    if (side.gpscount > 0 && base < side.gpspos[side.gpscount - 1]) base = side.gpspos[side.gpscount - 1];
    side.segmentbase = base;
    const std::int32_t p = tailposition(side, record);
    side.jobpos[side.jobcount] = p;
    if (reachposition(st, side, p)) side.samplegrid[p][9] = 23;
    side.jobcount = std::min(side.jobcount + 1, 990);
}

} // namespace orvane

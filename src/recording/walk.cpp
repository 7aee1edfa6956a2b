#include "recording/walk.h"

#include "app/station.h"

namespace orvane {

void walkfile(Station& st, Side& side) {
    side.segmentbase = st.baseoffset;
    side.samplecount = 0;
}

} // namespace orvane

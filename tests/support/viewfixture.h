#pragma once
// A station with a main side of LAST positions ready for the replay: a recording canvas as
// Picture1, a whole-file map of 1200 view indices a picture, every list sized as a walk leaves it.
#include "app/recordingcanvas.h"
#include "stationfixture.h"

namespace orvane::testkit {

class ViewTest : public StationTest {
  protected:
    RecordingCanvas canvas;
    Side& s = st.zhu;

    void prepareview(std::int32_t last);
};

} // namespace orvane::testkit

#pragma once
// A station with a main side of LAST positions ready for the replay: a recording canvas as
// Picture1, a whole-file map of 1200 view indices a picture, every list sized as a walk leaves it.
// A comparison of its own length can be shown below it on a second recording canvas.
#include "station/recordingcanvas.h"
#include "stationfixture.h"

namespace orvane::testkit {

class ViewTest : public StationTest {
  protected:
    RecordingCanvas canvas, canvasdb;
    Side& s = st.zhu;
    Side& c = st.cong;

    void prepareview(std::int32_t last);
    void preparecomparison(std::int32_t last);

  private:
    void prepareside(Side& side, std::int32_t last);
};

} // namespace orvane::testkit

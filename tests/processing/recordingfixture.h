#pragma once
// A station on a small synthetic recording with the name an instrument gives (16 characters), walked
// as the window's first activation walks it.
#include "app/startup.h"
#include "generator.h"
#include "station/recordingcanvas.h"
#include "station/station.h"
#include "stationfixture.h"

#include <fstream>
#include <iterator>

namespace orvane::testkit {

inline std::string contents(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), {});
}

class RecordingTest : public StationTest {
  protected:
    RecordingCanvas picture1;
    std::string original, bytes;

    void SetUp() override {
        start();
        st.picture1 = &picture1;
        const ktrgen::Recording rec = ktrgen::generate(ktrgen::preset("small"), 2);
        bytes.assign(rec.bytes.begin(), rec.bytes.end());
        original = writefile("20261122_083.ktr", bytes);
        windowload(st, original);
        windowactivate(st);
    }
};

} // namespace orvane::testkit

#pragma once
// What the fuzz targets share: the input as a recording file, and a station as the headless front
// makes one, on a station folder made once a process, with a scripted user and a fixed clock.
#include "station/recordingcanvas.h"
#include "station/scriptedui.h"
#include "station/station.h"
#include "stationfixture.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

namespace orvane::fuzz {

// The folder of the process's files: the station folder and the recordings written from inputs.
const std::string& fuzzfolder();
// BYTES written whole as the file NAME of the fuzz folder; its path.
std::string writeinput(const std::uint8_t* bytes, std::size_t size, const std::string& name = "input.ktr");

// A station with its ports, canvases included, as the headless front's run sets them.
struct FuzzStation {
    FuzzStation();
    // The station folder opened as at start; false when the start ended the program.
    bool start();
    // The window's load and first activation of PATH; false when the load ended the program.
    bool open(const std::string& path);

    ScriptedUi ui;
    testkit::FixedClock clock;
    RecordingCanvas picture1, picture3, picture6, picture9;
    std::map<std::string, RecordingCanvas> curves;
    Station st;
};

// Ends the process as a finding when a side's counts and ends lie outside its lists and grids.
void checkside(const Side& side);

// Reads little-endian numbers from the front of an input, zeros when it runs out.
class InputReader {
  public:
    InputReader(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
    std::uint8_t byte() { return at_ < size_ ? data_[at_++] : 0; }
    std::int32_t int32() {
        std::uint32_t v = 0;
        for (int i = 0; i < 4; ++i) v |= static_cast<std::uint32_t>(byte()) << (8 * i);
        return static_cast<std::int32_t>(v);
    }
    std::int16_t int16() { return static_cast<std::int16_t>(byte() | (byte() << 8)); }
    const std::uint8_t* rest() const { return data_ + std::min(at_, size_); }
    std::size_t restsize() const { return size_ - std::min(at_, size_); }
    bool done() const { return at_ >= size_; }

  private:
    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t at_ = 0;
};

} // namespace orvane::fuzz

#pragma once
// A station on a fresh station folder of its own, with a scripted Ui and a fixed clock.
#include "station/scriptedui.h"
#include "station/station.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace orvane::testkit {

// A clock at a fixed time whose random source is a fixed sequence.
class FixedClock : public Clock {
  public:
    std::tm time{};
    float next = 0.5f;
    FixedClock();
    std::tm now() override { return time; }
    float rnd() override { return next; }
};

// A temporary folder removed at the end of the test.
class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    const std::filesystem::path& path() const { return path_; }
    std::string file(const std::string& name) const { return (path_ / name).string(); }

  private:
    std::filesystem::path path_;
};

class StationTest : public ::testing::Test {
  protected:
    StationTest();
    // entry on the test's station folder.
    void start(const std::string& language = "china");
    // A file of the given bytes in the test's folder.
    std::string writefile(const std::string& name, const std::string& bytes);
    // Writes BYTES as the recording NAME of SIDE and walks it.
    Side& walkrecording(const std::string& bytes, Side& side, const std::string& name = "run.ktr");

    TempFolder temp;
    std::string home;
    Station st;
    ScriptedUi ui;
    FixedClock clock;
};

} // namespace orvane::testkit

#include "stationfixture.h"

#include "app/startup.h"
#include "recording/walk.h"

#include <fstream>
#include <random>

namespace orvane::testkit {

FixedClock::FixedClock() {
    time.tm_year = 126;
    time.tm_mon = 10;
    time.tm_mday = 22;
    time.tm_hour = 9;
    time.tm_min = 5;
    time.tm_sec = 7;
}

TempFolder::TempFolder() {
    std::random_device rd;
    path_ = std::filesystem::temp_directory_path() /
            ("orvane-test-" + std::to_string(rd()) + std::to_string(rd()));
    std::filesystem::create_directories(path_);
}

TempFolder::~TempFolder() {
    std::error_code ec;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ec);
    std::filesystem::remove_all(path_, ec);
}

StationTest::StationTest() : home(temp.file("home")) {
    assemble(st);
    st.ui = &ui;
    st.clock = &clock;
    st.countinstances = [] { return 1; };
}

void StationTest::start(const std::string& language) {
    entry(st, home, language);
}

std::string StationTest::writefile(const std::string& name, const std::string& bytes) {
    std::string path = temp.file(name);
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

Side& StationTest::walkrecording(const std::string& bytes, Side& side, const std::string& name) {
    side.filepath = writefile(name, bytes);
    walkfile(st, side);
    return side;
}

} // namespace orvane::testkit

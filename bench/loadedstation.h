#pragma once
// A station loaded as the window's first activation loads it, for the benchmarks of what an analyst
// does on a loaded recording.
#include "app/startup.h"
#include "station/recordingcanvas.h"
#include "station/scriptedui.h"
#include "station/station.h"
#include "station/systemclock.h"

#include "generator.h"

#include <filesystem>
#include <string>

// The large synthetic recording in FOLDER, written on the first run and kept for the next.
inline std::string largerecording(const std::filesystem::path& folder) {
    std::filesystem::create_directories(folder);
    const std::string path = (folder / "20261122_large.ktr").string();
    if (!std::filesystem::exists(path)) ktrgen::writefile(path, ktrgen::generate(ktrgen::preset("large"), 1));
    return path;
}

struct LoadedStation {
    orvane::ScriptedUi ui;
    orvane::SystemClock clock{1};
    orvane::RecordingCanvas picture1;
    orvane::Station st;
    // The recording PATH on the station folder STATION.
    LoadedStation(const std::string& station, const std::string& path) {
        st.ui = &ui;
        st.clock = &clock;
        st.picture1 = &picture1;
        orvane::entry(st, station, "china");
        orvane::windowload(st, path);
        orvane::windowactivate(st);
    }
};

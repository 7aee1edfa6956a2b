#include "fuzzstation.h"

#include "app/startup.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace orvane::fuzz {

namespace fs = std::filesystem;

const std::string& fuzzfolder() {
    // One folder a process, removed at its end: fuzzing runs several processes side by side.
    static const struct Folder {
        std::string path;
        Folder() : path((fs::temp_directory_path() / ("orvane-fuzz-" + std::to_string(getpid()))).string()) {
            fs::create_directories(path);
        }
        ~Folder() {
            std::error_code ec;
            fs::remove_all(path, ec);
        }
    } folder;
    return folder.path;
}

std::string writeinput(const std::uint8_t* bytes, std::size_t size, const std::string& name) {
    const std::string path = fuzzfolder() + "/" + name;
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(size));
    return path;
}

FuzzStation::FuzzStation() {
    assemble(st);
    st.ui = &ui;
    st.clock = &clock;
    st.countinstances = [] { return 1; };
    st.picture1 = &picture1;
    st.picture3 = &picture3;
    st.picture6 = &picture6;
    st.picture9 = &picture9;
    picture9.scale(300, 0, 410);
    for (const char* name : {"Form29.Picture1", "Form29.Picture2", "Form8.Picture1", "Form8.Picture2",
                             "Form8.Picture3", "Form9.Picture1", "Form9.Picture2", "picturegj"})
        st.canvases[name] = &curves[name];
}

bool FuzzStation::start() {
    entry(st, fuzzfolder() + "/home");
    return !st.process.ended;
}

bool FuzzStation::open(const std::string& path) {
    if (!start()) return false;
    windowload(st, path);
    if (st.process.ended) return false;
    windowactivate(st);
    return true;
}

void checkside(const Side& side) {
    auto fail = [&](const char* what) {
        std::fprintf(stderr, "side %s: %s (lastposition %d, samplecount %d, gridrows %lld)\n",
                     side.main ? "zhu" : "cong", what, side.lastposition, side.samplecount,
                     static_cast<long long>(side.gridrows));
        std::abort();
    };
    if (side.gridrows > side.gridlast + 1) fail("the grids passed their bound");
    // Without samples the walk ends before the end position is checked: nothing reads the grids there.
    if (side.samplecount > 0 && (side.lastposition < 0 || side.lastposition > side.gridlast))
        fail("lastposition outside the grids");
    if (side.samplecount < 0 || static_cast<std::size_t>(side.samplecount) >= side.samplepos.size())
        fail("samplecount past its list");
    if (side.markcount < 0 || static_cast<std::size_t>(side.markcount) > side.markpos.size())
        fail("markcount past its list");
    if (side.gpscount < 0 || static_cast<std::size_t>(side.gpscount) >= side.gpspos.size())
        fail("gpscount past its list");
    if (side.paramcount < 0 || static_cast<std::size_t>(side.paramcount) >= side.parampos.size())
        fail("paramcount past its list");
    if (side.jobcount < 0 || static_cast<std::size_t>(side.jobcount) >= side.jobpos.size())
        fail("jobcount past its list");
}

} // namespace orvane::fuzz

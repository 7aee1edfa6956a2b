#include "stores/stationfolder.h"

#include "station/station.h"
#include "stores/seedsql.h"
#include "stores/sqlitedb.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace orvane::stores {

namespace {

struct Seed {
    const char* file;
    const char* sql;
};
const Seed seeds[] = {{"gpsx.db", seed_gpsx}, {"color.db", seed_color}, {"yqhbz.db", seed_yqhbz}};

// Proves the folder writable by making and removing a small file in it.
void checkwritable(const fs::path& folder) {
    const fs::path probe = folder / ".orvane-write-test";
    {
        std::ofstream out(probe);
        out << "ok";
        if (!out) throw StationFolderError("站点文件夹无法写入：" + folder.string());
    }
    std::error_code ec;
    fs::remove(probe, ec);
}

} // namespace

std::string stationfolder() {
    if (const char* home = std::getenv("ORVANE_HOME"); home && *home) return home;
    const char* user = std::getenv("HOME");
    return (fs::path(user && *user ? user : ".") / ".local" / "share" / "orvane").string();
}

void preparestationfolder(const std::string& folder) {
    std::error_code ec;
    fs::create_directories(folder, ec);
    if (ec || !fs::is_directory(folder))
        throw StationFolderError("无法建立站点文件夹：" + folder + (ec ? "（" + ec.message() + "）" : ""));
    checkwritable(folder);
    for (const Seed& seed : seeds) {
        const fs::path file = fs::path(folder) / seed.file;
        if (!fs::exists(file)) SqliteDb::create(file.string(), seed.sql);
    }
}

void opendatabases(Station& st, const std::string& folder) {
    const fs::path base(folder);
    st.gpsxdb = std::make_unique<SqliteDb>((base / "gpsx.db").string());
    st.colordb = std::make_unique<SqliteDb>((base / "color.db").string());
    st.yqhbzdb = std::make_unique<SqliteDb>((base / "yqhbz.db").string());
}

} // namespace orvane::stores

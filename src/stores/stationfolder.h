#pragma once
// The station folder: databases, the session log and scratch files of the station.
#include <stdexcept>
#include <string>

namespace orvane {
struct Station;
}

namespace orvane::stores {

// The folder cannot be made or written.
class StationFolderError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// $ORVANE_HOME when set, otherwise ~/.local/share/orvane.
std::string stationfolder();

// Makes the folder and any of the three databases that is missing, from its seed.
void preparestationfolder(const std::string& folder);

// Opens gpsxdb, colordb and yqhbzdb of the folder, in this order.
void opendatabases(Station& st, const std::string& folder);

} // namespace orvane::stores

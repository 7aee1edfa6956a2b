#pragma once
// The commands of orvane-cli.
#include <string>

namespace orvane {
struct Station;
}

namespace orvane::cli {

// The settings as the station loaded them: the color rows as stored, the mark names, the values in force.
std::string settingsjson(Station& st);

} // namespace orvane::cli

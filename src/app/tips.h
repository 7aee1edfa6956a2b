#pragma once
// The tips of the main window's controls, in the language of the station.
#include <string>

namespace orvane {

struct Station;

// The tip of the control NAME; empty for a name the table doesn't know.
std::string controltip(const Station& st, const std::string& name);

} // namespace orvane

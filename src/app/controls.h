#pragma once
// The controls of Form28 that hold a setting: options, scroll bars, the filter boxes. Each change
// runs the control's handler, which writes its row of color at once.
#include <stdexcept>
#include <string>

namespace orvane {

struct Station;

class ControlError : public std::invalid_argument {
  public:
    using std::invalid_argument::invalid_argument;
};

// The user sets control NAME to VALUE: 0/1 for options and check boxes, a number for scroll bars,
// text for text boxes. An option that is already on stays as it is.
void setcontrol(Station& st, const std::string& name, const std::string& value);

// A setting written straight into its row and field ("shoudbjz.apy"), then read again as after a
// restart of the station.
void setsetting(Station& st, const std::string& rowfield, const std::string& value);

// Whether option NAME is the chosen one of its group, by the settings in force.
bool optionon(const Station& st, const std::string& name);

} // namespace orvane

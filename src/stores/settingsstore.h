#pragma once
// The settings store: table color of color.db, read once at start and written back at once by
// every control that changes one.
#include "station/controls.h"
#include "station/settings.h"

#include <array>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>

namespace orvane {

struct Station;

// A row or field of color that the start needs is missing or unreadable.
class SettingsError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Reads every setting in the order of the table, with the start's corrections.
void loadsettings(Station& st);
// The texts of the five operator marks "标记0" to "标记4" (biaojiname) from table biaoji.
std::array<std::string, 5> marknames(Station& st);

// The one writer of every control: update color set <field>='<value>' where weizhi='<key>'.
void writesetting(Station& st, const std::string& key, const std::string& field, const std::string& value);

// One colour row written and put in force; a channel colour also in channelcolor.
void setcolor(Station& st, const std::string& key, std::uint32_t value);
// A colour control clicked: the colour dialog, then the chosen colour in force. False on cancel.
bool choosecolor(Station& st, const std::string& key);

// The colour presets: Command40 "纯黑" and Command41 "浅黄".
void colorpreset(Station& st, int preset);

// Every row of table color back to the values of a new station folder, then read again.
void resetsettings(Station& st);
// Whether COLOUR stands so close to the picture's background that dots of it hardly show.
bool nearbackground(const Station& st, std::uint32_t colour);

// Command36 "设为默认": the nine filter texts into row guolv.
void savefilterdefaults(Station& st);

// A setting written straight into its row and field ("shoudbjz.apy"), then read again as after a
// restart of the station. A name without a row and field is a ControlError.
void setsetting(Station& st, const std::string& rowfield, const std::string& value);

// An option of a group that stores VALUE in its row and field when it is chosen, then runs THEN. It
// reads as on while the setting in force has that value.
Control settingoption(const std::string& name, const std::string& caption, const std::string& key,
                      const std::string& field, std::int16_t value, std::function<void(Station&)> then);
// A scroll bar from MIN to MAX whose value is its row and field; a move stores it, then runs THEN.
Control settingbar(const std::string& name, const std::string& key, const std::string& field, int min,
                   int max, std::function<void(Station&)> then);
// The controls of the settings that no display owns: Command36.
void registerstores(Station& st);

} // namespace orvane

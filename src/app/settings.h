#pragma once
// The user's settings: table color of color.db, read once at start and written back at once by
// every control that changes one.
#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace orvane {

struct Station;

// The colour keys in the order the start reads them; the channel colours A to I are acolor..icolor.
inline constexpr std::array<const char*, 18> colorkeys = {
    "selbackcolor",    "selforcolor",    "gridbackcolor",  "formbackcolor", "buttonbackcolor",
    "buttonfontcolor", "bxianbackcolor", "axianforecolor", "acolor",        "bcolor",
    "ccolor",          "dcolor",         "ecolor",         "fcolor",        "gcolor",
    "hcolor",          "icolor",         "biaochicolor"};

// The fields of a color row, in table order after weizhi.
inline constexpr std::array<const char*, 9> colorfields = {"shuzhi", "shuzhibf", "apy", "bpy", "cpy",
                                                           "dpy",    "epy",      "fpy", "gpy"};

struct Settings {
    std::array<std::uint32_t, colorkeys.size()> colorset{}; // by the index of colorkeys
    std::array<std::uint32_t, 9> channelcolor{};            // channels A to I
    std::int16_t bofsd = 0;                                 // replay speed step
    std::int16_t diandx = 0;                                // dot size of the B-mode
    std::int16_t zuhfj = 0;                                 // B-mode layout 1, 2, 3
    std::int16_t manualstep = 0;                            // hand step
    std::int16_t viewspan = 0;                              // 1200 compressed, 600 expanded
    std::int16_t markplace = 0;                             // 0 foot, 1 head
    std::int16_t latewaveshown = 0;                         // 0 shown, 1 hidden
    std::int16_t reverseshow = 0;                           // 0 frequent reversals thinned, 1 all
    std::int16_t vshape = 0;                                // 70-degree channels: 0 straight, 1 V
    std::int16_t integralshown = 0;                         // 0 hidden, 1 shown
    std::int16_t wholefile = 0;                             // 0 clip, 1 whole file
    std::int16_t losswavelimit = 0;                         // length of a reportable bottom-wave loss
    std::array<std::string, 5> biaojiname{};
    std::array<std::array<std::string, 2>, 38> biaojikcpair{}; // row 0 stays empty

    std::uint32_t color(const std::string& key) const;
};

// A row or field of color that the start needs is missing or unreadable.
class SettingsError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Reads every setting in the order of the table, with the start's corrections.
void loadsettings(Station& st);

// The one writer of every control: update color set <field>='<value>' where weizhi='<key>'.
void writesetting(Station& st, const std::string& key, const std::string& field, const std::string& value);

// One colour row written and put in force; a channel colour also in channelcolor.
void setcolor(Station& st, const std::string& key, std::uint32_t value);
// A colour control clicked: the colour dialog, then the chosen colour in force. False on cancel.
bool choosecolor(Station& st, const std::string& key);

// The colour presets: Command40 "纯黑" and Command41 "浅黄".
void colorpreset(Station& st, int preset);

// Command36 "设为默认": the nine filter texts into row guolv.
void savefilterdefaults(Station& st);

// Maps a colour to red + 256 * green + 65536 * blue.
constexpr std::uint32_t rgb(int r, int g, int b) {
    return static_cast<std::uint32_t>(r) + 256u * static_cast<std::uint32_t>(g) +
           65536u * static_cast<std::uint32_t>(b);
}

} // namespace orvane

#pragma once
// The user's settings in force: the rows of table color as the start read them, kept in memory and
// changed by every control that writes one.
#include <array>
#include <cstdint>
#include <string>

namespace orvane {

// The colour keys in the order the start reads them; the channel colours A to I are acolor..icolor.
inline constexpr std::array<const char*, 18> colorkeys = {
    "selbackcolor",    "selforcolor",    "gridbackcolor",  "formbackcolor", "buttonbackcolor",
    "buttonfontcolor", "bxianbackcolor", "axianforecolor", "acolor",        "bcolor",
    "ccolor",          "dcolor",         "ecolor",         "fcolor",        "gcolor",
    "hcolor",          "icolor",         "biaochicolor"};

// The fields of a color row, in table order after weizhi.
inline constexpr std::array<const char*, 9> colorfields = {"shuzhi", "shuzhibf", "apy", "bpy", "cpy",
                                                           "dpy",    "epy",      "fpy", "gpy"};

// The index of a colour key in colorkeys; colorkeys.size() for a key that is none.
std::size_t colorindex(const std::string& key);

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
    // The colour KEY in memory only (a channel's colour also in channelcolor); the table keeps its own.
    void setcolor(const std::string& key, std::uint32_t value);
    // The setting in memory that a row and field of color feed; nullptr for one that none feeds.
    std::int16_t* field(const std::string& key, const std::string& field);
    const std::int16_t* field(const std::string& key, const std::string& name) const {
        return const_cast<Settings*>(this)->field(key, name);
    }
};

// Maps a colour to red + 256 * green + 65536 * blue.
constexpr std::uint32_t rgb(int r, int g, int b) {
    return static_cast<std::uint32_t>(r) + 256u * static_cast<std::uint32_t>(g) +
           65536u * static_cast<std::uint32_t>(b);
}

} // namespace orvane

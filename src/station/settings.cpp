#include "station/settings.h"

#include <algorithm>

namespace orvane {

std::size_t colorindex(const std::string& key) {
    return static_cast<std::size_t>(std::find(colorkeys.begin(), colorkeys.end(), key) - colorkeys.begin());
}

std::uint32_t Settings::color(const std::string& key) const {
    std::size_t i = colorindex(key);
    return i < colorset.size() ? colorset[i] : 0;
}

void Settings::setcolor(const std::string& key, std::uint32_t value) {
    const std::size_t i = colorindex(key);
    if (i >= colorset.size()) return;
    colorset[i] = value;
    const std::size_t channel = i - colorindex("acolor");
    if (channel < channelcolor.size()) channelcolor[channel] = value;
}

std::int16_t* Settings::field(const std::string& key, const std::string& name) {
    if (key == "bofsd" && name == "shuzhi") return &bofsd;
    if (key == "diandx" && name == "shuzhi") return &diandx;
    if (key == "diandx" && name == "apy") return &losswavelimit;
    if (key == "zuhfj" && name == "shuzhi") return &zuhfj;
    if (key != "shoudbjz") return nullptr;
    if (name == "shuzhi") return &manualstep;
    if (name == "apy") return &viewspan;
    if (name == "bpy") return &markplace;
    if (name == "cpy") return &latewaveshown;
    if (name == "dpy") return &reverseshow;
    if (name == "epy") return &vshape;
    if (name == "fpy") return &wholefile;
    if (name == "gpy") return &integralshown;
    return nullptr;
}

} // namespace orvane

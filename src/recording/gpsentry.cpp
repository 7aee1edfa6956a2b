// A GPS entry on the panels: integral values and their levels, battery voltage, longitude and latitude.
#include "recording/hex.h"
#include "recording/panels.h"
#include "station/station.h"

namespace orvane {

std::string integrallevel(int k, int b) {
    struct Step {
        double from;
        const char* text;
    };
    // Levels by the lower end of each band; channels G and H have their own bands.
    static const Step usual[] = {{250, "40"}, {220, "30"}, {135, "25"}, {120, "20"},
                                 {80, "15"},  {60, "10"},  {50, "5"}};
    static const Step gh[] = {{250, "40"},  {160, "30"}, {68, "25"}, {57.5, "20"},
                              {52.5, "15"}, {45, "10"},  {37.5, "5"}};
    const bool late = k == 6 || k == 7;
    for (const Step& s : late ? gh : usual)
        if (b >= s.from) return s.text;
    return "<5";
}

void showgpsentry(Station& st, Side& side, std::int32_t index) {
    if (index < 0 || index >= static_cast<std::int32_t>(side.gpstext.size())) return;
    const std::string& text = side.gpstext[index];
    if (!side.Grid1.empty() && side.Grid1[0].size() >= 3) {
        for (int k = 0; k < 9; ++k) {
            const int b = static_cast<int>(hexvalue(mid(text, 19 + 2 * k, 2)));
            setcell(side.Grid1, k + 1, 2, std::to_string(b));
            setcell(side.Grid1, k + 1, 3, integrallevel(k, b));
        }
    }
    setcell(side.Grid3, 1, 6, mid(text, 37, 1) + "V");
    if (!side.main) return;
    const bool english = st.language == "english";
    const std::string minute = english ? "'" : "′";
    const std::string second = english ? "\"" : "″";
    st.form.labels["Label2_8"] = (english ? "E " : "经度") + mid(text, 10, 3) + "°" + mid(text, 13, 2) +
                                 minute + mid(text, 15, 4) + second;
    st.form.labels["Label2_9"] = (english ? "N " : "纬度 ") + mid(text, 1, 2) + "°" + mid(text, 3, 2) +
                                 minute + mid(text, 5, 4) + second;
}

} // namespace orvane

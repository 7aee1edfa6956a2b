#include "recording/controls.h"

#include "station/station.h"

namespace orvane {

void registerrecording(Station& st) {
    for (auto grid : {&Side::Grid1, &Side::Grid2, &Side::Grid3}) {
        const std::string name = grid == &Side::Grid1 ? "Grid1" : grid == &Side::Grid2 ? "Grid2" : "Grid3";
        Control c = control(name, ControlKind::grid);
        c.cells = [grid](const Station& st) { return st.zhu.*grid; };
        st.controls.add(c);
    }
    for (const char* name :
         {"Lzygk", "Lzyrq", "Ljqbh", "Lqssj", "Ljssj", "Lgzsj", "Lqslc", "Ljslc", "Ltccd", "Label2_1"})
        st.controls.add(formlabel(name));
    Control walking = control("lts1", ControlKind::label);
    walking.textof = [](const Station& st) { return st.form.lts1; };
    walking.visible = [](const Station& st) { return st.form.lts1visible; };
    st.controls.add(walking);
}

} // namespace orvane

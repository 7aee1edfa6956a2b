#include "reports/controls.h"

#include "station/station.h"

namespace orvane {

void registerreports(Station& st) {
    // 工务段, 线别 and 分析日 of the notice.
    st.controls.add(formtext("Tgwd", &Form28State::Tgwd));
    st.controls.add(formtext("Txb", &Form28State::Txb));
    st.controls.add(formtext("Textdyrq", &Form28State::Textdyrq));
    Control search = formtext("Text3", &Form28State::Text3);
    search.visible = [](const Station& st) { return st.form.Text3visible; };
    st.controls.add(search);
}

} // namespace orvane

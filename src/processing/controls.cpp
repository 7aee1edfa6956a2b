#include "processing/controls.h"

#include "station/station.h"

namespace orvane {

namespace {

// Channels A to I: the threshold box and its check box.
const char* const filterboxes[] = {"Ttda", "Ttdb", "Ttdc", "Ttdd", "Ttde", "Ttdf", "Ttdg", "Ttdh", "Ttdi"};
const char* const filterchecks[] = {"Check9",  "Check10", "Check11", "Check12", "Check13",
                                    "Check14", "Check15", "Check18", "Check19"};

} // namespace

void tickfilter(Station& st, int channel) {
    const bool ticked = !st.form.filterchecked[channel];
    st.form.filterchecked[channel] = ticked;
    // An unticked channel is not filtered: its box reads 0 and rests; ticked again it keeps that text
    // until the user types a number.
    if (!ticked) st.form.filtertext[channel] = "0";
    st.form.filterenabled[channel] = ticked;
}

void registerprocessing(Station& st) {
    for (int k = 0; k < 9; ++k) {
        Control check =
            control(filterchecks[k], ControlKind::checkbox, std::string(1, static_cast<char>('A' + k)));
        check.value = [k](const Station& st) { return st.form.filterchecked[k] ? 1 : 0; };
        check.click = [k](Station& st, const std::string&) { tickfilter(st, k); };
        st.controls.add(check);
        Control box = control(filterboxes[k], ControlKind::textbox);
        box.textof = [k](const Station& st) { return st.form.filtertext[k]; };
        box.enabled = [k](const Station& st) { return st.form.filterenabled[k]; };
        box.text = [k](Station& st, const std::string& text) { st.form.filtertext[k] = text; };
        st.controls.add(box);
    }
    st.controls.add(formtext("Tmc", &Form28State::Tmc));
}

} // namespace orvane

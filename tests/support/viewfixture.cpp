#include "viewfixture.h"

#include "replay/viewmap.h"

namespace orvane::testkit {

void ViewTest::prepareside(Side& side, std::int32_t last) {
    side.lastposition = last;
    side.reachgrids(last + 100);
    for (auto* list : {&side.jobpos, &side.parampos, &side.markpos, &side.stoplist}) list->assign(10001, 0);
    side.samplepos.assign(100001, 0);
    side.quarterindex.assign(5001, 0);
    rebuildmap(st, side);
}

void ViewTest::prepareview(std::int32_t last) {
    st.picture1 = &canvas;
    st.settings.viewspan = 1200;
    st.settings.wholefile = 1;
    st.settings.reverseshow = 1;
    st.form.mainviewenabled = true; // a recording is loaded: the controls of the view take acts
    prepareside(s, last);
}

void ViewTest::preparecomparison(std::int32_t last) {
    st.picture6 = &canvasdb;
    st.form.comparisonvisible = true;
    prepareside(c, last);
}

} // namespace orvane::testkit

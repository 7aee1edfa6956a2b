#include "viewfixture.h"

#include "replay/viewmap.h"

namespace orvane::testkit {

void ViewTest::prepareview(std::int32_t last) {
    st.picture1 = &canvas;
    st.settings.viewspan = 1200;
    st.settings.wholefile = 1;
    st.settings.reverseshow = 1;
    s.lastposition = last;
    s.reachgrids(last + 100);
    for (auto* list : {&s.jobpos, &s.parampos, &s.markpos, &s.stoplist}) list->assign(10001, 0);
    s.samplepos.assign(100001, 0);
    s.quarterindex.assign(5001, 0);
    rebuildmap(st, s);
}

} // namespace orvane::testkit

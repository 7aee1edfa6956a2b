// The large recording replayed from end to end and worked over as an analyst would: the memory the
// process holds after the first picture must not grow.
#include "app/startup.h"
#include "generator.h"
#include "replay/transport.h"
#include "scenario.h"
#include "station/recordingcanvas.h"
#include "stationfixture.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <malloc.h>

#if defined(__SANITIZE_ADDRESS__)
// The address checker's count of the bytes allocated and not yet freed.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

using namespace orvane;

namespace {

// The bytes the program holds on its heap, without what the address checker keeps back after a free.
std::size_t heapbytes() {
#if defined(__SANITIZE_ADDRESS__)
    return __sanitizer_get_current_allocated_bytes();
#else
    const struct mallinfo2 m = mallinfo2();
    return m.uordblks + m.hblkhd;
#endif
}

class Soak : public testkit::StationTest {};

TEST_F(Soak, ReplayingTheLargeRecordingEndToEndHoldsItsMemory) {
    const ::ktrgen::Recording r = ::ktrgen::generate(::ktrgen::preset("large"), 1);
    const std::string path = writefile("large.ktr", std::string(r.bytes.begin(), r.bytes.end()));
    RecordingCanvas picture1, picture3, picture6, picture9;
    st.picture1 = &picture1;
    st.picture3 = &picture3;
    st.picture6 = &picture6;
    st.picture9 = &picture9;
    start();
    windowload(st, path);
    windowactivate(st);
    ASSERT_GT(st.zhu.samplecount, 0);
    const std::size_t first = heapbytes();

    // End to end at the fastest speed.
    scroll(st, "HScroll8", 9);
    press(st, "Command8");
    ASSERT_TRUE(st.T1);
    std::int64_t ticks = 0;
    while (st.T1 && ticks < 100000) {
        replaytick(st);
        ++ticks;
    }
    EXPECT_FALSE(st.T1);
    EXPECT_GE(st.zhu.viewindex, st.zhu.viewlength - 1000);
    const std::size_t replayed = heapbytes();

    // A kilometre sought, steps both ways, every option and check box of the window changed and back.
    press(st, "Label20");
    enter(st, "Text1", "215.5");
    for (int n = 0; n < 50; ++n) press(st, "Command34");
    for (int n = 0; n < 50; ++n) press(st, "Command27");
    for (const Control& c : st.controls.all()) {
        if (c.kind != ControlKind::option && c.kind != ControlKind::checkbox) continue;
        if (ControlTable::formof(c.name) != "Form28") continue;
        for (const char* value : {"1", "0", "1"}) {
            try {
                setcontrol(st, c.name, value);
            } catch (const ControlError&) {
            } catch (const ControlClosed&) {
            }
        }
    }
    const std::size_t worked = heapbytes();

    const double mb = 1024.0 * 1024.0;
    std::printf("heap after the first picture %.1f MB, after %lld ticks %.1f MB, after the options %.1f MB\n",
                first / mb, static_cast<long long>(ticks), replayed / mb, worked / mb);
    EXPECT_LT(static_cast<double>(replayed) - static_cast<double>(first), 4 * mb);
    EXPECT_LT(static_cast<double>(worked) - static_cast<double>(first), 4 * mb);
}

} // namespace

// Saving a clip: the margins and their back-off, the records rebuilt from the store, a clip that
// reads back as the same echoes rebased, an existing target extended, the original never written.
#include "app/startup.h"
#include "generator.h"
#include "processing/clip.h"
#include "recording/hex.h"
#include "recordingfixture.h"
#include "scenario.h"
#include "station/controls.h"
#include "station/recordingcanvas.h"
#include "station/station.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>

using namespace orvane;
namespace fs = std::filesystem;

namespace {

using testkit::contents;

class Clip : public testkit::RecordingTest {
  protected:
    std::string clip(std::int32_t from, std::int32_t to, const std::string& name) {
        st.clipstart = from;
        st.clipend = to;
        ui.answers = {temp.file(name)};
        saveclip(st);
        return st.cliptarget;
    }
};

TEST_F(Clip, AClipReadsBackAsTheSameEchoesRebased) {
    const std::int32_t from = 20000, to = 40000;
    const std::string path = clip(to, from, "clip"); // the order of the markers is free
    EXPECT_EQ(path, temp.file("clip.ktr"));
    EXPECT_EQ(st.written, std::vector<std::string>{path});
    EXPECT_FALSE(st.form.accenabled);
    const std::int32_t a = from - 200, b = to + 200;
    Station copy;
    copy.ui = &ui;
    copy.clock = &clock;
    copy.countinstances = [] { return 1; };
    entry(copy, home);
    windowload(copy, path);
    windowactivate(copy);
    ASSERT_GT(copy.zhu.samplecount, 0);
    // The clip's positions start behind the base offset of the walk.
    const std::int32_t shift = copy.zhu.samplepos[0] == 0 ? copy.baseoffset : copy.zhu.samplepos[0];
    int echoes = 0;
    for (std::int32_t p = a; p <= b; ++p)
        for (int k = 0; k < 8; ++k) {
            ASSERT_EQ(copy.zhu.rawgrid[p - a + shift][k], st.zhu.rawgrid[p][k]) << p << " " << k;
            ASSERT_EQ(copy.zhu.samplegrid[p - a + shift][k], st.zhu.samplegrid[p][k]) << p << " " << k;
            echoes += st.zhu.rawgrid[p][k] != 0;
        }
    EXPECT_GT(echoes, 100);
}

TEST_F(Clip, PositionsOfTheClipRunFromZeroToItsLength) {
    const std::string path = clip(30000, 31000, "short.ktr");
    const std::string file = contents(path);
    ASSERT_EQ(file.size() % 256, 0u);
    const std::int32_t length = 31200 - 29800;
    std::int32_t lowest = 1 << 30, highest = -1;
    for (std::size_t r = 0; r < file.size(); r += 256) {
        const auto* record = reinterpret_cast<const std::uint8_t*>(file.data() + r);
        if (record[0] != 0x42) continue;
        for (int i = 0; i < 51 && !allzero(record + 1 + 5 * i, 5); ++i) {
            const std::int32_t p = bigendian(record + 1 + 5 * i, 3);
            lowest = std::min(lowest, p), highest = std::max(highest, p);
        }
    }
    EXPECT_GE(lowest, 0);
    EXPECT_LE(highest, length);
    EXPECT_EQ(static_cast<unsigned char>(file[0]), 0x53); // a restart record opens the clip
    // The end records carry the length and the margin the walk expects.
    const auto* param = reinterpret_cast<const std::uint8_t*>(file.data() + file.size() - 512);
    EXPECT_EQ(param[0], 0x43);
    EXPECT_EQ(bigendian(param + 253, 3), length + 1 + 400);
}

TEST_F(Clip, AClipShorterThanTheMarginFromTheStartKeepsTheStartMark) {
    st.zhu.rawgrid[100][0] = 77;
    const std::string file = contents(clip(100, 150, "start.ktr"));
    // a = 100: the echo at 100 is the first row, position 0.
    bool found = false;
    for (std::size_t r = 0; r < file.size() && !found; r += 256) {
        const auto* record = reinterpret_cast<const std::uint8_t*>(file.data() + r);
        if (record[0] == 0x42)
            for (int i = 0; i < 51 && !allzero(record + 1 + 5 * i, 5); ++i)
                found = found || (bigendian(record + 1 + 5 * i, 3) == 0 && record[4 + 5 * i] == 1 &&
                                  record[5 + 5 * i] == 77);
    }
    EXPECT_TRUE(found);
}

TEST_F(Clip, AnExistingTargetIsExtendedByTheNextClip) {
    const std::string path = clip(30000, 31000, "twice.ktr");
    const auto once = fs::file_size(path);
    clip(30000, 31000, "twice.ktr");
    EXPECT_EQ(fs::file_size(path), 2 * once);
}

TEST_F(Clip, AFolderAsTargetOrNoNameWritesNothing) {
    fs::create_directory(temp.file("folder.ktr"));
    clip(30000, 31000, "folder.ktr");
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_NE(ui.messages[0].find("folder.ktr"), std::string::npos);
    EXPECT_TRUE(st.written.empty());
    st.clipstart = 1, st.clipend = 2;
    ui.answers.clear();
    saveclip(st); // the dialog cancelled
    EXPECT_TRUE(st.written.empty());
}

TEST_F(Clip, MarkersPastTheEndWriteWhatTheBackOffGives) {
    const std::int32_t last = st.zhu.lastposition;
    const std::string file = contents(clip(last + 5000, last + 6000, "past.ktr"));
    const auto* param = reinterpret_cast<const std::uint8_t*>(file.data() + file.size() - 512);
    EXPECT_EQ(bigendian(param + 253, 3), 1200 + 1 + 400); // b went back by 200 and stays past the end
}

TEST_F(Clip, TheOriginalIsNeverWrittenByPointsAClipAndTheClose) {
    st.form.Tmc = "张伟";
    st.zhu.viewindex = 20000;
    press(st, "f1to8(0)");
    clip(30000, 31000, "piece.ktr");
    clock.time.tm_min += 10;
    ui.answers = {original}; // even a choice of the original itself is refused
    st.clipstart = 30000;
    saveclip(st);
    EXPECT_TRUE(windowunload(st));
    EXPECT_EQ(contents(original), bytes);
    EXPECT_EQ(std::hash<std::string>{}(contents(original)), std::hash<std::string>{}(bytes));
}

TEST_F(Clip, TheReversingPanelOpensTheStretchOnScreenAsTheComparison) {
    st.zhu.viewindex = 30000;
    st.form.Label6.visible = true;
    press(st, "Label6");
    EXPECT_TRUE(st.form.comparisonvisible);
    const std::string scratch = st.scratchpath;
    EXPECT_NE(scratch.find("daoche.ktr"), std::string::npos);
    EXPECT_EQ(fs::path(scratch).parent_path(), fs::path(home));
    EXPECT_TRUE(fs::exists(scratch));
    press(st, "Command17");
    EXPECT_FALSE(fs::exists(scratch));
    EXPECT_EQ(st.scratchpath, "deng");
}

} // namespace

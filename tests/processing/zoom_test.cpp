// The enlarged view, the defect note and the magnifier.
#include "processing/zoom.h"
#include "station/controls.h"
#include "station/station.h"
#include "viewfixture.h"

#include <gtest/gtest.h>

using namespace orvane;

namespace {

class Zoom : public testkit::ViewTest {
  protected:
    RecordingCanvas picture9;
    void SetUp() override {
        start();
        prepareview(20000);
        st.picture9 = &picture9;
        picture9.scale(300, 0, 410);
        s.viewindex = 5000;
        for (std::int64_t p = 4000; p < 7000; p += 7) s.samplegrid[p][0] = 40;
    }
};

TEST_F(Zoom, EnlargeDuringAReplayOnlyGivesTheMessage) {
    st.form.captions["Command8"] = "连续播放";
    press(st, "Command8");
    press(st, "Command21");
    EXPECT_EQ(ui.messages, std::vector<std::string>{"请暂停播放B显和A显！"});
    EXPECT_FALSE(st.Picture9visible);
    EXPECT_TRUE(st.T1); // the replay runs on after the message
}

TEST_F(Zoom, EnlargePutsTheCursorInTheMiddleAndDrawsTheStrip) {
    press(st, "Command21");
    EXPECT_TRUE(st.Picture9visible);
    EXPECT_EQ(s.rulerx0, 600); // labels at x, the line at x + 20
    ASSERT_FALSE(picture9.ops.empty());
    EXPECT_EQ(picture9.ops[0].kind, DrawOp::Kind::clear);
    int dots = 0;
    for (const DrawOp& op : picture9.ops) dots += op.kind == DrawOp::Kind::pset;
    EXPECT_GT(dots, 10);
    // A step of the view redraws the enlargement with it.
    picture9.ops.clear();
    press(st, "Command34");
    EXPECT_FALSE(picture9.ops.empty());
    press(st, "Label9");
    EXPECT_FALSE(st.Picture9visible);
}

TEST_F(Zoom, NoteOfBlanksDrawsNothingButTheRedraw) {
    setcontrol(st, "Textbz", "   ");
    const std::vector<DrawOp> plain = canvas.ops;
    s.amodemarker = {true, 600, 18, 620, 370, 0};
    setcontrol(st, "Textbz", "   ");
    EXPECT_EQ(canvas.ops.size(), plain.size());
    setcontrol(st, "Textbz", "核伤");
    ASSERT_EQ(canvas.ops.size(), plain.size() + 2);
    const DrawOp& arrow = canvas.ops[plain.size()];
    EXPECT_EQ(arrow.kind, DrawOp::Kind::line);
    EXPECT_EQ(arrow.x1, 610); // the marker's middle
    EXPECT_EQ(arrow.x2, 610);
    EXPECT_EQ(arrow.y2, 185 + 50);
    const DrawOp& text = canvas.ops.back();
    EXPECT_EQ(text.text, "核伤");
    EXPECT_EQ(text.x1, 615);
    scroll(st, "HScroll2", 40);
    scroll(st, "VScroll1", -20);
    EXPECT_EQ(canvas.ops.back().x1, 655);
    EXPECT_EQ(canvas.ops.back().y1, 165 + 50);
}

TEST_F(Zoom, MagnifierOpensOnARightReleaseWithItsFactors) {
    mouse(st, "Command21", {"up", "left", 5, 5});
    EXPECT_FALSE(st.Form10open);
    EXPECT_THROW(press(st, "Form10.Option1(2)"), ControlClosed);
    mouse(st, "Command21", {"up", "right", 5, 5});
    EXPECT_TRUE(st.Form10open);
    EXPECT_EQ(st.magnifierfactor, 1.5);
    const double factors[] = {1.5, 2.0, 3.0, 6.0};
    const char* captions[] = {"0.5倍", "1倍", "2倍", "5倍"};
    for (int i = 3; i >= 0; --i) {
        press(st, "Form10.Option1(" + std::to_string(i) + ")");
        EXPECT_EQ(st.magnifierfactor, factors[i]);
        EXPECT_EQ(controlcaption(st, reach(st, "Form10.Option1(" + std::to_string(i) + ")")), captions[i]);
    }
    magnifiertick(st, 120, 45);
    EXPECT_EQ(st.Form10caption, "放大镜 坐标(120,45)");
    closeform(st, "Form10");
    EXPECT_FALSE(st.Form10open);
}

TEST_F(Zoom, DefectInputEntryStaysHidden) {
    EXPECT_FALSE(reach(st, "asssr").isvisible(st));
}

} // namespace

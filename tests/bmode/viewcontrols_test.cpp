// The controls around the picture: colours, the clearing of the markers, presses on the picture,
// and the depth ruler.
#include "bmode/bmode.h"
#include "replay/transport.h"
#include "station/controls.h"
#include "station/station.h"
#include "stores/settingsstore.h"
#include "viewfixture.h"

#include <gtest/gtest.h>

using namespace orvane;

namespace {

class ViewControls : public testkit::ViewTest {
  protected:
    void SetUp() override {
        start();
        prepareview(20000);
        layout(st);
        background(st);
    }
    std::string row(const std::string& key) {
        return st.colordb->scalar("select shuzhi from color where weizhi=?", {key}).astext();
    }
};

TEST_F(ViewControls, ChannelColourLabelWritesItsRowAndRedraws) {
    ui.answers.push_back(std::to_string(rgb(1, 2, 3)));
    canvas.ops.clear();
    press(st, "Lysc");
    EXPECT_EQ(row("ccolor"), std::to_string(rgb(1, 2, 3)));
    EXPECT_EQ(st.settings.channelcolor[2], rgb(1, 2, 3));
    EXPECT_FALSE(canvas.ops.empty()); // the view was drawn anew
}

TEST_F(ViewControls, CancelledColourDialogChangesNothing) {
    const std::string before = row("bxianbackcolor");
    canvas.ops.clear();
    press(st, "Combjs"); // no answer: the dialog is cancelled
    EXPECT_EQ(row("bxianbackcolor"), before);
    EXPECT_TRUE(canvas.ops.empty());
}

TEST_F(ViewControls, BackgroundWindowAndGuideColoursHaveTheirRows) {
    for (const auto& [control, key] :
         {std::pair{"Combjs", "bxianbackcolor"}, std::pair{"Comcc", "formbackcolor"},
          std::pair{"Command13", "biaochicolor"}}) {
        ui.answers.push_back("4242");
        press(st, control);
        EXPECT_EQ(row(key), "4242") << control;
        EXPECT_EQ(st.settings.color(key), 4242u) << control;
    }
}

TEST_F(ViewControls, PresetButtonsPutTheirSchemeInForceAndRepaint) {
    canvas.ops.clear();
    press(st, "Command41");
    EXPECT_EQ(st.settings.color("bxianbackcolor"), rgb(255, 255, 192));
    EXPECT_EQ(st.settings.channelcolor[8], rgb(255, 0, 0));
    EXPECT_EQ(canvas.backgroundcolor, rgb(255, 255, 192));
    press(st, "Command40");
    EXPECT_EQ(st.settings.channelcolor[8], rgb(255, 255, 255));
    EXPECT_EQ(canvas.backgroundcolor, rgb(0, 0, 0));
}

TEST_F(ViewControls, ClearingTheMarkersHidesBoth) {
    s.viewindex = 5000;
    st.pointerx = 300;
    press(st, "aqd");
    st.pointerx = 700;
    press(st, "azd");
    press(st, "qcqzd");
    ASSERT_FALSE(canvas.ops.empty()); // the view was drawn anew
    EXPECT_EQ(s.startx, 0);
    EXPECT_EQ(s.endx, 0);
    for (const DrawOp& op : canvas.ops)
        EXPECT_EQ(op.text.find("米"), std::string::npos) << op.text; // no length printed any more
}

TEST_F(ViewControls, LeftPressOnTheRunningReplayOnlyPausesIt) {
    st.form.captions["Command8"] = "连续播放";
    press(st, "Command8");
    ASSERT_TRUE(st.T1);
    mouse(st, "Picture1", {"down", "left", 250, 40});
    EXPECT_EQ(st.form.popup, "");
    EXPECT_FALSE(st.T1);
    EXPECT_EQ(st.form.captions["Command8"], "连续播放");
    EXPECT_EQ(st.pointerx, 250);
    EXPECT_EQ(st.playside, "zhu");
}

TEST_F(ViewControls, RightPressAsksForTheMenuOrInEnglishStartsTheReplay) {
    mouse(st, "Picture1", {"down", "right", 100, 40});
    EXPECT_EQ(st.form.popup, "a13");
    EXPECT_FALSE(st.T1);
    st.form.popup.clear();
    st.language = "english";
    mouse(st, "Picture1", {"down", "right", 100, 40});
    EXPECT_EQ(st.form.popup, "");
    EXPECT_TRUE(st.T1);
    EXPECT_EQ(st.form.captions["Command8"], "Pause");
}

TEST_F(ViewControls, PressOnTheComparisonGivesItTheFocus) {
    mouse(st, "Picture6", {"down", "left", 10, 40}); // no comparison shown: nothing to press
    EXPECT_EQ(st.playside, "zhu");
    preparecomparison(20000);
    mouse(st, "Picture6", {"down", "left", 10, 40});
    EXPECT_EQ(st.playside, "cong");
    EXPECT_THROW(mouse(st, "Picture7", {"down", "left", 10, 40}), ControlError);
}

TEST_F(ViewControls, RulerStandsAtTheRightEdgeWithItsTicksAndLabels) {
    EXPECT_EQ(s.rulerx0, 1200 - 35);
    const auto lines = rulerlines(s.rulerx0);
    ASSERT_EQ(lines.size(), 21u);
    EXPECT_EQ(lines[0].x1, 1185); // the spine at x0 + 20
    EXPECT_EQ(lines[1].y1, 18);   // the first tick at the running surface, thick
    EXPECT_EQ(lines[1].width, 2);
    EXPECT_EQ(lines[2].width, 1);
    EXPECT_EQ(lines[6].width, 2); // every fifth: 50 mm
    EXPECT_EQ(lines[20].y1, 19 * 20 + 18);
    EXPECT_EQ(lines[20].x2, 1195);
    const auto labels = rulerlabels(s.rulerx0);
    ASSERT_EQ(labels.size(), 5u);
    EXPECT_EQ(labels[0].text, "毫米");
    EXPECT_EQ(labels[0].left, 1165 - 8);
    EXPECT_EQ(labels[4].text, "150");
    EXPECT_EQ(labels[4].top, 316);
    st.settings.viewspan = 600;
    layout(st);
    EXPECT_EQ(s.rulerx0, 565);
}

TEST_F(ViewControls, OptionsThatDoNotFitTheScaleLeaveADraggedRulerWhereItIs) {
    moveruler(st, s, -400);
    ASSERT_EQ(s.rulerx0, 765);
    for (const char* name :
         {"Option10", "Option11", "Option14", "Option15", "Option18", "Option19", "Option6", "Option7",
          "Option20", "Option21", "Option16", "Option17", "Option1", "Option2"}) {
        press(st, name);
        EXPECT_EQ(s.rulerx0, 765) << name;
    }
    press(st, "Option3"); // a new layout fits the scale and the ruler anew
    EXPECT_EQ(s.rulerx0, 1165);
    moveruler(st, s, -400);
    press(st, "Option8");
    EXPECT_EQ(s.rulerx0, 565);
}

TEST_F(ViewControls, DraggedRulerStaysOnThePicture) {
    EXPECT_TRUE(onruler(s, 1165 - 10));
    EXPECT_TRUE(onruler(s, 1165 + 32));
    EXPECT_FALSE(onruler(s, 1165 + 33));
    moveruler(st, s, -400);
    EXPECT_EQ(s.rulerx0, 765);
    moveruler(st, s, -5000);
    EXPECT_EQ(s.rulerx0, 8);
    moveruler(st, s, 5000);
    EXPECT_EQ(s.rulerx0, 1170);
}

} // namespace

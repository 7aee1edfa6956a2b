// The gain, integral and speed curves and the replay log on lists the tests write, their exact draw
// operations on recording canvases.
#include "../reports/indexfixture.h"
#include "curves/curves.h"
#include "reports/index.h"
#include "reports/workbook.h"
#include "station/controls.h"
#include "station/recordingcanvas.h"
#include "station/station.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

using testkit::jobimage;
using testkit::sampleclock;

std::string paramimage(int gain) {
    std::string image(512, '0');
    image.replace(0, 2, "43");
    for (int c = 0; c < 9; ++c) image.replace(236 + 2 * static_cast<std::size_t>(c), 2, hexbyte(gain + c));
    return image;
}

class CurveTest : public testkit::IndexTest {
  protected:
    std::map<std::string, RecordingCanvas> canvases;
    void SetUp() override {
        IndexTest::SetUp();
        for (const char* name : {"Form29.Picture1", "Form29.Picture2", "Form8.Picture1", "Form8.Picture2",
                                 "Form8.Picture3", "Form9.Picture1", "Form9.Picture2"})
            st.canvases[name] = &canvases[name];
        st.form.mainviewenabled = true; // as after a load
        z().lastposition = 10000;
        jobs({{0, jobimage("001", "003")}});
        params({{0, 100}});
    }
    void params(const std::vector<std::pair<std::int32_t, int>>& list) {
        Side& s = z();
        s.parampos.clear();
        s.paramrec.clear();
        for (const auto& [p, gain] : list) {
            s.parampos.push_back(p);
            s.paramrec.push_back(paramimage(gain));
        }
        s.paramcount = static_cast<std::int32_t>(list.size());
        s.parampos.push_back(s.lastposition);
        s.paramrec.push_back(list.empty() ? "" : s.paramrec.back());
    }
    // N samples 10 positions apart at SPEED.
    void evensamples(int n, float speed = 2.0f) {
        std::vector<SampleRow> rows;
        for (int i = 0; i < n; ++i) rows.push_back({100 + 10 * i, speed, sampleclock("083000", 12, i)});
        samples(rows);
    }
    // GPS entries at 1000, 2000, ... with channel A's values, the others 100.
    void integral(const std::vector<int>& a) {
        Side& s = z();
        s.gpspos.clear();
        s.gpstext.clear();
        s.suppressionon.clear();
        for (std::size_t i = 0; i < a.size(); ++i) {
            std::string text = "454612340126381234" + hexbyte(a[i]);
            for (int c = 1; c < 9; ++c) text += hexbyte(100);
            s.gpspos.push_back(static_cast<std::int32_t>(1000 * (i + 1)));
            s.gpstext.push_back(text + "80");
            s.suppressionon.push_back(true);
        }
        s.gpscount = static_cast<std::int32_t>(a.size());
        s.gpspos.push_back(s.lastposition);
        s.gpstext.push_back("");
    }
    // The integral curve of those values opened from the gain curve, the index loaded first.
    void openintegral(const std::vector<int>& a) {
        integral(a);
        indexload(st);
        press(st, "Command16");
        press(st, "Form29.Command8");
    }
    const std::vector<DrawOp>& ops(const std::string& name) { return canvases[name].ops; }
    std::vector<DrawOp> lines(const std::string& name) {
        std::vector<DrawOp> out;
        for (const DrawOp& op : ops(name))
            if (op.kind == DrawOp::Kind::line) out.push_back(op);
        return out;
    }
};

void expectline(const DrawOp& op, double x1, double y1, double x2, double y2) {
    EXPECT_EQ(op.kind, DrawOp::Kind::line);
    EXPECT_DOUBLE_EQ(op.x1, x1);
    EXPECT_DOUBLE_EQ(op.y1, y1);
    EXPECT_DOUBLE_EQ(op.x2, x2);
    EXPECT_DOUBLE_EQ(op.y2, y2);
}

TEST_F(CurveTest, OneParameterRecordIsOneLevelLineToTheEndOfTheFile) {
    press(st, "Command16");
    EXPECT_EQ(st.curves.curveend, 10000);
    EXPECT_EQ(st.curves.curvemargin, 800);
    EXPECT_EQ(canvases["Form29.Picture1"].scalewidth, 10800);
    EXPECT_EQ(canvases["Form29.Picture1"].scaleheight, 60);
    // Gain byte 100: (800 - 500) / 10 = 30 dB, at y = 30; the sentinel repeats the record.
    const auto l = lines("Form29.Picture1");
    ASSERT_EQ(l.size(), 2u);
    expectline(l[0], 10400, 30, 400, 30);
    expectline(l[1], 10400, 30, 10400, 30);
    EXPECT_EQ(l[0].width, 2);
    EXPECT_EQ(l[0].color, st.settings.channelcolor[0]);
}

TEST_F(CurveTest, AStaircaseOfThreeRecords) {
    params({{0, 100}, {2000, 110}, {6000, 90}});
    press(st, "Command16");
    press(st, "Form29.Command2"); // channel B: gain bytes one higher
    const auto l = lines("Form29.Picture1");
    ASSERT_EQ(l.size(), 6u);
    // B of 101, 111, 91: 29.5, 24.5 and 34.5 dB.
    expectline(l[0], 2400, 30.5, 400, 30.5);
    expectline(l[1], 2400, 35.5, 2400, 30.5);
    expectline(l[2], 6400, 35.5, 2400, 35.5);
    expectline(l[3], 6400, 25.5, 6400, 35.5);
    expectline(l[4], 10400, 25.5, 6400, 25.5);
    expectline(l[5], 10400, 25.5, 10400, 25.5);
    EXPECT_EQ(st.curves.curvechannel, 1);
    EXPECT_EQ(l[0].color, st.settings.channelcolor[1]);
}

TEST_F(CurveTest, AllNineChannelsOverEachOtherInTheirColours) {
    press(st, "Command16");
    press(st, "Form29.Command3");
    const auto l = lines("Form29.Picture1");
    ASSERT_EQ(l.size(), 18u);
    EXPECT_EQ(l[16].color, st.settings.channelcolor[8]);
}

TEST_F(CurveTest, TheGainScaleHasItsTicksAndLabels) {
    press(st, "Command16");
    const auto l = lines("Form29.Picture2");
    ASSERT_EQ(l.size(), 61u);
    expectline(l[0], 20, 59, 12, 59);
    EXPECT_EQ(l[0].width, 1);
    expectline(l[4], 20, 55, 10, 55);
    EXPECT_EQ(l[4].width, 2);
    expectline(l[9], 20, 50, 5, 50);
    EXPECT_EQ(l[9].width, 3);
    expectline(l[60], 19, 60, 19, 0);
    for (int i = 1; i <= 5; ++i)
        EXPECT_EQ(controlcaption(st, *st.controls.find("Form29.Label1(" + std::to_string(i - 1) + ")")),
                  std::to_string(10 * i));
}

TEST_F(CurveTest, TheReadOutNamesTheMileageBesideThePointer) {
    mileage(0, 10000, 12.345f);
    press(st, "Command16");
    mouse(st, "Form29.Picture1", {"move", "none", 1000, 20});
    EXPECT_EQ(st.curves.gainreadout.text, "   0012公里345米");
    EXPECT_EQ(st.curves.gainreadout.left, 1015);
    // Past half of the run it stands left of the pointer.
    mouse(st, "Form29.Picture1", {"move", "none", 6000, 20});
    EXPECT_EQ(st.curves.gainreadout.left, 6000 - 1250);
    // Past the run nothing changes.
    mouse(st, "Form29.Picture1", {"move", "none", 10500, 30});
    EXPECT_EQ(st.curves.gainreadout.top, 20);
}

TEST_F(CurveTest, FortyNineSamplesRefuseTheSpeedCurveAndFiftySuffice) {
    evensamples(49);
    press(st, "Command16");
    press(st, "Form29.Command12");
    EXPECT_EQ(ui.messages, std::vector<std::string>{"速度点数少于50个，不足以生成曲线"});
    EXPECT_FALSE(st.curves.Form9open);
    evensamples(50);
    press(st, "Form29.Command12");
    EXPECT_TRUE(st.curves.Form9open);
}

TEST_F(CurveTest, FourIntegralPointsRefuseAndFiveSufficeOnceTheIndexIsLoaded) {
    press(st, "Command16");
    integral({100, 100, 100, 100});
    indexload(st);
    press(st, "Form29.Command8");
    EXPECT_EQ(ui.messages.back(), "积分值点数少于5个，不足以生成曲线");
    integral({100, 100, 100, 100, 100, 100, 100});
    press(st, "Form29.Command8");
    EXPECT_EQ(ui.messages.back(), "请首先在主界面中点击“高级”按钮");
    EXPECT_FALSE(st.curves.Form8open);
    indexload(st);
    press(st, "Form29.Command8");
    EXPECT_TRUE(st.curves.Form8open);
}

TEST_F(CurveTest, AZeroValueIsDrawnInTheCanvasColour) {
    openintegral({100, 0, 0, 120, 50});
    const auto l = lines("Form8.Picture1");
    // The base line, then a pair for each of rows 1 to 4.
    expectline(l[0], 0, 260, 10800, 260);
    expectline(l[1], 1400, 160, 2400, 160);
    expectline(l[2], 2400, 260, 2400, 160);
    EXPECT_EQ(l[1].color, st.settings.channelcolor[0]);
    expectline(l[3], 2400, 260, 3400, 260);
    EXPECT_EQ(l[3].color, st.settings.color("bxianbackcolor"));
    EXPECT_EQ(l[4].color, st.settings.color("bxianbackcolor"));
    EXPECT_EQ(l[5].color, st.settings.color("bxianbackcolor"));
    expectline(l[7], 4400, 140, 5400, 140);
    EXPECT_EQ(l[7].color, st.settings.channelcolor[0]);
}

TEST_F(CurveTest, TheThresholdsOfBothTablesAndTheTwoMoreOfTarvik) {
    openintegral({100, 100, 100, 100, 100});
    auto thresholds = [this] {
        std::vector<double> ys;
        for (const DrawOp& op : lines("Form8.Picture1"))
            if (op.x1 == 0 && op.x2 == 10800 && op.y1 != 260) ys.push_back(op.y1);
        return ys;
    };
    EXPECT_EQ(thresholds(), (std::vector<double>{210, 200, 180, 140, 125}));
    press(st, "Form8.Command1"); // G
    EXPECT_EQ(thresholds(), (std::vector<double>{222, 215, 207, 202, 192}));
    const auto& labels = ops("Form8.Picture3");
    ASSERT_GE(labels.size(), 2u);
    EXPECT_EQ(labels[1].text, "5%");
    EXPECT_EQ(labels[1].y1, 217);
    EXPECT_EQ(labels[1].x1, 2);
    EXPECT_EQ(labels[1].size, 12);
    st.tarvikmode = "tarvik";
    press(st, "Form8.Command1");
    EXPECT_EQ(thresholds(), (std::vector<double>{222, 215, 207, 202, 192, 100, 10}));
    press(st, "Form8.Command4"); // A
    EXPECT_EQ(thresholds(), (std::vector<double>{210, 200, 180, 140, 125, 40, 10}));
}

TEST_F(CurveTest, TheValueScaleOfTheIntegralCurve) {
    openintegral({100, 100, 100, 100, 100});
    const auto l = lines("Form8.Picture2");
    ASSERT_EQ(l.size(), 51u);
    expectline(l[0], 20, 255, 12, 255);
    expectline(l[4], 20, 235, 10, 235);
    EXPECT_EQ(l[4].width, 1);
    expectline(l[9], 20, 210, 5, 210);
    EXPECT_EQ(l[9].width, 3);
    expectline(l[50], 19, 0, 19, 260);
}

TEST_F(CurveTest, SiftingListsOnlyValuesStrictlyBelowTheNumber) {
    openintegral({100, 40, 50, 60, 30});
    st.curves.Text1 = "";
    Workbook none = integralsift(st);
    ASSERT_EQ(none.sheets().size(), 9u);
    EXPECT_EQ(none.sheets()[0].name, "A通道");
    EXPECT_EQ(none.sheets()[8].name, "I通道");
    EXPECT_EQ(none.sheets()[0].read(2, 1).text, "");
    st.curves.Text1 = "50";
    const Workbook book = integralsift(st);
    const Sheet& a = book.sheets()[0];
    EXPECT_EQ(a.read(1, 1).text, "里程");
    EXPECT_EQ(a.read(1, 2).text, "积分值");
    EXPECT_EQ(a.read(2, 1).text, st.form.Grid1jf[2][0]);
    EXPECT_EQ(a.read(2, 2).text, " 40");
    EXPECT_EQ(a.read(3, 2).text, " 30");
    EXPECT_EQ(a.read(4, 2).text, "");
}

TEST_F(CurveTest, TheLastPageIsShortAndKeepsLabel3) {
    evensamples(450);
    press(st, "Command16");
    press(st, "Form29.Command12");
    EXPECT_EQ(st.curves.speedmargin, 32);
    EXPECT_EQ(canvases["Form9.Picture1"].scalewidth, 432);
    EXPECT_EQ(lines("Form9.Picture1").size(), 5u + 2 * 400);
    EXPECT_EQ(st.curves.speedfrom, "0012公里000");
    EXPECT_EQ(st.curves.speedto, "0012公里399");
    scroll(st, "Form9.HScrolljd", 400);
    const auto l = lines("Form9.Picture1");
    ASSERT_EQ(l.size(), 5u + 2 * 50);
    // 2 km/h is 100 units above the base line; the first pair starts at the half margin.
    expectline(l[5], 16, 160, 17, 160);
    EXPECT_EQ(st.curves.speedfrom, "0012公里400");
    EXPECT_EQ(st.curves.speedto, "0012公里399");
}

TEST_F(CurveTest, TheSpeedLinesStandAtTheirValues) {
    evensamples(60);
    press(st, "Command16");
    press(st, "Form29.Command12");
    const auto l = lines("Form9.Picture1");
    const double at[] = {260, 210, 170, 160, 135};
    for (std::size_t i = 0; i < 5; ++i) EXPECT_DOUBLE_EQ(l[i].y1, at[i]);
}

TEST_F(CurveTest, HandMarksAndNamedAttributeMarksArePlottedBut100And137Not) {
    evensamples(60);
    marks({{205, "3"}, {305, "100"}, {405, "137"}, {505, "105"}});
    press(st, "Command16");
    press(st, "Form29.Command12");
    std::vector<DrawOp> points, texts;
    for (const DrawOp& op : ops("Form9.Picture1")) {
        if (op.kind == DrawOp::Kind::pset) points.push_back(op);
        if (op.kind == DrawOp::Kind::print) texts.push_back(op);
    }
    ASSERT_EQ(points.size(), 2u);
    // Sample 10 holds 205: x = 10 + 16, speed 2 km/h at 160.
    EXPECT_DOUBLE_EQ(points[0].x1, 26);
    EXPECT_DOUBLE_EQ(points[0].y1, 160);
    EXPECT_EQ(points[0].width, 4);
    EXPECT_EQ(points[0].color, st.curves.markcolor[3]);
    EXPECT_DOUBLE_EQ(points[1].x1, 56);
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_EQ(texts[0].text, st.settings.biaojikcpair[5][1]);
}

TEST_F(CurveTest, TheReplayLogListsEachSession) {
    EXPECT_EQ(replaylogrow("0005DC20261121140000152530"),
              (std::vector<std::string>{"20261121140000152530", "14:00:00", "15:25:30", "1时25分"}));
    st.analystlist[0] = "0005DC20261121080000081500";
    st.analystcount = 1;
    press(st, "Lyycs");
    EXPECT_TRUE(st.curves.Form4open);
    ASSERT_EQ(st.curves.replaylog.size(), 2u);
    EXPECT_EQ(st.curves.replaylog[0][3], "分析时长");
    EXPECT_EQ(st.curves.replaylog[1][3], "0时15分");
}

TEST_F(CurveTest, EnglishLeavesOnlyTheCurveOfOneChannel) {
    st.language = "english";
    press(st, "Command16");
    for (const char* name : {"Form29.Command3", "Form29.Command8", "Form29.Command12"})
        EXPECT_FALSE(st.controls.find(name)->isvisible(st)) << name;
    EXPECT_TRUE(st.controls.find("Form29.Command1")->isvisible(st));
}

TEST_F(CurveTest, ARunWithoutParameterRecordsOrSamplesDrawsNothingAndDoesNotFail) {
    params({});
    z().samplecount = 0;
    press(st, "Command16");
    EXPECT_TRUE(lines("Form29.Picture1").empty());
    press(st, "Form29.Command12");
    EXPECT_EQ(ui.messages.back(), "速度点数少于50个，不足以生成曲线");
}

} // namespace
} // namespace orvane

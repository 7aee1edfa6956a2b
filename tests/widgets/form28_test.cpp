// The main window on the offscreen platform, its controls found by name.
#include "app/dialogwindow.h"
#include "app/form28window.h"
#include "app/startup.h"
#include "stationfixture.h"

#include "generator.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>

using namespace orvane;

namespace {

// The window tests answer message boxes through the scripted Ui, so that nothing waits for a click.
class Form28 : public testkit::StationTest {
  protected:
    void SetUp() override { start(); }
};

TEST_F(Form28, OpensOnAFileWithItsNamedControls) {
    std::string path = writefile("run.ktr", std::string(1024, '\0'));
    windowload(st, path);
    DialogUi dialogs;
    Form28Window window(st, dialogs);
    st.ui = &ui; // message boxes are collected, not shown
    EXPECT_EQ(window.objectName(), "Form28");
    EXPECT_NE(window.findChild<QWidget*>("Picture1"), nullptr);
    EXPECT_NE(window.findChild<QProgressBar*>("pb1"), nullptr);
    EXPECT_NE(window.findChild<QLabel*>("lts1"), nullptr);

    window.activate();
    EXPECT_EQ(window.windowTitle().toStdString(), "KRM-5T/11型 2017-11-16-v1.0版");
    EXPECT_EQ(ui.messages, std::vector<std::string>{"没有数据！"});
    EXPECT_FALSE(window.findChild<QProgressBar*>("pb1")->isVisibleTo(&window));
    EXPECT_FALSE(window.findChild<QLabel*>("lts1")->isVisibleTo(&window));
}

TEST_F(Form28, ShowingTheWindowRunsFirstActivationOnce) {
    windowload(st, writefile("run.ktr", ""));
    DialogUi dialogs;
    Form28Window window(st, dialogs);
    st.ui = &ui;
    QSignalSpy spy(&window, &Form28Window::activated);
    window.show();
    ASSERT_TRUE(spy.wait(5000));
    window.hide();
    window.show();
    QApplication::processEvents();
    EXPECT_EQ(spy.count(), 1);
    EXPECT_EQ(ui.messages.size(), 1u);
}

TEST_F(Form28, ASecondInstanceAnsweredNoClosesAtActivation) {
    st.countinstances = [] { return 2; };
    ui.answers = {"no"};
    windowload(st, writefile("run.ktr", ""));
    DialogUi dialogs;
    Form28Window window(st, dialogs);
    st.ui = &ui;
    window.show();
    window.activate();
    EXPECT_TRUE(st.process.ended);
    EXPECT_FALSE(window.isVisible());
}

} // namespace

namespace {

// The window on a small synthetic recording, loaded and shown.
class Form28Replay : public testkit::StationTest {
  protected:
    void SetUp() override {
        start();
        const ktrgen::Recording rec = ktrgen::generate(ktrgen::preset("small"), 2);
        std::string bytes(rec.bytes.begin(), rec.bytes.end());
        windowload(st, writefile("small.ktr", bytes));
        window = std::make_unique<Form28Window>(st, dialogs);
        st.ui = &ui;
        window->activate();
        ASSERT_TRUE(ui.messages.empty());
    }
    void TearDown() override { window.reset(); }
    template <class T> T* control(const char* name) { return window->findChild<T*>(name); }

    DialogUi dialogs;
    std::unique_ptr<Form28Window> window;
};

TEST_F(Form28Replay, PlayStartsTheTimerWhoseTicksMoveTheView) {
    auto* play = control<QPushButton>("Command8");
    ASSERT_NE(play, nullptr);
    EXPECT_EQ(play->text().toStdString(), "连续播放");
    play->click();
    EXPECT_EQ(play->text().toStdString(), "播放暂停");
    auto* timer = control<QTimer>("T1");
    ASSERT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 15); // speed 5 of the seeded settings
    QTRY_VERIFY_WITH_TIMEOUT(st.zhu.viewindex > 600, 2000);
    play->click();
    EXPECT_FALSE(timer->isActive());
}

TEST_F(Form28Replay, StepKeysAndTheBarMoveTheView) {
    control<QPushButton>("Command34")->click();
    EXPECT_EQ(st.zhu.viewindex, 600 + 500);
    control<QPushButton>("Command27")->click();
    EXPECT_EQ(st.zhu.viewindex, 600);
    auto* bar = control<QScrollBar>("HScrolljd");
    EXPECT_EQ(bar->maximum(), st.zhu.scrollmax);
    bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(st.zhu.viewindex, bar->value() * 300);
}

TEST_F(Form28Replay, CheckBoxHidesItsChannelAndPanelsShowTheRecords) {
    auto* g = control<QCheckBox>("Check7");
    ASSERT_TRUE(g->isChecked());
    g->click();
    EXPECT_FALSE(st.form.channelshown[6]);
    auto* grid2 = control<QTableWidget>("Grid2");
    EXPECT_EQ(grid2->item(0, 1)->text().toStdString(), "执机人");
    EXPECT_EQ(grid2->item(1, 1)->text().toStdString(), "张伟");
    EXPECT_EQ(control<QLabel>("Lzygk")->text().toStdString(), "日期:26.11.22  机号:51207");
}

TEST_F(Form28Replay, EnterInTheKilometreBoxSeeks) {
    auto* text1 = control<QLineEdit>("Text1");
    text1->setText("12.35");
    QTest::keyClick(text1, Qt::Key_Return);
    ASSERT_GE(st.seekcount, 1);
    EXPECT_EQ(st.zhu.viewindex, st.seekhits[0]);
}

TEST_F(Form28Replay, AnOptionWritesItsSettingAndRedraws) {
    auto* clip = control<QRadioButton>("Option16");
    ASSERT_NE(clip, nullptr);
    EXPECT_TRUE(control<QRadioButton>("Option17")->isChecked()); // the seeded whole-file replay
    const int frames = st.framecount;
    clip->click();
    EXPECT_EQ(st.settings.wholefile, 0);
    EXPECT_EQ(st.colordb->scalar("select fpy from color where weizhi='shoudbjz'").number(), 0);
    EXPECT_GT(st.framecount, frames);
    EXPECT_TRUE(clip->isChecked());
    EXPECT_FALSE(control<QRadioButton>("Option17")->isChecked());
    control<QRadioButton>("Option11")->click();
    EXPECT_TRUE(st.form.auxlines);
    control<QScrollBar>("HScroll7")->setValue(3);
    EXPECT_EQ(st.settings.diandx, 3);
    EXPECT_EQ(st.colordb->scalar("select shuzhi from color where weizhi='diandx'").number(), 3);
}

TEST_F(Form28, ButtonsBeforeARecordingHasLoadedDoNothing) {
    windowload(st, writefile("run.ktr", ""));
    DialogUi dialogs;
    Form28Window window(st, dialogs);
    st.ui = &ui;
    window.activate(); // "没有数据！"
    for (const char* name : {"Command8", "Command34", "Command27", "Command25"})
        window.findChild<QPushButton*>(name)->click();
    window.findChild<QRadioButton*>("Option17")->click();
    EXPECT_FALSE(st.T1);
    EXPECT_EQ(st.zhu.viewindex, 600);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"没有数据！"});
}

} // namespace

int main(int argc, char** argv) {
    // Window tests never need a screen; test discovery runs them without the test's environment.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

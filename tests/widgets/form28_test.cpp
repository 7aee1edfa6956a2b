// The main window on the offscreen platform, its controls found by name.
#include "app/dialogwindow.h"
#include "app/form28window.h"
#include "app/startup.h"
#include "stationfixture.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTimer>
#include <gtest/gtest.h>

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

int main(int argc, char** argv) {
    // Window tests never need a screen; test discovery runs them without the test's environment.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

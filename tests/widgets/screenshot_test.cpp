// The window on the demo recording at a joint and at a defect, kept as pictures of the test run
// (folder artifacts of the build) for a person to look at, and checked for the shape of a rail.
#include "app/curveview.h"
#include "app/curvewindow.h"
#include "app/dialogwindow.h"
#include "app/form28window.h"
#include "app/pictureview.h"
#include "app/startup.h"
#include "bmode/formpk2window.h"
#include "render/rastercanvas.h"
#include "replay/bofang.h"
#include "station/station.h"
#include "stationfixture.h"

#include "generator.h"

#include "amode/amode.h"
#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include <QTest>
#include <gtest/gtest.h>

using namespace orvane;

namespace {

class Form28Screenshot : public testkit::StationTest {
  protected:
    void SetUp() override {
        start();
        demo = ktrgen::generate(ktrgen::preset("demo"), 1);
        std::string bytes(demo.bytes.begin(), demo.bytes.end());
        windowload(st, writefile("demo.ktr", bytes));
        window = std::make_unique<Form28Window>(st, dialogs);
        st.ui = &ui;
        window->resize(1366, 768);
        window->show();
        window->activate();
        ASSERT_TRUE(ui.messages.empty());
        picture = window->findChild<PictureView*>("Picture1");
    }
    void TearDown() override { window.reset(); }

    // The view with POSITION in the middle of the picture, saved as NAME.png.
    QImage showat(std::int32_t position, const char* name) {
        gotoposition(st, position - 600); // the view's right edge half a picture before it
        window->refresh();
        QApplication::processEvents();
        const QString folder = ORVANE_ARTIFACTS;
        QDir().mkpath(folder);
        EXPECT_TRUE(window->grab().save(folder + "/" + name + ".png")) << name;
        return picture->grab().toImage();
    }
    // Pixels unlike the background in a band of canvas units.
    int echoes(const QImage& image, double x1, double x2, double y1, double y2) {
        const QPoint a = picture->towidget({x1, y1}).toPoint(), b = picture->towidget({x2, y2}).toPoint();
        const QColor back = image.pixelColor(2, image.height() / 2);
        int n = 0;
        for (int y = std::max(0, a.y()); y < std::min(image.height(), b.y()); ++y)
            for (int x = std::max(0, a.x()); x < std::min(image.width(), b.x()); ++x)
                n += image.pixelColor(x, y) != back;
        return n;
    }

    ktrgen::Recording demo;
    DialogUi dialogs;
    std::unique_ptr<Form28Window> window;
    PictureView* picture = nullptr;
};

TEST_F(Form28Screenshot, DemoAtAJointLooksLikeARail) {
    ASSERT_FALSE(demo.truth.joints.empty());
    const QImage image = showat(demo.truth.joints.front(), "form28-joint");
    const double foot = st.zhu.railfootrow;
    // The running surface over the whole width, the bottom echo at the foot.
    EXPECT_GT(echoes(image, 0, 1100, 17, 20), picture->width() / 4);
    EXPECT_GT(echoes(image, 0, 1100, foot - 6, foot + 6), picture->width() / 4);
    // The bolt holes of the joint in the middle of the picture, inside the rail.
    EXPECT_GT(echoes(image, 450, 750, 40, foot - 10), 20);
}

TEST_F(Form28Screenshot, DemoAtADefectShowsItsEchoes) {
    ASSERT_FALSE(demo.truth.defects.empty());
    const QImage image = showat(demo.truth.defects.front().second, "form28-defect");
    EXPECT_GT(echoes(image, 500, 700, 20, st.zhu.railfootrow - 10), 5);
}

// A click at the joint opens the A-mode beside the picture; a few frames later it is saved.
TEST_F(Form28Screenshot, AModeOpenAtAJoint) {
    const std::int32_t joint = demo.truth.joints.front();
    showat(joint, "form28-joint");
    // The 0 degree probe loses its bottom echo over the bolt holes: click on a hole's echo of channel C.
    const QPoint at = picture->towidget({600 - 50, 200}).toPoint();
    QTest::mouseClick(picture, Qt::LeftButton, {}, at);
    ASSERT_TRUE(st.Picture5visible);
    // The first channel with an echo in the time base at the cursor.
    for (const char* button : {"Command4", "Command5", "Command6", "Command7", "Command9", "Command10"}) {
        window->findChild<QPushButton*>(button)->click();
        drawamodeframe(st, false);
        if (st.echox >= 1 && st.echox < 810) break;
    }
    for (int n = 0; n < 3; ++n) amodetick(st);
    window->refresh();
    QApplication::processEvents();
    EXPECT_TRUE(window->grab().save(QString(ORVANE_ARTIFACTS) + "/form28-amode.png"));
    EXPECT_TRUE(window->findChild<QWidget*>("Picture5")->isVisible());
    EXPECT_TRUE(st.zhu.amodemarker.visible);
}

TEST_F(Form28Screenshot, AlignmentWindowOverTheDemo) {
    showat(demo.truth.joints.front(), "form28-joint");
    window->findChild<QPushButton*>("Command3")->click();
    auto* formpk2 = window->findChild<Formpk2Window*>("Formpk2");
    ASSERT_NE(formpk2, nullptr);
    QApplication::processEvents();
    EXPECT_EQ(formpk2->findChildren<QScrollBar*>().size(), 8u); // channels A to H; I is the reference
    EXPECT_TRUE(formpk2->grab().save(QString(ORVANE_ARTIFACTS) + "/formpk2.png"));
    formpk2->reject();
}

// Last year's run (another demo walk of the same rail) below this year's, both at the first joint.
TEST_F(Form28Screenshot, ComparisonOfTwoRunsBelowOneAnother) {
    const ktrgen::Recording other = ktrgen::generate(ktrgen::preset("demo"), 4);
    ui.answers = {writefile("other.ktr", std::string(other.bytes.begin(), other.bytes.end()))};
    window->resize(1920, 1080);
    gotoposition(st, demo.truth.joints.front() - 600);
    window->findChild<QPushButton*>("Command17")->click();
    ASSERT_TRUE(st.form.comparisonvisible);
    window->refresh();
    QApplication::processEvents();
    EXPECT_TRUE(window->grab().save(QString(ORVANE_ARTIFACTS) + "/form28-comparison.png"));
    auto* lower = window->findChild<PictureView*>("Picture6");
    const QImage image = lower->grab().toImage();
    // The running surface of the comparison across its picture.
    const QColor back = image.pixelColor(2, image.height() / 2);
    const int y = static_cast<int>(lower->towidget({0, 18}).y());
    int surface = 0;
    for (int x = 0; x < image.width(); ++x)
        for (int dy = -2; dy <= 2; ++dy)
            surface += image.pixelColor(x, std::clamp(y + dy, 0, image.height() - 1)) != back;
    EXPECT_GT(surface, image.width() / 4);
}

// Pixels of a widget's picture unlike its corner.
int drawn(QWidget* w) {
    const QImage image = w->grab().toImage();
    const QColor back = image.pixelColor(0, 0);
    int n = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) n += image.pixelColor(x, y) != back;
    return n;
}

// The three curves and the track of the demo, each in its window, opened by their buttons.
TEST_F(Form28Screenshot, TheCurvesAndTheTrack) {
    const QString folder = ORVANE_ARTIFACTS;
    window->findChild<QPushButton*>("Command1")->click();
    window->findChild<QPushButton*>("Command16")->click();
    auto* gain = window->findChild<CurveWindow*>("Form29");
    ASSERT_NE(gain, nullptr);
    gain->findChild<QPushButton*>("Command3")->click();
    QApplication::processEvents();
    EXPECT_GT(drawn(gain->findChild<CurveView*>("Picture1")), 500);
    EXPECT_TRUE(gain->grab().save(folder + "/form29.png"));
    const std::pair<const char*, const char*> doors[] = {{"Command8", "Form8"}, {"Command12", "Form9"}};
    for (const auto& [button, form] : doors) {
        gain->findChild<QPushButton*>(button)->click();
        auto* curve = window->findChild<CurveWindow*>(form);
        ASSERT_NE(curve, nullptr) << form;
        QApplication::processEvents();
        EXPECT_GT(drawn(curve->findChild<CurveView*>("Picture1")), 500) << form;
        EXPECT_TRUE(curve->grab().save(folder + "/" + QString(form).toLower() + ".png"));
        curve->reject();
    }
    gain->reject();
    EXPECT_FALSE(st.curves.Form29open);
    window->findChild<QPushButton*>("Command22")->click();
    auto* track = window->findChild<CurveView*>("picturegj");
    ASSERT_TRUE(track->isVisible());
    QApplication::processEvents();
    EXPECT_GT(drawn(track), 200);
    EXPECT_TRUE(window->grab().save(folder + "/form28-track.png"));
    window->findChild<QPushButton*>("Command28")->click();
    EXPECT_FALSE(track->isVisible());
}

} // namespace

namespace {

// The window at 1366 × 768 at the screen's ratio of pixels (2 on a high-density screen): the picture
// paints at its real pixels, kept as a picture of the test run.
TEST_F(Form28Screenshot, AtTheScreensOwnPixels) {
    window->resize(1366, 768);
    showat(demo.truth.joints.front(), "form28-joint");
    const double ratio = picture->devicePixelRatioF();
    const QImage& painted = static_cast<RasterCanvas*>(st.picture1)->image();
    EXPECT_EQ(painted.width(), qRound(picture->width() * ratio));
    EXPECT_EQ(painted.height(), qRound(picture->height() * ratio));
    const QString name = QString("/form28-1366x768-ratio%1.png").arg(ratio);
    EXPECT_TRUE(window->grab().save(QString(ORVANE_ARTIFACTS) + name));
    // Nothing of the window is cut at this size: the transport's buttons show whole.
    for (const char* button : {"Command26", "Command27", "Command8", "Command34", "Command17"}) {
        auto* b = window->findChild<QPushButton*>(button);
        EXPECT_GE(b->width(), b->minimumSizeHint().width()) << button;
    }
}

} // namespace

// The capture window: the selection, the tools, the history with undo and redo, the clipboard and
// the picture files it writes.
#include "capture/capture.h"
#include "capture/scrncapwindow.h"
#include "station/scriptedui.h"
#include "stationfixture.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

using namespace orvane;

namespace {

// A screen of 400 by 300 pixels: grey, with a red block from (50, 40) to (149, 119).
QImage screen() {
    QImage image(400, 300, QImage::Format_RGB32);
    image.fill(QColor(128, 128, 128));
    for (int y = 40; y < 120; ++y)
        for (int x = 50; x < 150; ++x) image.setPixelColor(x, y, QColor(255, 0, 0));
    return image;
}

void drag(ScrnCap& cap, QPoint from, QPoint to) {
    cap.MDown(from);
    cap.mousemove((from + to) / 2);
    cap.mouseup(to);
}

// The red block selected.
ScrnCap selected() {
    ScrnCap cap(screen());
    drag(cap, {50, 40}, {149, 119});
    return cap;
}

TEST(Capture, OpensInDrawWithTheFirstHistoryElement) {
    ScrnCap cap(screen());
    EXPECT_EQ(cap.mode, "draw");
    EXPECT_EQ(cap.history.size(), 1u);
    EXPECT_EQ(cap.historypos, 0);
    EXPECT_EQ(cap.historytop, 0);
    EXPECT_EQ(std::string(capturetips[0]), "撤销");
    EXPECT_EQ(std::string(capturetips[5]), "添加椎圆");
    EXPECT_EQ(std::string(capturetips[8]), "重做");
}

TEST(Capture, ADragSelectsAndShowsPlaceAndSize) {
    ScrnCap cap = selected();
    EXPECT_EQ(cap.frame, QRect(50, 40, 100, 80));
    EXPECT_EQ(cap.Picture2.size(), QSize(100, 80));
    EXPECT_EQ(cap.Picture2.pixelColor(5, 5), QColor(255, 0, 0));
    EXPECT_EQ(cap.LblPos().toStdString(), "位置：50,40");
    EXPECT_EQ(cap.lblInfo().toStdString(), "大小：100×80");
    EXPECT_TRUE(cap.LblPosvisible && cap.lblInfovisible && cap.Picture2visible);
    EXPECT_EQ(cap.history.size(), 2u);
    EXPECT_EQ(cap.historypos, 1);
}

TEST(Capture, UndoToTheFirstElementDropsTheSelection) {
    ScrnCap cap = selected();
    cap.Image2(0);
    EXPECT_EQ(cap.historypos, 0);
    EXPECT_EQ(cap.mode, "draw");
    EXPECT_TRUE(cap.frame.isEmpty());
    EXPECT_FALSE(cap.Picture1visible);
    EXPECT_FALSE(cap.Picture2visible);
    EXPECT_FALSE(cap.LblPosvisible);
    EXPECT_FALSE(cap.lblInfovisible);
    cap.Image2(0); // below the first element it stays there
    EXPECT_EQ(cap.historypos, 0);
    EXPECT_TRUE(cap.CutdSave().isNull());
    // Redo brings the selection back.
    cap.Image2(8);
    EXPECT_EQ(cap.historypos, 1);
    EXPECT_EQ(cap.frame, QRect(50, 40, 100, 80));
    EXPECT_EQ(cap.mode, "move");
}

TEST(Capture, RedoAboveTheTopDoesNothing) {
    ScrnCap cap = selected();
    cap.Image2(4);
    drag(cap, {60, 50}, {100, 90});
    ASSERT_EQ(cap.historytop, 2);
    const QImage drawn = cap.Picture2;
    cap.Image2(8);
    EXPECT_EQ(cap.historypos, 2);
    EXPECT_EQ(cap.Picture2, drawn);
    cap.Image2(0);
    EXPECT_EQ(cap.historypos, 1);
    EXPECT_EQ(cap.Picture2.pixelColor(10, 10), QColor(255, 0, 0)); // the rectangle is gone
    cap.Image2(8);
    EXPECT_EQ(cap.Picture2, drawn);
}

TEST(Capture, EveryFinishedActionAddsOneElement) {
    ScrnCap cap = selected();
    for (int t : {4, 5, 7}) {
        const std::size_t before = cap.history.size();
        cap.Image2(t);
        drag(cap, {60, 50}, {120, 100});
        EXPECT_EQ(cap.history.size(), before + 1) << t;
    }
    cap.Image2(7);
    EXPECT_EQ(cap.tool, CaptureTool::none); // the same tool again puts it down
    cap.Image2(6);
    cap.MDown({70, 60});
    cap.mouseup({70, 60});
    ASSERT_TRUE(cap.textat.has_value());
    cap.puttext("核伤");
    EXPECT_EQ(cap.history.size(), 6u);
    // An empty text, and a tool's click without a drag, add nothing.
    cap.MDown({70, 60});
    cap.puttext("");
    cap.Image2(4);
    drag(cap, {70, 60}, {70, 60});
    EXPECT_EQ(cap.history.size(), 6u);
    // After an undo a new action drops what could have been redone.
    cap.Image2(0);
    cap.Image2(0);
    drag(cap, {60, 50}, {90, 70});
    EXPECT_EQ(cap.historypos, 4);
    EXPECT_EQ(cap.historytop, 4);
    EXPECT_EQ(cap.history.size(), 5u);
}

TEST(Capture, ASelectionOfNoSizeIsNone) {
    ScrnCap cap(screen());
    drag(cap, {30, 30}, {30, 30});
    EXPECT_TRUE(cap.frame.isEmpty());
    EXPECT_EQ(cap.mode, "draw");
    EXPECT_EQ(cap.history.size(), 1u);
    EXPECT_EQ(savecapture(cap.CutdSave(), "/tmp/orvane-no-selection.png"), "没有选区可保存");
    EXPECT_FALSE(QFile::exists("/tmp/orvane-no-selection.png"));
}

TEST(Capture, TheFrameMovesButNeverLeavesTheScreen) {
    ScrnCap cap = selected();
    cap.MDown({60, 60});
    EXPECT_EQ(cap.mode, "Start");
    cap.mousemove({5000, -300});
    EXPECT_EQ(cap.mode, "move");
    cap.mouseup({5000, -300});
    EXPECT_EQ(cap.frame, QRect(300, 0, 100, 80));
    EXPECT_EQ(cap.Picture2.pixelColor(5, 5), QColor(128, 128, 128)); // cut anew where it stands
    EXPECT_EQ(cap.history.size(), 3u);
    // A selection dragged past the edge ends at the edge.
    ScrnCap wide(screen());
    drag(wide, {350, 250}, {900, 900});
    EXPECT_EQ(wide.frame, QRect(350, 250, 50, 50));
}

class CaptureFiles : public testkit::StationTest {};

TEST_F(CaptureFiles, EachFormatReadsBackWithItsSizeAndColour) {
    const ScrnCap cap = selected();
    for (const char* name : {"a.bmp", "a.png", "a.jpg", "a.gif", "a.tiff", "B.PNG"}) {
        const std::string path = temp.file(name);
        ASSERT_EQ(savecapture(cap.CutdSave(), path), std::nullopt) << name;
        QImageReader reader(QString::fromStdString(path));
        const QByteArray format = reader.format();
        const QImage back = reader.read();
        ASSERT_FALSE(back.isNull()) << name;
        EXPECT_EQ(back.size(), QSize(100, 80)) << name;
        const QColor c = back.pixelColor(20, 20);
        const int tolerance = std::string(name) == "a.jpg" ? 8 : 0;
        EXPECT_NEAR(c.red(), 255, tolerance) << name;
        EXPECT_NEAR(c.green(), 0, tolerance) << name;
        EXPECT_NEAR(c.blue(), 0, tolerance) << name;
        const std::string ext = QString::fromUtf8(name).section('.', 1).toLower().toStdString();
        EXPECT_EQ(format.toStdString(), ext == "jpg" ? "jpeg" : ext) << name;
    }
}

TEST_F(CaptureFiles, AnyOtherExtensionWritesABitmap) {
    const ScrnCap cap = selected();
    for (const char* name : {"a.jpeg", "a.tif", "a.webp", "noextension"}) {
        const std::string path = temp.file(name);
        ASSERT_EQ(savecapture(cap.CutdSave(), path), std::nullopt) << name;
        QFile f(QString::fromStdString(path));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        EXPECT_EQ(f.read(2), QByteArray("BM")) << name;
    }
}

TEST_F(CaptureFiles, AnUnwritablePlaceGivesItsReason) {
    const ScrnCap cap = selected();
    const std::string path = temp.file("no/such/folder/a.png");
    const auto failed = savecapture(cap.CutdSave(), path);
    ASSERT_TRUE(failed.has_value());
    EXPECT_NE(failed->find("No such file or directory"), std::string::npos) << *failed;
    EXPECT_FALSE(QFile::exists(QString::fromStdString(path)));
}

class CaptureWindow : public testkit::StationTest {
  protected:
    ScrnCapForm form{screen(), QRect(0, 0, 400, 300), ui};
    void SetUp() override {
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    }
    void select() {
        QTest::mousePress(&form, Qt::LeftButton, {}, QPoint(50, 40));
        QTest::mouseMove(&form, QPoint(100, 80));
        QTest::mouseRelease(&form, Qt::LeftButton, {}, QPoint(149, 119));
    }
};

TEST_F(CaptureWindow, ShowsTheToolsWithTheirTipsOnceASelectionStands) {
    auto* undo = form.findChild<QToolButton*>("Image2(0)");
    ASSERT_NE(undo, nullptr);
    EXPECT_FALSE(undo->isVisibleTo(&form));
    select();
    EXPECT_EQ(form.state().frame, QRect(50, 40, 100, 80));
    EXPECT_TRUE(undo->isVisibleTo(&form));
    for (int i = 0; i < 9; ++i)
        EXPECT_EQ(form.findChild<QToolButton*>(QString("Image2(%1)").arg(i))->toolTip().toStdString(),
                  capturetips[static_cast<std::size_t>(i)]);
    EXPECT_EQ(form.findChild<QLabel*>("lblInfo")->text().toStdString(), "大小：100×80");
    EXPECT_EQ(form.findChildren<QToolButton*>(QRegularExpression("^Pcolor")).size(), 16);
}

TEST_F(CaptureWindow, ADoubleClickInsideCopiesTheSelectionAndCloses) {
    select();
    QTest::mouseDClick(&form, Qt::LeftButton, {}, QPoint(80, 60));
    EXPECT_EQ(form.result(), QDialog::Accepted);
    const QImage copied = QApplication::clipboard()->image();
    EXPECT_EQ(copied.size(), QSize(100, 80));
    EXPECT_EQ(copied.pixelColor(10, 10), QColor(255, 0, 0));
}

TEST_F(CaptureWindow, EscapeCloses) {
    select();
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_EQ(form.result(), QDialog::Rejected);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(CaptureWindow, SaveCopiesAsksAndWrites) {
    form.tool(2);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"请先拖出要保存的区域"});
    select();
    ui.answers.push_back(temp.file("shot.png"));
    form.tool(2);
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(QImage(QString::fromStdString(temp.file("shot.png"))).size(), QSize(100, 80));
    EXPECT_EQ(QApplication::clipboard()->image().size(), QSize(100, 80));
}

TEST_F(CaptureWindow, AnArrowAndATypedTextGoIntoTheSelection) {
    select();
    form.findChild<QToolButton*>("Pcolor(11)")->click(); // cyan
    form.tool(7);
    QTest::mousePress(&form, Qt::LeftButton, {}, QPoint(60, 100));
    QTest::mouseMove(&form, QPoint(90, 70));
    QTest::mouseRelease(&form, Qt::LeftButton, {}, QPoint(120, 50));
    EXPECT_EQ(form.state().history.size(), 3u);
    form.tool(6);
    QTest::mousePress(&form, Qt::LeftButton, {}, QPoint(60, 45));
    QTest::mouseRelease(&form, Qt::LeftButton, {}, QPoint(60, 45));
    auto* text = form.findChild<QLineEdit*>("TextEdit");
    ASSERT_TRUE(text->isVisibleTo(&form));
    QTest::keyClicks(text, "crack");
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(form.state().history.size(), 4u);
    EXPECT_FALSE(text->isVisibleTo(&form));
    const QString shot = QString::fromUtf8(ORVANE_ARTIFACTS) + "/capture.png";
    form.grab().save(shot);
}

} // namespace

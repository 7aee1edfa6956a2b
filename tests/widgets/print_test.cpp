// The notice on paper: the PDF's pictures at their boxes, and the program's print preview.
#include "../processing/recordingfixture.h"
#include "amode/amode.h"
#include "app/printwindow.h"
#include "render/pagepainter.h"
#include "reports/notice.h"

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QPrintPreviewDialog>
#include <QPrinterInfo>
#include <QTimer>
#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>

using namespace orvane;

namespace {

class PrintedNotice : public testkit::RecordingTest {
  protected:
    RecordingCanvas picture3;
    void SetUp() override {
        RecordingTest::SetUp();
        st.picture3 = &picture3;
        st.amodechannel = " ";
        st.pointerx = 600;
        st.clicky = 200;
        openamode(st);
    }
};

TEST_F(PrintedNotice, ThePicturesStandAtTheirBoxesOnThePaper) {
    const PrintedPage page = noticepage(st);
    const std::string pdf = temp.file("notice.pdf");
    ASSERT_EQ(writepdf(page, pdf), std::nullopt);
    ASSERT_EQ(
        std::system(
            ("pdftoppm -r 200 -gray -png -singlefile '" + pdf + "' '" + temp.file("notice") + "'").c_str()),
        0);
    const QImage image(QString::fromStdString(temp.file("notice.png")));
    ASSERT_FALSE(image.isNull());
    // The paper: A4 across, less margins of 10 mm; the page fitted into it and centred across.
    const double mmx = image.width() / 297.0, mmy = image.height() / 210.0;
    const QRectF paper(10 * mmx, 10 * mmy, 277 * mmx, 190 * mmy);
    const QRectF extent = pageextent(page);
    const double fit = std::min(paper.width() / extent.width(), paper.height() / extent.height());
    const double ox = paper.x() + (paper.width() - extent.width() * fit) / 2, oy = paper.y();
    auto grey = [&](double x, double y) {
        // The darkest pixel around the place of (x, y) in twips: a frame line is thin.
        const int px = static_cast<int>(std::lround(ox + x * fit)),
                  py = static_cast<int>(std::lround(oy + y * fit));
        int darkest = 255;
        for (int dy = -1; dy <= 1; ++dy)
            for (int dx = -1; dx <= 1; ++dx)
                darkest = std::min(darkest, qGray(image.pixel(px + dx, py + dy)));
        return darkest;
    };
    for (double x : {1500.0, 5000.0, 9000.0, 15000.0}) {
        EXPECT_LT(grey(x, 1810), 100) << "top of the B-mode at " << x;
        EXPECT_LT(grey(x, 6710), 100) << "foot of the B-mode at " << x;
        if (x > 3000)
            EXPECT_GT(grey(x, 1810 - 120), 200) << "paper above the B-mode at " << x; // right of its heading
    }
    for (double y : {2000.0, 4000.0, 6500.0}) {
        EXPECT_LT(grey(1300, y), 100);
        EXPECT_LT(grey(15300, y), 100);
    }
    for (double y : {7400.0, 9500.0, 11600.0}) {
        EXPECT_LT(grey(9900, y), 100) << "left of the A-mode at " << y;
        EXPECT_LT(grey(16410, y), 100) << "right of the A-mode at " << y;
        EXPECT_GT(grey(9800, y), 200) << "paper between the tables and the A-mode at " << y;
    }
    // Inside the boxes: the pictures on their black background.
    EXPECT_LT(grey(8000, 3000), 60);
    EXPECT_LT(grey(13000, 9500), 60);
}

TEST_F(PrintedNotice, AnUnwritablePathLeavesNothingAndSaysWhy) {
    const std::string pdf = temp.file("no/such/folder/notice.pdf");
    EXPECT_EQ(writepdf(noticepage(st), pdf), "无法写入文件：" + pdf);
    EXPECT_FALSE(std::filesystem::exists(pdf));
}

TEST(PreviewPrinter, SavesThePdfBesidePrintingAndSaysWhenNoPrinterIsInstalled) {
    testkit::TempFolder temp;
    ScriptedUi ui;
    const std::string pdf = temp.file("saved.pdf");
    ui.answers = {pdf};
    PreviewPrinter printer(ui, nullptr, false);
    PrintedPage page;
    PageOp title;
    title.text = "报警点复核通知单";
    title.font = "Arial";
    title.size = 24;
    title.x = 6500;
    title.y = 400;
    page.ops.push_back(title);
    bool seen = false;
    QTimer::singleShot(0, [&] {
        for (QWidget* w : QApplication::topLevelWidgets()) {
            auto* dialog = qobject_cast<QPrintPreviewDialog*>(w);
            if (!dialog || dialog->objectName() != "Form25") continue;
            seen = true;
            auto* save = dialog->findChild<QAction*>("savepdf");
            EXPECT_NE(save, nullptr);
            if (save) save->trigger();
            auto* print = dialog->findChild<QAction*>("print");
            EXPECT_NE(print, nullptr);
            if (print && QPrinterInfo::availablePrinterNames().isEmpty()) {
                print->trigger();
                EXPECT_EQ(ui.messages, std::vector<std::string>{noprintermessage});
            }
            dialog->reject();
        }
    });
    EXPECT_TRUE(printer.print(page)); // closed when it returns
    EXPECT_TRUE(seen);
    EXPECT_GT(std::filesystem::file_size(pdf), 1000u);
}

} // namespace

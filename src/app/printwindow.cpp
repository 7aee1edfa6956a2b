#include "app/printwindow.h"

#include "capture/scrncapwindow.h"
#include "station/station.h"

#include "render/pagepainter.h"

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QGuiApplication>
#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPrinterInfo>
#include <QScreen>
#include <QThread>
#include <QToolBar>

namespace orvane {

bool PreviewPrinter::print(const PrintedPage& page) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintPreviewDialog dialog(&printer, parent_);
    dialog.setObjectName("Form25");
    dialog.setWindowTitle(english_ ? "Print preview" : "打印预览");
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&page](QPrinter* target) {
        QPainter painter(target);
        paintpage(page, painter, QRectF(QPointF(0, 0), target->pageRect(QPrinter::DevicePixel).size()));
    });
    auto* bar = dialog.findChild<QToolBar*>();
    if (bar) {
        // The notice also goes out as a PDF file, printer or not.
        QAction* pdf = bar->addAction(english_ ? "Save as PDF…" : "另存为PDF…");
        pdf->setObjectName("savepdf");
        QObject::connect(pdf, &QAction::triggered, &dialog, [this, &page] {
            const auto path = ui_.savefile("PDF文件(*.pdf)|*.pdf", "pdf");
            if (!path || path->empty()) return;
            if (const auto failed = writepdf(page, *path)) ui_.message(*failed);
        });
        for (QAction* action : bar->actions()) {
            if (english_ && action->text() == QPrintPreviewDialog::tr("Previous page"))
                action->setText("Previous");
            if (action->text() != QPrintPreviewDialog::tr("Print")) continue;
            action->setObjectName("print");
            // Without a printer the preview's own print would only offer a file of its own making.
            if (!QPrinterInfo::availablePrinterNames().isEmpty()) continue;
            QObject::disconnect(action, nullptr, &dialog, nullptr);
            QObject::connect(action, &QAction::triggered, &dialog, [this] { ui_.message(noprintermessage); });
        }
    }
    dialog.exec();
    return true;
}

namespace {

std::string bmpbytes(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (image.isNull() || !image.save(&buffer, "BMP")) return {};
    return bytes.toStdString();
}

} // namespace

std::string WindowScreen::windowbitmap() {
    return window_ ? bmpbytes(window_->grab().toImage()) : std::string();
}

std::string WindowScreen::wholescreen() {
    QScreen* screen = QGuiApplication::primaryScreen();
    if (screen) {
        const QRect desktop = screen->virtualGeometry();
        const QImage image =
            screen->grabWindow(0, desktop.x(), desktop.y(), desktop.width(), desktop.height()).toImage();
        if (!image.isNull()) return bmpbytes(image);
    }
    return windowbitmap();
}

void opencapture(Station& st, QWidget* window) {
    // The menu that called the capture is gone from the screen before it is frozen.
    if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    QApplication::processEvents();
    QThread::msleep(50);
    QApplication::processEvents();
    QImage snapshot;
    if (st.screen) {
        const std::string bytes = st.screen->wholescreen();
        snapshot.loadFromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size()));
    }
    if (snapshot.isNull()) return st.ui->message("无法截取屏幕图像");
    // Over the whole desktop when the snapshot is of it, else over the station's window.
    QScreen* screen = QGuiApplication::primaryScreen();
    QRect area = screen ? screen->virtualGeometry() : QRect();
    const double ratio = screen ? screen->devicePixelRatio() : 1.0;
    if (area.isEmpty() || snapshot.size() != (area.size() * ratio))
        area = QRect(window->mapToGlobal(QPoint(0, 0)), window->size());
    ScrnCapForm form(snapshot, area, *st.ui, window);
    form.exec();
}

} // namespace orvane

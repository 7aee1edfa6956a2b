#include "app/printwindow.h"

#include "render/pagepainter.h"

#include <QAction>
#include <QBuffer>
#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPrinterInfo>
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

std::string WindowScreen::windowbitmap() {
    if (!window_) return {};
    const QImage image = window_->grab().toImage();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (image.isNull() || !image.save(&buffer, "BMP")) return {};
    return bytes.toStdString();
}

} // namespace orvane

#include "render/pagepainter.h"

#include "processing/safefile.h"
#include "render/rastercanvas.h"

#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <cmath>
#include <tuple>

namespace orvane {

namespace {

// The page's fonts: the family the page names, its metric twin where that one isn't installed, and a
// Chinese one for the characters they lack, so that no character prints as a box.
QFont pagefont(const std::string& family, bool bold) {
    QFont font;
    QStringList families{QString::fromStdString(family)};
    if (family == "Arial") families << QStringLiteral("Liberation Sans");
    families << QStringLiteral("WenQuanYi Micro Hei");
    font.setFamilies(families);
    font.setBold(bold);
    return font;
}

// A canvas of PIXELWIDTH by PIXELHEIGHT pixels drawn through a painter whose units are those pixels:
// the same picture as the window's canvas, but as lines, squares and glyphs at the device's
// resolution.
class PainterCanvas : public Canvas {
  public:
    PainterCanvas(QPainter& painter, const RecordingCanvas& source, double width, double height)
        : painter_(painter), source_(source), width_(width), height_(height) {}

    void clear() override {
        painter_.fillRect(QRectF(0, 0, width_, height_), qcolorof(source_.backgroundcolor));
        // The background's operations leave the pen and the scale of the picture as they were.
        const auto keep = std::tuple{forecolor, drawwidth, drawstyle,  fontsize, fontbold,
                                     currentx,  currenty,  scalewidth, scaletop, scaleheight};
        replayops(source_.background, *this);
        std::tie(forecolor, drawwidth, drawstyle, fontsize, fontbold, currentx, currenty, scalewidth,
                 scaletop, scaleheight) = keep;
    }
    void pset(double x, double y) override {
        const QPointF p = topixel(x, y);
        const int size = std::max(1, drawwidth);
        painter_.fillRect(
            QRectF(std::floor(p.x()) - (size - 1) / 2, std::floor(p.y()) - (size - 1) / 2, size, size),
            qcolorof(forecolor));
        currentx = x;
        currenty = y;
    }
    void line(double x1, double y1, double x2, double y2) override {
        static const Qt::PenStyle styles[] = {Qt::SolidLine,   Qt::DashLine,       Qt::DotLine,
                                              Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen};
        QPen pen(qcolorof(forecolor), std::max(1, drawwidth));
        pen.setStyle(drawstyle >= 0 && drawstyle < 6 ? styles[drawstyle] : Qt::SolidLine);
        pen.setCapStyle(Qt::SquareCap);
        painter_.setPen(pen);
        painter_.drawLine(topixel(x1, y1), topixel(x2, y2));
        currentx = x2;
        currenty = y2;
    }
    void print(const std::string& text) override {
        // The window's canvas writes its points at 96 pixels an inch; tenths of a pixel keep the size.
        QFont font(QStringLiteral("WenQuanYi Micro Hei"));
        font.setPixelSize(
            std::max(1, static_cast<int>(std::lround((fontsize > 0 ? fontsize : 9) * 96 / 72 * 10))));
        font.setBold(fontbold);
        painter_.save();
        painter_.translate(topixel(currentx, currenty));
        painter_.scale(0.1, 0.1);
        painter_.setFont(font);
        painter_.setPen(qcolorof(forecolor));
        painter_.drawText(QRectF(0, 0, width_ * 10, height_ * 10), Qt::AlignLeft | Qt::AlignTop,
                          QString::fromStdString(text));
        painter_.restore();
        currenty += fontsize * 1.5 * scaleheight / height_;
    }
    void beginbackground(std::uint32_t) override {}
    void storebackground() override {}

  private:
    QPointF topixel(double x, double y) const {
        const double w = scalewidth != 0 ? scalewidth : 1, h = scaleheight != 0 ? scaleheight : 1;
        return {x * width_ / w, (y - scaletop) * height_ / h};
    }
    QPainter& painter_;
    const RecordingCanvas& source_;
    double width_, height_;
};

void painttext(QPainter& painter, const PageOp& op) {
    QFont font = pagefont(op.font, op.bold);
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(op.size * 20)))); // a point is 20 twips
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QRectF(op.x, op.y, 100000, op.size * 40),
                     Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip, QString::fromStdString(op.text));
}

void paintpicture(QPainter& painter, const PageOp& op) {
    if (op.pixelwidth <= 0 || op.pixelheight <= 0 || op.width <= 0 || op.height <= 0) return;
    painter.save();
    painter.setClipRect(QRectF(op.x, op.y, op.width, op.height), Qt::IntersectClip);
    painter.translate(op.x, op.y);
    painter.scale(op.width / op.pixelwidth, op.height / op.pixelheight);
    PainterCanvas canvas(painter, op.picture, op.pixelwidth, op.pixelheight);
    canvas.scale(op.picture.scalewidth, op.picture.scaletop, op.picture.scaleheight);
    canvas.clear();
    replayops(op.picture.ops, canvas);
    painter.restore();
}

void painttable(QPainter& painter, const PageOp& op) {
    QFont font = pagefont(op.font, op.bold);
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(op.size * 20))));
    painter.setFont(font);
    painter.setPen(QPen(Qt::black, 10));
    double y = op.y;
    for (const auto& row : op.rows) {
        double x = op.x;
        for (std::size_t c = 0; c < op.widths.size(); ++c) {
            const QRectF cell(x, y, op.widths[c], op.rowheight);
            painter.drawRect(cell);
            if (c < row.size())
                painter.drawText(cell.adjusted(40, 0, -20, 0), Qt::AlignLeft | Qt::AlignVCenter,
                                 QString::fromStdString(row[c]));
            x += op.widths[c];
        }
        y += op.rowheight;
    }
}

} // namespace

QRectF pageextent(const PrintedPage& page) {
    double right = 0, bottom = 0;
    for (const PageOp& op : page.ops) {
        double r = op.x, b = op.y;
        switch (op.kind) {
        case PageOp::Kind::text:
            r = op.x + op.size * 20 * static_cast<double>(QString::fromStdString(op.text).size());
            b = op.y + op.size * 30;
            break;
        case PageOp::Kind::line:
            r = std::max(op.x, op.x2);
            b = std::max(op.y, op.y2);
            break;
        case PageOp::Kind::picture:
        case PageOp::Kind::table:
            r = op.x + op.width;
            b = op.y + op.height;
            break;
        }
        right = std::max(right, r);
        bottom = std::max(bottom, b);
    }
    constexpr double margin = 400;
    return QRectF(0, 0, right + margin, bottom + margin);
}

void paintpage(const PrintedPage& page, QPainter& painter, const QRectF& paper) {
    const QRectF extent = pageextent(page);
    const double fit = std::min(paper.width() / extent.width(), paper.height() / extent.height());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.translate(paper.x() + (paper.width() - extent.width() * fit) / 2, paper.y());
    painter.scale(fit, fit);
    for (const PageOp& op : page.ops) {
        switch (op.kind) {
        case PageOp::Kind::text:
            painttext(painter, op);
            break;
        case PageOp::Kind::line:
            painter.setPen(QPen(Qt::black, 15));
            painter.drawLine(QPointF(op.x, op.y), QPointF(op.x2, op.y2));
            break;
        case PageOp::Kind::picture:
            paintpicture(painter, op);
            break;
        case PageOp::Kind::table:
            painttable(painter, op);
            break;
        }
    }
    painter.restore();
}

std::optional<std::string> writepdf(const PrintedPage& page, const std::string& path) {
    const std::string partial = partialof(path);
    {
        QPdfWriter writer(QString::fromStdString(partial));
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageOrientation(QPageLayout::Landscape);
        writer.setPageMargins(QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter);
        writer.setCreator(QStringLiteral("orvane"));
        QPainter painter;
        if (!painter.begin(&writer)) {
            QFile::remove(QString::fromStdString(partial));
            return "无法写入文件：" + path;
        }
        paintpage(page, painter, QRectF(0, 0, writer.width(), writer.height()));
        painter.end();
    }
    if (!QFile::exists(QString::fromStdString(partial))) return "无法写入文件：" + path;
    return commitpartial(partial, path);
}

} // namespace orvane

#include "render/rastercanvas.h"

#include <QPainter>

namespace orvane {

QColor qcolorof(std::uint32_t color) {
    return QColor(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF);
}

RasterCanvas::RasterCanvas(int width, int height)
    : image_(std::max(1, width), std::max(1, height), QImage::Format_RGB32),
      background_(image_.size(), QImage::Format_RGB32) {
    background_.fill(Qt::black);
    image_ = background_;
    scale(image_.width(), 0, image_.height());
}

void RasterCanvas::scale(double width, double top, double height) {
    scalewidth_ = width > 0 ? width : 1;
    scaletop_ = top;
    scaleheight_ = height != 0 ? height : 1;
}

void RasterCanvas::setbackgroundcolor(std::uint32_t color) {
    background_ = QImage(image_.size(), QImage::Format_RGB32);
    background_.fill(qcolorof(color));
}

void RasterCanvas::clear() {
    image_ = background_;
}

QPointF RasterCanvas::topixel(double x, double y) const {
    return {x * image_.width() / scalewidth_, (y - scaletop_) * image_.height() / scaleheight_};
}

void RasterCanvas::pset(double x, double y, std::uint32_t color) {
    QPointF p = topixel(x, y);
    int size = std::max(1, drawwidth);
    int left = static_cast<int>(p.x()) - (size - 1) / 2, top = static_cast<int>(p.y()) - (size - 1) / 2;
    QRgb value = qcolorof(color).rgb();
    // Dots go straight into the scanlines: far cheaper than a painter per dot, same pixels.
    for (int row = std::max(0, top); row < std::min(image_.height(), top + size); ++row) {
        auto* line = reinterpret_cast<QRgb*>(image_.scanLine(row));
        for (int col = std::max(0, left); col < std::min(image_.width(), left + size); ++col)
            line[col] = value;
    }
    currentx = x;
    currenty = y;
}

void RasterCanvas::line(double x1, double y1, double x2, double y2, std::uint32_t color) {
    QPainter painter(&image_);
    QPen pen(qcolorof(color));
    pen.setWidth(std::max(1, drawwidth));
    static const Qt::PenStyle styles[] = {Qt::SolidLine,   Qt::DashLine,       Qt::DotLine,
                                          Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen};
    pen.setStyle(drawstyle >= 0 && drawstyle < 6 ? styles[drawstyle] : Qt::SolidLine);
    painter.setPen(pen);
    painter.drawLine(topixel(x1, y1), topixel(x2, y2));
    currentx = x2;
    currenty = y2;
}

void RasterCanvas::print(const std::string& text) {
    QPainter painter(&image_);
    QFont font(QStringLiteral("WenQuanYi Micro Hei"));
    font.setPointSizeF(fontsize > 0 ? fontsize : 9);
    font.setBold(fontbold);
    painter.setFont(font);
    painter.setPen(qcolorof(forecolor));
    QPointF at = topixel(currentx, currenty);
    QString qtext = QString::fromStdString(text);
    painter.drawText(QRectF(at, QSizeF(image_.width(), image_.height())), Qt::AlignLeft | Qt::AlignTop,
                     qtext);
    currenty += fontsize * 1.5 * scaleheight_ / image_.height();
}

} // namespace orvane

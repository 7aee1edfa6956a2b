#include "render/rastercanvas.h"

#include <QPainter>
#include <cmath>
#include <cstring>

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

void RasterCanvas::beginbackground(std::uint32_t color) {
    image_.fill(qcolorof(color));
}

void RasterCanvas::storebackground() {
    background_ = image_.copy();
}

void RasterCanvas::clear() {
    // Same size and format: the copy reuses the image's own memory.
    std::memcpy(image_.bits(), background_.constBits(), static_cast<std::size_t>(image_.sizeInBytes()));
}

QPointF RasterCanvas::topixel(double x, double y) const {
    const double w = scalewidth != 0 ? scalewidth : 1, h = scaleheight != 0 ? scaleheight : 1;
    return {x * image_.width() / w, (y - scaletop) * image_.height() / h};
}

void RasterCanvas::plot(QPointF p, QRgb value) {
    const int size = std::max(1, drawwidth);
    const int left = static_cast<int>(p.x()) - (size - 1) / 2, top = static_cast<int>(p.y()) - (size - 1) / 2;
    for (int row = std::max(0, top); row < std::min(image_.height(), top + size); ++row) {
        auto* line = reinterpret_cast<QRgb*>(image_.scanLine(row));
        for (int col = std::max(0, left); col < std::min(image_.width(), left + size); ++col)
            line[col] = value;
    }
}

void RasterCanvas::pset(double x, double y) {
    // Dots go straight into the scanlines: far cheaper than a painter per dot, same pixels.
    plot(topixel(x, y), qcolorof(forecolor).rgb());
    currentx = x;
    currenty = y;
}

void RasterCanvas::line(double x1, double y1, double x2, double y2) {
    const QPointF a = topixel(x1, y1), b = topixel(x2, y2);
    const double length = std::max(std::fabs(b.x() - a.x()), std::fabs(b.y() - a.y()));
    if (drawstyle == 0 && length < 4096) {
        // A short solid line is a walk of dots along its longer axis: the A-mode draws some 800 short
        // lines a frame, and a painter for each would cost more than the whole frame may.
        const int steps = static_cast<int>(std::ceil(length));
        const QRgb value = qcolorof(forecolor).rgb();
        for (int i = 0; i <= steps; ++i)
            plot(steps ? a + (b - a) * (static_cast<double>(i) / steps) : a, value);
        currentx = x2;
        currenty = y2;
        return;
    }
    QPainter painter(&image_);
    QPen pen(qcolorof(forecolor));
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
    currenty += fontsize * 1.5 * scaleheight / image_.height();
}

QImage renderrecorded(const RecordingCanvas& canvas, int width, int height) {
    RasterCanvas raster(width, height);
    raster.scale(canvas.scalewidth, canvas.scaletop, canvas.scaleheight);
    raster.beginbackground(canvas.backgroundcolor);
    replayops(canvas.background, raster);
    raster.storebackground();
    raster.clear();
    replayops(canvas.ops, raster);
    return raster.image();
}

} // namespace orvane

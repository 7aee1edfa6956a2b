#include "render/rastercanvas.h"

#include <QPainter>
#include <algorithm>
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

RecordingCanvas& RasterCanvas::record() {
    record_.forecolor = forecolor;
    record_.drawwidth = drawwidth;
    record_.drawstyle = drawstyle;
    record_.fontsize = fontsize;
    record_.fontbold = fontbold;
    record_.currentx = currentx;
    record_.currenty = currenty;
    return record_;
}

bool RasterCanvas::recording() const {
    return keep_ && !replaying_;
}

void RasterCanvas::scale(double width, double top, double height) {
    Canvas::scale(width, top, height);
    if (recording()) record().scale(width, top, height);
}

void RasterCanvas::beginbackground(std::uint32_t color) {
    if (recording()) {
        record().beginbackground(color);
        backgroundscale_ = {scalewidth, scaletop, scaleheight};
    }
    image_.fill(qcolorof(color));
    labels_.clear();
}

void RasterCanvas::storebackground() {
    if (recording()) record().storebackground();
    background_ = image_.copy();
    backgroundlabels_ = labels_;
}

void RasterCanvas::resizepixels(int width, int height, double ratio) {
    width = std::max(1, width);
    height = std::max(1, height);
    if (width == image_.width() && height == image_.height() && ratio == ratio_) return;
    image_ = QImage(width, height, QImage::Format_RGB32);
    background_ = QImage(width, height, QImage::Format_RGB32);
    ratio_ = ratio;
    // The kept operations painted again; the state in force afterwards is the one before.
    const double sw = scalewidth, st = scaletop, sh = scaleheight, x = currentx, y = currenty,
                 size = fontsize;
    const std::uint32_t colour = forecolor;
    const int width0 = drawwidth, style = drawstyle;
    const bool bold = fontbold;
    replaying_ = true;
    Canvas::scale(backgroundscale_[0], backgroundscale_[1], backgroundscale_[2]);
    beginbackground(record_.backgroundcolor);
    replayops(record_.background, *this);
    storebackground();
    clear();
    replayops(record_.ops, *this);
    replaying_ = false;
    Canvas::scale(sw, st, sh);
    currentx = x, currenty = y, fontsize = size, forecolor = colour, drawwidth = width0, drawstyle = style;
    fontbold = bold;
}

void RasterCanvas::clear() {
    if (recording()) record().clear();
    labels_ = backgroundlabels_;
    // Same size and format: the copy reuses the image's own memory.
    std::memcpy(image_.bits(), background_.constBits(), static_cast<std::size_t>(image_.sizeInBytes()));
}

QPointF RasterCanvas::topixel(double x, double y) const {
    const double w = scalewidth != 0 ? scalewidth : 1, h = scaleheight != 0 ? scaleheight : 1;
    return {x * image_.width() / w, (y - scaletop) * image_.height() / h};
}

void RasterCanvas::plot(QPointF p, QRgb value) {
    const int size = std::max(1, static_cast<int>(std::lround(drawwidth * ratio_)));
    const int left = static_cast<int>(p.x()) - (size - 1) / 2, top = static_cast<int>(p.y()) - (size - 1) / 2;
    for (int row = std::max(0, top); row < std::min(image_.height(), top + size); ++row) {
        auto* line = reinterpret_cast<QRgb*>(image_.scanLine(row));
        for (int col = std::max(0, left); col < std::min(image_.width(), left + size); ++col)
            line[col] = value;
    }
}

void RasterCanvas::pset(double x, double y) {
    if (recording()) record().pset(x, y);
    // Dots go straight into the scanlines: far cheaper than a painter per dot, same pixels.
    plot(topixel(x, y), qcolorof(forecolor).rgb());
    currentx = x;
    currenty = y;
}

void RasterCanvas::line(double x1, double y1, double x2, double y2) {
    if (recording()) record().line(x1, y1, x2, y2);
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
    pen.setWidth(std::max(1, static_cast<int>(std::lround(drawwidth * ratio_))));
    static const Qt::PenStyle styles[] = {Qt::SolidLine,   Qt::DashLine,       Qt::DotLine,
                                          Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen};
    pen.setStyle(drawstyle >= 0 && drawstyle < 6 ? styles[drawstyle] : Qt::SolidLine);
    painter.setPen(pen);
    painter.drawLine(topixel(x1, y1), topixel(x2, y2));
    currentx = x2;
    currenty = y2;
}

void RasterCanvas::print(const std::string& text) {
    if (recording()) record().print(text);
    QPainter painter(&image_);
    QFont font(QStringLiteral("WenQuanYi Micro Hei"));
    font.setPointSizeF((fontsize > 0 ? fontsize : 9) * ratio_);
    font.setBold(fontbold);
    painter.setFont(font);
    painter.setPen(qcolorof(forecolor));
    QPointF at = topixel(currentx, currenty);
    QString qtext = QString::fromStdString(text);
    const QRectF room(at, QSizeF(image_.width(), image_.height()));
    const int flags = Qt::AlignLeft | Qt::AlignTop;
    bool shown = true;
    if (spacing_) {
        const QRectF box = painter.boundingRect(room, flags, qtext);
        const double limit = std::min<double>(image_.width(), topixel(labellimit_, 0).x());
        shown =
            box.left() >= 0 && box.right() <= limit && box.bottom() <= image_.height() &&
            std::none_of(labels_.begin(), labels_.end(), [&](const QRectF& r) { return r.intersects(box); });
        if (shown) labels_.push_back(box);
    }
    if (shown) painter.drawText(room, flags, qtext);
    currenty += fontsize * 1.5 * ratio_ * scaleheight / image_.height();
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

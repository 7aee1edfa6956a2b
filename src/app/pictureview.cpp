#include "app/pictureview.h"

#include "render/rastercanvas.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>

namespace orvane {

PictureView::PictureView(RasterCanvas& canvas, QWidget* parent) : QWidget(parent), canvas_(canvas) {
    canvas_.keepops(); // so that a resize paints the picture again at the new pixels
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(120, 60);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
}

QPointF PictureView::tocanvas(const QPointF& p) const {
    const double w = std::max(1, width()), h = std::max(1, height());
    return {p.x() / w * canvas_.scalewidth, canvas_.scaletop + p.y() / h * canvas_.scaleheight};
}

QPointF PictureView::towidget(const QPointF& p) const {
    const double sw = canvas_.scalewidth > 0 ? canvas_.scalewidth : 1;
    const double sh = canvas_.scaleheight > 0 ? canvas_.scaleheight : 1;
    return {p.x() / sw * width(), (p.y() - canvas_.scaletop) / sh * height()};
}

void PictureView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    // The canvas paints at the real pixels of the widget, the screen's ratio included.
    const double ratio = devicePixelRatioF();
    canvas_.resizepixels(static_cast<int>(std::lround(width() * ratio)),
                         static_cast<int>(std::lround(height() * ratio)), ratio);
}

void PictureView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    // Whole canvas pixels on whole screen pixels where the sizes allow: dots stay sharp.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(rect(), canvas_.image());
    if (overlay_) overlay_(painter);
}

void PictureView::mousePressEvent(QMouseEvent* event) {
    emit pressed(event->button(), tocanvas(event->position()));
}

void PictureView::mouseMoveEvent(QMouseEvent* event) {
    emit moved(tocanvas(event->position()), event->buttons());
}

void PictureView::mouseReleaseEvent(QMouseEvent* event) {
    emit released(event->button(), tocanvas(event->position()));
}

} // namespace orvane

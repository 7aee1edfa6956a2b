#include "bmode/pictureview.h"

#include "render/rastercanvas.h"

#include <QPainter>

namespace orvane {

PictureView::PictureView(RasterCanvas& canvas, QWidget* parent) : QWidget(parent), canvas_(canvas) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(120, 60);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    // Whole canvas pixels on whole screen pixels where the sizes allow: dots stay sharp.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(rect(), canvas_.image());
}

} // namespace orvane

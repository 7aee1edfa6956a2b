#include "app/curveview.h"

#include "render/rastercanvas.h"
#include "station/station.h"

#include <QMouseEvent>
#include <QPainter>

namespace orvane {

CurveView::CurveView(Station& st, const std::string& name, QWidget* parent)
    : QWidget(parent), st_(st), name_(name) {
    setObjectName(QString::fromStdString(name.substr(name.find('.') + 1)));
    setMouseTracking(true);
    setMinimumSize(20, 60);
    st_.canvases[name_] = &canvas_;
}

CurveView::~CurveView() {
    st_.canvases.erase(name_);
}

QPointF CurveView::tocanvas(QPointF p) const {
    return {p.x() * canvas_.scalewidth / std::max(1, width()),
            canvas_.scaletop + p.y() * canvas_.scaleheight / std::max(1, height())};
}

QPointF CurveView::towidget(QPointF p) const {
    const double w = canvas_.scalewidth != 0 ? canvas_.scalewidth : 1;
    const double h = canvas_.scaleheight != 0 ? canvas_.scaleheight : 1;
    return {p.x() * width() / w, (p.y() - canvas_.scaletop) * height() / h};
}

void CurveView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawImage(0, 0, renderrecorded(canvas_, std::max(1, width()), std::max(1, height())));
    if (overlay_) overlay_(painter, [this](QPointF p) { return towidget(p); });
}

void CurveView::mouseMoveEvent(QMouseEvent* event) {
    emit moved(tocanvas(event->position()));
}

} // namespace orvane

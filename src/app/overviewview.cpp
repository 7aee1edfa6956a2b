#include "app/overviewview.h"

#include "app/desk.h"
#include "replay/wholerun.h"
#include "station/station.h"

#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

namespace orvane {

namespace {
// The events as they stand over the strip: their colour and their row from the top.
struct EventLook {
    std::uint8_t event;
    QColor colour;
    int row;
};
const EventLook looks[] = {
    {Overview::mark, QColor(255, 220, 0), 0},      {Overview::turnout, QColor(0, 220, 255), 0},
    {Overview::restart, QColor(255, 255, 255), 1}, {Overview::reversal, QColor(255, 80, 255), 1},
    {Overview::loss, QColor(255, 60, 60), 2},      {Overview::filterhit, QColor(255, 150, 0), 2},
};
constexpr int eventrows = 3, rowheight = 4, bandheight = 6, kmband = 12;
} // namespace

OverviewView::OverviewView(Station& st, Act act, QWidget* parent)
    : QWidget(parent), st_(st), act_(std::move(act)) {
    setObjectName("Overview");
    setMouseTracking(true);
    setFixedHeight(eventrows * rowheight + 3 * bandheight + kmband + 2);
    setCursor(Qt::PointingHandCursor);
}

double OverviewView::tostrip(double x) const {
    return x / std::max(1, width()) * st_.overview.columns;
}

void OverviewView::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), QColor(20, 20, 28));
    const Overview& o = st_.overview;
    if (o.columns == 0) return;
    const double w = width(), step = w / o.columns;
    // The echoes: one band a group, brighter where more echoes fell, against the busiest column.
    std::array<std::uint32_t, 3> busiest{1, 1, 1};
    for (const auto& e : o.echoes)
        for (int g = 0; g < 3; ++g) busiest[g] = std::max(busiest[g], e[g]);
    const int top = eventrows * rowheight + 1;
    const QColor hues[] = {QColor(80, 200, 255), QColor(120, 255, 120), QColor(255, 120, 200)};
    for (int c = 0; c < o.columns; ++c) {
        const double x = c * step;
        for (int g = 0; g < 3; ++g) {
            const std::uint32_t n = o.echoes[c][g];
            if (n == 0) continue;
            const double share = std::sqrt(static_cast<double>(n) / busiest[g]);
            QColor colour = hues[g];
            colour.setAlphaF(0.25 + 0.75 * share);
            p.fillRect(QRectF(x, top + g * bandheight, std::max(1.0, step), bandheight - 1), colour);
        }
        for (const EventLook& look : looks)
            if (o.events[c] & look.event)
                p.fillRect(QRectF(x, look.row * rowheight, std::max(1.5, step), rowheight - 1), look.colour);
    }
    // The kilometre ticks: where the whole kilometre changes, as far apart as their texts allow.
    p.setPen(QColor(200, 200, 200));
    QFont font = p.font();
    font.setPixelSize(10);
    p.setFont(font);
    const int base = height() - kmband;
    double lastlabel = -1000;
    for (int c = 1; c < o.columns; ++c) {
        if (std::floor(o.km[c]) == std::floor(o.km[c - 1])) continue;
        const double x = c * step;
        p.drawLine(QPointF(x, base), QPointF(x, base + 3));
        if (x - lastlabel < 40 || x > w - 30) continue;
        p.drawText(QPointF(x + 2, height() - 2),
                   QString::number(static_cast<long>(std::floor(o.km[c]))) + "km");
        lastlabel = x;
    }
    // The screen shown now.
    const Side& s = st_.zhu;
    const double right = static_cast<double>(s.viewindex) / std::max<std::int64_t>(1, o.length) * w;
    const double left =
        static_cast<double>(s.viewindex - st_.settings.viewspan) / std::max<std::int64_t>(1, o.length) * w;
    p.setPen(QPen(QColor(255, 255, 255), 1));
    p.setBrush(QColor(255, 255, 255, 40));
    p.drawRect(QRectF(std::max(0.0, left), 0, std::max(3.0, right - left), height() - 1));
}

void OverviewView::send(const char* kind, const char* button, double x) {
    const double at = tostrip(x);
    act_([this, kind, button, at] { mouse(st_, "Overview", {kind, button, at, 0}); });
}

void OverviewView::mousePressEvent(QMouseEvent* event) {
    send("down", event->button() == Qt::LeftButton ? "left" : "right", event->position().x());
}

void OverviewView::mouseMoveEvent(QMouseEvent* event) {
    QToolTip::showText(event->globalPosition().toPoint(),
                       QString::fromStdString(overviewtip(st_, tostrip(event->position().x()))), this);
    if (event->buttons() & Qt::LeftButton) send("move", "left", event->position().x());
}

void OverviewView::mouseReleaseEvent(QMouseEvent* event) {
    send("up", event->button() == Qt::LeftButton ? "left" : "right", event->position().x());
}

} // namespace orvane

#pragma once
// A picture box on screen: shows its canvas's image at the widget's real pixels, with what the window
// lays over it (the ruler), and tells presses and drags in the canvas's own units.
#include <QWidget>

#include <functional>

class QPainter;

namespace orvane {

class RasterCanvas;

class PictureView : public QWidget {
    Q_OBJECT
  public:
    PictureView(RasterCanvas& canvas, QWidget* parent = nullptr);

    // Drawn over the image with the painter in canvas units.
    void setoverlay(std::function<void(QPainter&)> overlay) { overlay_ = std::move(overlay); }
    // A widget point in the canvas's user scale, and back.
    QPointF tocanvas(const QPointF& point) const;
    QPointF towidget(const QPointF& point) const;

  signals:
    void pressed(Qt::MouseButton button, QPointF at);
    void moved(QPointF at, Qt::MouseButtons buttons);
    void released(Qt::MouseButton button, QPointF at);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    RasterCanvas& canvas_;
    std::function<void(QPainter&)> overlay_;
};

} // namespace orvane

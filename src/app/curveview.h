#pragma once
// A curve's canvas on screen: the station draws into its recorded canvas in the curve's own user
// scale, and the view paints those operations at whatever size the window gives it, so a curve over
// millions of positions stays crisp. Moves of the pointer are told in the canvas's units.
#include "station/recordingcanvas.h"

#include <QWidget>

#include <functional>
#include <string>

namespace orvane {

struct Station;

class CurveView : public QWidget {
    Q_OBJECT
  public:
    // The canvas NAME ("Form29.Picture1", "picturegj") of ST, shown here while the view lives.
    CurveView(Station& st, const std::string& name, QWidget* parent);
    ~CurveView() override;

    // Drawn over the curve with the painter in widget pixels and the map from canvas units.
    void setoverlay(std::function<void(QPainter&, const std::function<QPointF(QPointF)>&)> overlay) {
        overlay_ = std::move(overlay);
    }

  signals:
    void moved(QPointF at);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    QPointF tocanvas(QPointF p) const;
    QPointF towidget(QPointF p) const;
    Station& st_;
    std::string name_;
    RecordingCanvas canvas_;
    std::function<void(QPainter&, const std::function<QPointF(QPointF)>&)> overlay_;
};

} // namespace orvane

#pragma once
// A picture box on screen: shows its canvas's image scaled to the widget.
#include <QWidget>

namespace orvane {

class RasterCanvas;

class PictureView : public QWidget {
    Q_OBJECT
  public:
    PictureView(RasterCanvas& canvas, QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    RasterCanvas& canvas_;
};

} // namespace orvane

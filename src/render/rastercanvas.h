#pragma once
// A canvas painted into an image: one canvas unit a pixel across, the height by the scale.
#include "station/canvas.h"
#include "station/recordingcanvas.h"

#include <QImage>

namespace orvane {

class RasterCanvas : public Canvas {
  public:
    RasterCanvas(int width, int height);

    void clear() override;
    void pset(double x, double y) override;
    void line(double x1, double y1, double x2, double y2) override;
    void print(const std::string& text) override;
    void beginbackground(std::uint32_t color) override;
    void storebackground() override;

    const QImage& image() const { return image_; }

  private:
    QPointF topixel(double x, double y) const;
    // A square of drawwidth pixels at P.
    void plot(QPointF p, QRgb value);
    QImage image_;
    QImage background_;
};

// The picture of recorded operations painted WIDTH by HEIGHT pixels: the canvas's user scale maps to
// the image, so a curve over millions of positions is as crisp at any size.
QImage renderrecorded(const RecordingCanvas& canvas, int width, int height);

// A station colour (red + 256 green + 65536 blue) as a Qt colour.
QColor qcolorof(std::uint32_t color);

} // namespace orvane

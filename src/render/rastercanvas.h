#pragma once
// A canvas painted into an image: one canvas unit a pixel across, the height by the scale.
#include "app/canvas.h"

#include <QImage>

namespace orvane {

class RasterCanvas : public Canvas {
  public:
    RasterCanvas(int width, int height);

    void scale(double width, double top, double height) override;
    void clear() override;
    void pset(double x, double y, std::uint32_t color) override;
    void line(double x1, double y1, double x2, double y2, std::uint32_t color) override;
    void print(const std::string& text) override;

    // The stored background that clear() restores.
    void setbackground(const QImage& picture) { background_ = picture; }
    void setbackgroundcolor(std::uint32_t color);
    const QImage& image() const { return image_; }

  private:
    QPointF topixel(double x, double y) const;
    QImage image_;
    QImage background_;
    double scalewidth_ = 1, scaletop_ = 0, scaleheight_ = 1;
};

// A station colour (red + 256 green + 65536 blue) as a Qt colour.
QColor qcolorof(std::uint32_t color);

} // namespace orvane

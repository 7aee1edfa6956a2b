#pragma once
// A canvas painted into an image: one canvas unit a pixel across, the height by the scale.
#include "station/canvas.h"
#include "station/recordingcanvas.h"

#include <QImage>
#include <QRectF>

#include <array>
#include <vector>

namespace orvane {

class RasterCanvas : public Canvas {
  public:
    RasterCanvas(int width, int height);

    // A canvas on screen keeps the operations of its background and of its frame, so that it can paint
    // them again at another size of pixels: the user scale then maps to the new pixels, dots keep
    // their size in pixels and texts their proportions.
    void keepops() { keep_ = true; }
    // The pixels the canvas paints into, RATIO pixels to one pixel of the screen's layout; the kept
    // operations are painted again.
    void resizepixels(int width, int height, double ratio);
    // Texts of a frame that would cover an earlier text, or run past the picture's edges or past
    // LIMIT (user units across), are left out on screen: the labels along the foot stay readable.
    void spacelabels(double limit) { spacing_ = true, labellimit_ = limit; }

    void scale(double width, double top, double height) override;
    void clear() override;
    void pset(double x, double y) override;
    void line(double x1, double y1, double x2, double y2) override;
    void print(const std::string& text) override;
    void beginbackground(std::uint32_t color) override;
    void storebackground() override;

    const QImage& image() const { return image_; }

  private:
    // The drawing state handed to the kept operations before each one.
    RecordingCanvas& record();
    bool recording() const;
    QPointF topixel(double x, double y) const;
    // A square of drawwidth pixels at P.
    void plot(QPointF p, QRgb value);
    QImage image_;
    QImage background_;
    bool keep_ = false, replaying_ = false;
    RecordingCanvas record_;
    std::array<double, 3> backgroundscale_{1200, 0, 410};
    double ratio_ = 1;
    bool spacing_ = false;
    double labellimit_ = 0;
    std::vector<QRectF> labels_, backgroundlabels_; // the texts painted, of the frame and the background
};

// The picture of recorded operations painted WIDTH by HEIGHT pixels: the canvas's user scale maps to
// the image, so a curve over millions of positions is as crisp at any size.
QImage renderrecorded(const RecordingCanvas& canvas, int width, int height);

// A station colour (red + 256 green + 65536 blue) as a Qt colour.
QColor qcolorof(std::uint32_t color);

} // namespace orvane

#pragma once
// A canvas that keeps its draw operations in order instead of pixels: the headless front prints
// them, and tests check the exact operations and coordinates of a picture.
#include "station/canvas.h"

#include <vector>

namespace orvane {

struct DrawOp {
    enum class Kind {
        clear,
        pset,
        line,
        print,
        scale
    } kind = Kind::pset; // scale: x1 across, y1 top, y2 height
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    std::uint32_t color = 0;
    int width = 1;
    int style = 0;
    double size = 0;
    bool bold = false;
    std::string text{};
};

class RecordingCanvas : public Canvas {
  public:
    void clear() override;
    void pset(double x, double y) override;
    void line(double x1, double y1, double x2, double y2) override;
    void print(const std::string& text) override;
    void beginbackground(std::uint32_t color) override;
    // A change of scale between operations is kept as an operation of its own.
    void scale(double width, double top, double height) override;
    void storebackground() override;

    std::vector<DrawOp> ops;        // since the last clear
    std::vector<DrawOp> background; // the operations that drew the stored background
    std::uint32_t backgroundcolor = 0;

  private:
    bool inbackground_ = false;
    std::vector<DrawOp>& target() { return inbackground_ ? background : ops; }
};

// Draws recorded operations again on another canvas.
void replayops(const std::vector<DrawOp>& ops, Canvas& target);

} // namespace orvane

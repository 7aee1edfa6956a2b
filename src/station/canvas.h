#pragma once
// The drawing surface of a picture box, in its own user scale. Colours are
// red + 256 * green + 65536 * blue. Dots and lines take the canvas's forecolor, drawwidth and
// drawstyle; text takes its font and is written at (currentx, currenty).
#include <cstdint>
#include <string>

namespace orvane {

class Canvas {
  public:
    virtual ~Canvas() = default;

    // The user scale: units across, the top and the height of the visible band. A picture may change
    // it between its draw operations (the A-mode trace is drawn 820 units across).
    virtual void scale(double width, double top, double height) {
        scalewidth = width;
        scaletop = top;
        scaleheight = height;
    }
    // Clears to the stored background picture.
    virtual void clear() = 0;
    virtual void pset(double x, double y) = 0;
    virtual void line(double x1, double y1, double x2, double y2) = 0;
    virtual void print(const std::string& text) = 0;
    // A new background: a plain picture of COLOR, drawn on until storebackground() keeps it as the
    // picture that clear() restores.
    virtual void beginbackground(std::uint32_t color) = 0;
    virtual void storebackground() = 0;

    std::uint32_t forecolor = 0;
    int drawwidth = 1;
    int drawstyle = 0; // 0 solid, 1 dash, 3 dash-dot
    double fontsize = 9;
    bool fontbold = false;
    double currentx = 0;
    double currenty = 0;
    double scalewidth = 1200;
    double scaletop = 0;
    double scaleheight = 410;
};

} // namespace orvane

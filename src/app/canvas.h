#pragma once
// The drawing surface of a picture box, in its own user scale. Colours are
// red + 256 * green + 65536 * blue.
#include <cstdint>
#include <string>

namespace orvane {

class Canvas {
  public:
    virtual ~Canvas() = default;

    // The user scale: canvas units across, the top and the height of the visible band.
    virtual void scale(double width, double top, double height) = 0;
    // Clears to the stored background picture.
    virtual void clear() = 0;
    virtual void pset(double x, double y, std::uint32_t color) = 0;
    virtual void line(double x1, double y1, double x2, double y2, std::uint32_t color) = 0;
    // Prints text with its top left corner at (currentx, currenty).
    virtual void print(const std::string& text) = 0;

    std::uint32_t forecolor = 0;
    int drawwidth = 1;
    int drawstyle = 0;
    double fontsize = 9;
    bool fontbold = false;
    double currentx = 0;
    double currenty = 0;
};

} // namespace orvane

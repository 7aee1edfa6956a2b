#pragma once
// The print control of the notice: a font, a current place, texts, lines, pictures and tables in
// twips, made between the start and the end of the document. An operation that can't be made
// throws PrintError and leaves the page as it was, so that the caller may skip that one element.
#include "station/page.h"

#include <stdexcept>
#include <string>

namespace orvane {

class Canvas;

struct PrintError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

class PrintLayer {
  public:
    // A new empty page; the end of the document gives it out.
    void startdoc();
    const PrintedPage& enddoc();

    std::string fontname = "Arial";
    double fontsize = 10;
    bool fontbold = false;
    double currentx = 0, currenty = 0;

    // TEXT at the current place in the font in force.
    void text(const std::string& text);
    void line(double x1, double y1, double x2, double y2);
    // The picture SOURCE: the operations of CANVAS drawn into the box, the canvas being PIXELWIDTH by
    // PIXELHEIGHT pixels on the screen. A missing canvas throws.
    void picture(const std::string& source, const RecordingCanvas* canvas, double pixelwidth,
                 double pixelheight, double x, double y, double width, double height);
    // A table at the current place: its size, the row height, each column's width and each cell, then
    // its end, which moves the current place below it.
    void starttable();
    void tablesize(int columns, int rows);
    void rowheight(double height);
    void columnwidth(int column, double width);
    void cell(int row, int column, const std::string& text);
    void endtable();

  private:
    PrintedPage page_;
    bool open_ = false;
    bool intable_ = false;
    PageOp table_;
    PageOp& add(PageOp op);
};

// The gap the end of a table leaves below it before the next element.
inline constexpr double tablegap = 150;

} // namespace orvane

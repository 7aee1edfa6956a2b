#pragma once
// One printed page as the print layer made it: texts, lines, pictures and tables in twips, in the
// order they were made. The pictures carry the draw operations of their canvas, so that a printer
// draws them at its own resolution instead of stretching a screen's bitmap.
#include "station/recordingcanvas.h"

#include <string>
#include <vector>

namespace orvane {

struct PageOp {
    enum class Kind { text, line, picture, table } kind = Kind::text;
    // text and table: the font in force.
    std::string font;
    double size = 0;
    bool bold = false;
    // text: at (x, y); line: (x, y) to (x2, y2); picture and table: top left (x, y), width by height.
    double x = 0, y = 0, x2 = 0, y2 = 0, width = 0, height = 0;
    std::string text;
    // picture: the canvas it shows and its operations, with the canvas's pixels across and down.
    std::string source;
    RecordingCanvas picture;
    double pixelwidth = 0, pixelheight = 0;
    // table: the row height, the width of each column and the cells row by row.
    double rowheight = 0;
    std::vector<double> widths;
    std::vector<std::vector<std::string>> rows;
};

struct PrintedPage {
    std::vector<PageOp> ops;
};

} // namespace orvane

#include "station/recordingcanvas.h"

namespace orvane {

void RecordingCanvas::clear() {
    ops.clear();
    ops.push_back(DrawOp{.kind = DrawOp::Kind::clear});
}

void RecordingCanvas::pset(double x, double y) {
    target().push_back(
        DrawOp{.kind = DrawOp::Kind::pset, .x1 = x, .y1 = y, .color = forecolor, .width = drawwidth});
    currentx = x;
    currenty = y;
}

void RecordingCanvas::line(double x1, double y1, double x2, double y2) {
    target().push_back(DrawOp{.kind = DrawOp::Kind::line,
                              .x1 = x1,
                              .y1 = y1,
                              .x2 = x2,
                              .y2 = y2,
                              .color = forecolor,
                              .width = drawwidth,
                              .style = drawstyle});
    currentx = x2;
    currenty = y2;
}

void RecordingCanvas::print(const std::string& text) {
    target().push_back(DrawOp{.kind = DrawOp::Kind::print,
                              .x1 = currentx,
                              .y1 = currenty,
                              .color = forecolor,
                              .size = fontsize,
                              .bold = fontbold,
                              .text = text});
}

void RecordingCanvas::scale(double width, double top, double height) {
    Canvas::scale(width, top, height);
    // Before anything is drawn the scale is simply the canvas's own; within a picture it is an operation.
    if (!target().empty())
        target().push_back(DrawOp{.kind = DrawOp::Kind::scale, .x1 = width, .y1 = top, .y2 = height});
}

void RecordingCanvas::beginbackground(std::uint32_t color) {
    backgroundcolor = color;
    background.clear();
    inbackground_ = true;
}

void RecordingCanvas::storebackground() {
    inbackground_ = false;
}

void replayops(const std::vector<DrawOp>& ops, Canvas& target) {
    for (const DrawOp& op : ops) {
        target.forecolor = op.color;
        target.drawwidth = op.width;
        target.drawstyle = op.style;
        switch (op.kind) {
        case DrawOp::Kind::clear:
            target.clear();
            break;
        case DrawOp::Kind::pset:
            target.pset(op.x1, op.y1);
            break;
        case DrawOp::Kind::line:
            target.line(op.x1, op.y1, op.x2, op.y2);
            break;
        case DrawOp::Kind::scale:
            target.scale(op.x1, op.y1, op.y2);
            break;
        case DrawOp::Kind::print:
            target.currentx = op.x1;
            target.currenty = op.y1;
            target.fontsize = op.size;
            target.fontbold = op.bold;
            target.print(op.text);
            break;
        }
    }
}

} // namespace orvane

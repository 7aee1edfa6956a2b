// orvane-cli frame: one picture of the main side as operations or as a PNG.
#include "commands.h"
#include "json.h"
#include "render/rastercanvas.h"
#include "station/recordingcanvas.h"
#include "station/station.h"

#include <cmath>

namespace orvane::cli {

namespace {

// A coordinate the station computed in 32-bit floats is written as that float.
void coordinate(Json& j, const char* name, double v) {
    j.key(name);
    if (static_cast<double>(static_cast<float>(v)) == v)
        j.value(static_cast<float>(v));
    else
        j.value(v);
}

void opsarray(Json& j, const std::vector<DrawOp>& ops) {
    j.beginarray();
    for (const DrawOp& op : ops) {
        j.beginobject();
        switch (op.kind) {
        case DrawOp::Kind::clear:
            j.key("op").value("clear");
            break;
        case DrawOp::Kind::pset:
            j.key("op").value("pset");
            coordinate(j, "x", op.x1);
            coordinate(j, "y", op.y1);
            j.key("color").value(static_cast<std::int64_t>(op.color)).key("width").value(op.width);
            break;
        case DrawOp::Kind::line:
            j.key("op").value("line");
            coordinate(j, "x1", op.x1);
            coordinate(j, "y1", op.y1);
            coordinate(j, "x2", op.x2);
            coordinate(j, "y2", op.y2);
            j.key("color").value(static_cast<std::int64_t>(op.color)).key("width").value(op.width);
            j.key("style").value(op.style);
            break;
        case DrawOp::Kind::scale:
            j.key("op").value("scale");
            j.key("width").value(op.x1).key("top").value(op.y1).key("height").value(op.y2);
            break;
        case DrawOp::Kind::print:
            j.key("op").value("print");
            coordinate(j, "x", op.x1);
            coordinate(j, "y", op.y1);
            j.key("text").value(op.text).key("size").value(op.size).key("bold").value(op.bold);
            j.key("color").value(static_cast<std::int64_t>(op.color));
            break;
        }
        j.endobject();
    }
    j.endarray();
}

} // namespace

std::string opsjson(const RecordingCanvas& canvas) {
    Json j;
    j.beginobject();
    j.key("scale").beginobject();
    j.key("width")
        .value(canvas.scalewidth)
        .key("top")
        .value(canvas.scaletop)
        .key("height")
        .value(canvas.scaleheight);
    j.endobject();
    j.key("background");
    opsarray(j, canvas.background);
    j.key("ops");
    opsarray(j, canvas.ops);
    j.endobject();
    return j.text();
}

bool writepng(const RecordingCanvas& canvas, const std::string& path, int width, int height) {
    if (width <= 0) width = std::max(1, static_cast<int>(std::lround(canvas.scalewidth)));
    if (height <= 0) height = std::max(1, static_cast<int>(std::lround(canvas.scaleheight)));
    return renderrecorded(canvas, width, height).save(QString::fromStdString(path), "PNG");
}

} // namespace orvane::cli

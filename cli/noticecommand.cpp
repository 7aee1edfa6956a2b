// The printed notice headless: its page as JSON and PDF, the folder printer of run --pages, and the
// main picture as what the user sees.
#include "commands.h"
#include "json.h"
#include "render/pagepainter.h"
#include "render/rastercanvas.h"
#include "station/page.h"

#include <QBuffer>
#include <QGuiApplication>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace orvane::cli {

void guiapplication() {
    if (QGuiApplication::instance()) return;
    // Text needs the fonts of a GUI application; no screen is needed for an image or a page.
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    static int argc = 1;
    static char name[] = "orvane-cli";
    static char* argv[] = {name, nullptr};
    // It lives as long as the process: Qt's own exit handlers outlive any owner of ours.
    static QGuiApplication* const app = new QGuiApplication(argc, argv);
    (void)app;
}

std::string pagejson(const PrintedPage& page) {
    Json j;
    j.beginobject().key("ops").beginarray();
    for (const PageOp& op : page.ops) {
        j.beginobject();
        switch (op.kind) {
        case PageOp::Kind::text:
            j.key("op").value("text").key("x").value(op.x).key("y").value(op.y).key("text").value(op.text);
            j.key("font").value(op.font).key("size").value(op.size).key("bold").value(op.bold);
            break;
        case PageOp::Kind::line:
            j.key("op").value("line").key("x1").value(op.x).key("y1").value(op.y);
            j.key("x2").value(op.x2).key("y2").value(op.y2);
            break;
        case PageOp::Kind::picture:
            j.key("op").value("picture").key("source").value(op.source).key("x").value(op.x).key("y").value(
                op.y);
            j.key("width").value(op.width).key("height").value(op.height);
            break;
        case PageOp::Kind::table:
            j.key("op").value("table").key("x").value(op.x).key("y").value(op.y);
            j.key("rowheight").value(op.rowheight).key("widths").beginarray();
            for (double w : op.widths) j.value(w);
            j.endarray().key("rows").beginarray();
            for (const auto& row : op.rows) {
                j.beginarray();
                for (const auto& cell : row) j.value(cell);
                j.endarray();
            }
            j.endarray();
            break;
        }
        j.endobject();
    }
    j.endarray().endobject();
    return j.text();
}

std::optional<std::string> writepage(const PrintedPage& page, const std::string& pdfpath) {
    guiapplication();
    if (auto failed = writepdf(page, pdfpath)) return failed;
    const std::string jsonpath = fs::path(pdfpath).replace_extension(".json").string();
    std::ofstream out(jsonpath, std::ios::binary);
    out << pagejson(page) << "\n";
    if (!out) return "无法写入文件：" + jsonpath;
    return std::nullopt;
}

bool FolderPrinter::print(const PrintedPage& page) {
    const std::string path = (fs::path(folder) / (std::to_string(paths.size() + 1) + ".pdf")).string();
    if (auto failed = writepage(page, path)) throw std::runtime_error(*failed);
    paths.push_back(path);
    return false;
}

std::string PictureScreen::windowbitmap() {
    guiapplication();
    // The picture as the window shows it, 1200 by 420 pixels.
    const QImage image = renderrecorded(picture_, 1200, 420);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "BMP")) return {};
    return bytes.toStdString();
}

} // namespace orvane::cli

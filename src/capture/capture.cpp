#include "capture/capture.h"

#include "processing/safefile.h"
#include "station/ports.h"

#include <QBuffer>
#include <QDataStream>
#include <QFont>
#include <QImageWriter>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <gif_lib.h>

namespace orvane {

// The sixteen colours of the swatches, in the order of the old sixteen-colour palette.
const std::array<QColor, 16> capturecolors = {
    QColor(0, 0, 0),       QColor(0, 0, 128),   QColor(0, 128, 0),   QColor(0, 128, 128),
    QColor(128, 0, 0),     QColor(128, 0, 128), QColor(128, 128, 0), QColor(192, 192, 192),
    QColor(128, 128, 128), QColor(0, 0, 255),   QColor(0, 255, 0),   QColor(0, 255, 255),
    QColor(255, 0, 0),     QColor(255, 0, 255), QColor(255, 255, 0), QColor(255, 255, 255)};

namespace {

// The pen of every tool: two pixels wide, so that a mark shows on any picture.
QPen toolpen(const QColor& color) {
    QPen pen(color, 2);
    pen.setJoinStyle(Qt::MiterJoin);
    return pen;
}

QPoint clamped(QPoint at, const QImage& image) {
    return {std::clamp(at.x(), 0, std::max(0, image.width() - 1)),
            std::clamp(at.y(), 0, std::max(0, image.height() - 1))};
}

// GIF: the picture reduced to 256 colours and written with giflib into memory.
int gifwrite(GifFileType* gif, const GifByteType* bytes, int length) {
    static_cast<QByteArray*>(gif->UserData)->append(reinterpret_cast<const char*>(bytes), length);
    return length;
}

std::optional<std::string> gifbytes(const QImage& image, QByteArray& out) {
    const QImage indexed = image.convertToFormat(QImage::Format_RGB32)
                               .convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither);
    std::vector<GifColorType> colors(256);
    const QList<QRgb> table = indexed.colorTable();
    for (int i = 0; i < table.size() && i < 256; ++i)
        colors[i] = {static_cast<GifByteType>(qRed(table[i])), static_cast<GifByteType>(qGreen(table[i])),
                     static_cast<GifByteType>(qBlue(table[i]))};
    int error = 0;
    GifFileType* gif = EGifOpen(&out, gifwrite, &error);
    if (!gif) return std::string("GIF 编码失败：") + GifErrorString(error);
    ColorMapObject* map = GifMakeMapObject(256, colors.data());
    bool ok = map && EGifPutScreenDesc(gif, indexed.width(), indexed.height(), 8, 0, map) == GIF_OK &&
              EGifPutImageDesc(gif, 0, 0, indexed.width(), indexed.height(), false, nullptr) == GIF_OK;
    for (int y = 0; ok && y < indexed.height(); ++y)
        ok = EGifPutLine(gif, const_cast<GifByteType*>(indexed.constScanLine(y)), indexed.width()) == GIF_OK;
    GifFreeMapObject(map);
    const int lasterror = gif->Error;
    if (EGifCloseFile(gif, &error) != GIF_OK || !ok)
        return std::string("GIF 编码失败：") + GifErrorString(ok ? error : lasterror);
    return std::nullopt;
}

} // namespace

ScrnCap::ScrnCap(QImage snapshot) : Picture1(std::move(snapshot)) {
    addhistory();
}

QString ScrnCap::LblPos() const {
    return QString("位置：%1,%2").arg(frame.x()).arg(frame.y());
}

QString ScrnCap::lblInfo() const {
    return QString("大小：%1×%2").arg(frame.width()).arg(frame.height());
}

bool ScrnCap::inframe(QPoint at) const {
    return !frame.isEmpty() && frame.contains(at);
}

QPoint ScrnCap::inselection(QPoint at) const {
    const QPoint p = at - frame.topLeft();
    return {std::clamp(p.x(), 0, std::max(0, frame.width() - 1)),
            std::clamp(p.y(), 0, std::max(0, frame.height() - 1))};
}

void ScrnCap::MDown(QPoint at) {
    at = clamped(at, Picture1);
    dragfrom = dragto = at;
    if (frame.isEmpty()) {
        if (mode == "draw") drag = Drag::selection;
        return;
    }
    if (!inframe(at)) return;
    switch (tool) {
    case CaptureTool::text:
        textat = inselection(at);
        return;
    case CaptureTool::none:
        mode = "Start";
        movedfrom = frame;
        drag = Drag::frame;
        return;
    default:
        drag = Drag::shape;
    }
}

void ScrnCap::mousemove(QPoint at) {
    if (drag == Drag::none) return;
    dragto = clamped(at, Picture1);
    if (drag == Drag::selection) {
        // The selection follows the pointer, its place and size shown beside it.
        frame = QRect(dragfrom, dragto).normalized();
        LblPosvisible = lblInfovisible = true;
    } else if (drag == Drag::frame) {
        // The frame moves with the pointer and never leaves the snapshot.
        mode = "move";
        QRect moved = movedfrom.translated(dragto - dragfrom);
        moved.moveLeft(std::clamp(moved.left(), 0, std::max(0, Picture1.width() - moved.width())));
        moved.moveTop(std::clamp(moved.top(), 0, std::max(0, Picture1.height() - moved.height())));
        frame = moved;
    }
}

void ScrnCap::mouseup(QPoint at) {
    if (drag == Drag::none) return;
    mousemove(at);
    const Drag finished = drag;
    drag = Drag::none;
    if (finished == Drag::selection) {
        // A selection of no size is no selection.
        if (frame.width() < 2 || frame.height() < 2) return dropselection();
        Picture2 = Picture1.copy(frame);
        Picture1visible = Picture2visible = LblPosvisible = lblInfovisible = true;
        mode = "move";
        return addhistory();
    }
    if (finished == Drag::frame) {
        mode = "move";
        if (frame == movedfrom) return;
        // A moved frame cuts its selection anew where it stands.
        Picture2 = Picture1.copy(frame);
        return addhistory();
    }
    const QRect shape(inselection(dragfrom), inselection(dragto));
    if (std::abs(shape.width()) < 2 && std::abs(shape.height()) < 2) return;
    QPainter p(&Picture2);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(toolpen(color));
    if (tool == CaptureTool::rectangle) p.drawRect(shape.normalized());
    if (tool == CaptureTool::ellipse) p.drawEllipse(shape.normalized());
    p.end();
    if (tool == CaptureTool::arrow) Arrow(Picture2, shape.topLeft(), inselection(dragto), color);
    addhistory();
}

QRect ScrnCap::dragshape() const {
    if (drag != Drag::shape) return {};
    return QRect(inselection(dragfrom), inselection(dragto));
}

void ScrnCap::puttext(const QString& text) {
    const auto at = textat;
    textat.reset();
    if (!at || text.isEmpty() || Picture2.isNull()) return;
    QPainter p(&Picture2);
    p.setRenderHint(QPainter::TextAntialiasing);
    QFont f(font);
    f.setPixelSize(fontsize);
    p.setFont(f);
    p.setPen(color);
    p.drawText(QRect(*at, Picture2.size()), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, text);
    p.end();
    addhistory();
}

bool ScrnCap::Image2(int index) {
    switch (index) {
    case 0:
        if (--historypos <= 0) {
            historypos = 0;
            dropselection();
        } else {
            readback();
        }
        return true;
    case 4:
    case 5:
    case 6:
    case 7: {
        static const CaptureTool tools[] = {CaptureTool::rectangle, CaptureTool::ellipse, CaptureTool::text,
                                            CaptureTool::arrow};
        const CaptureTool chosen = tools[index - 4];
        tool = tool == chosen ? CaptureTool::none : chosen;
        textat.reset();
        return true;
    }
    case 8:
        if (historypos + 1 > historytop) return true;
        ++historypos;
        readback();
        return true;
    default:
        return false;
    }
}

QImage ScrnCap::CutdSave() const {
    return Picture2;
}

void ScrnCap::addhistory() {
    // WriteP: the frame and the selection as one element of bytes.
    QByteArray element;
    QDataStream out(&element, QIODevice::WriteOnly);
    out << frame << Picture2;
    if (!history.empty()) history.resize(static_cast<std::size_t>(historypos) + 1);
    history.push_back(element);
    historypos = historytop = static_cast<int>(history.size()) - 1;
}

void ScrnCap::readback() {
    // ReadP: the element under historypos back into the frame and the selection.
    QDataStream in(history[static_cast<std::size_t>(historypos)]);
    in >> frame >> Picture2;
    Picture1visible = Picture2visible = LblPosvisible = lblInfovisible = !frame.isEmpty();
    mode = frame.isEmpty() ? "draw" : "move";
}

void ScrnCap::dropselection() {
    mode = "draw";
    frame = {};
    Picture2 = {};
    textat.reset();
    Picture1visible = Picture2visible = LblPosvisible = lblInfovisible = false;
}

void Arrow(QImage& image, QPoint from, QPoint to, const QColor& color) {
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(toolpen(color));
    p.drawLine(from, to);
    // The head: two strokes of 14 pixels at 25 degrees either side of the shaft.
    const double angle = std::atan2(to.y() - from.y(), to.x() - from.x());
    for (double side : {-1.0, 1.0}) {
        const double a = angle + M_PI + side * 25.0 * M_PI / 180.0;
        p.drawLine(QPointF(to), QPointF(to.x() + 14 * std::cos(a), to.y() + 14 * std::sin(a)));
    }
}

std::optional<std::string> savecapture(const QImage& image, const std::string& path) {
    if (image.isNull()) return std::string("没有选区可保存");
    const std::size_t dot = path.find_last_of("./");
    std::string extension = dot != std::string::npos && path[dot] == '.' ? path.substr(dot + 1) : "";
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    QByteArray bytes;
    if (extension == "gif") {
        if (auto failed = gifbytes(image, bytes)) return failed;
    } else {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QImageWriter writer(&buffer, extension == "jpg"    ? "jpeg"
                                     : extension == "png"  ? "png"
                                     : extension == "tiff" ? "tiff"
                                                           : "bmp");
        QImage out = image.convertToFormat(QImage::Format_RGB32);
        if (extension == "jpg") writer.setQuality(90);
        if (extension == "tiff") {
            writer.setCompression(1);                         // LZW
            out = out.convertToFormat(QImage::Format_RGB888); // 24 bits a pixel
        }
        if (!writer.write(out)) return "无法编码图像：" + writer.errorString().toStdString();
    }
    if (auto failed = commitfile(path, "", bytes.toStdString())) return failed;
    return std::nullopt;
}

bool saveselection(const ScrnCap& cap, Ui& ui) {
    if (cap.CutdSave().isNull()) {
        ui.message("请先拖出要保存的区域");
        return false;
    }
    const auto path = ui.savefile(capturefilter, captureextension, capturetitle);
    if (!path) return false;
    if (const auto failed = savecapture(cap.CutdSave(), *path)) {
        ui.message("无法保存图像：" + *path + "（" + *failed + "）");
        return false;
    }
    return true;
}

} // namespace orvane

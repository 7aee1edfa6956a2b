#pragma once
// The screen capture ScrnCapForm: a frozen picture of the screen (Picture1), a selection dragged over
// it (the frame Image1, its pixels in Picture2), the tools of the bar Image2 that draw rectangles,
// ellipses, texts and arrows into the selection, a history of the selection after each finished
// action for undo and redo, and the selection going out to the clipboard or a picture file. Pixels
// are QtGui images; the window only shows this state and forwards the mouse and the keys.
#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace orvane {

// The tools of Image2 by index, with their tip texts.
inline constexpr std::array<const char*, 9> capturetips = {
    "撤销", "复制退出", "保存", "退出截屏", "添加矩形", "添加椎圆", "添加文字", "添加箭头", "重做"};
enum class CaptureTool { none, rectangle, ellipse, text, arrow };

// The save dialog's filter, in its order, and its title and default extension.
inline constexpr const char* capturefilter =
    "位图文件(*.bmp)|*.bmp|PNG文件(*.PNG)|*.PNG|JPEG文件(*.jpg;*.jpeg)|*.jpg|"
    "GIF文件(*.gif)|*.gif|TIFF文件(*.TIFF)|*.tiff|所有文件(*.*)|*.*";
inline constexpr const char* capturetitle = "保存为";
inline constexpr const char* captureextension = "bmp";

// The sixteen colours of the swatches Pcolor.
extern const std::array<QColor, 16> capturecolors;

struct ScrnCap {
    QImage Picture1; // the snapshot of the whole screen
    QImage Picture2; // the selection with what the tools drew into it
    QRect frame;     // Image1: the selection's place on the snapshot; empty while none
    std::string mode = "draw";
    bool Picture1visible = true, Picture2visible = false, LblPosvisible = false, lblInfovisible = false;
    std::vector<QByteArray> history;
    int historypos = 0, historytop = 0;
    CaptureTool tool = CaptureTool::none;
    QColor color = QColor(255, 0, 0);
    QString font = "WenQuanYi Micro Hei"; // PicFont
    int fontsize = 16;                    // Combo1
    // A drag in progress: what it makes, where it started and where the pointer is (snapshot
    // coordinates).
    enum class Drag { none, selection, frame, shape } drag = Drag::none;
    QPoint dragfrom, dragto;
    QRect movedfrom; // the frame when a move started
    // The text tool: where the text goes in the selection while TextEdit is open.
    std::optional<QPoint> textat;

    // Opens on SNAPSHOT: mode "draw" and the first history element.
    explicit ScrnCap(QImage snapshot);

    // LblPos and lblInfo: the frame's place and size.
    QString LblPos() const;
    QString lblInfo() const;

    // The mouse on the snapshot, in its pixels. Without a selection a drag makes one; inside the
    // frame a drag moves it ("Start", then "move"), or with a tool draws its shape; a click with the
    // text tool opens TextEdit there.
    void MDown(QPoint at);
    void mousemove(QPoint at);
    void mouseup(QPoint at);
    // The text of TextEdit put into the selection; an empty text puts nothing.
    void puttext(const QString& text);
    // Image2(index) pressed: undo, the tools, redo. Copy, save and close are the window's, since they
    // leave the form; this returns false for them.
    bool Image2(int index);
    // The shape that a drag with the tool would draw now, in selection coordinates (for the window to
    // show while dragging); an empty rectangle when none.
    QRect dragshape() const;

    // CutdSave: what goes to the clipboard, the selection; a null image while there is none.
    QImage CutdSave() const;
    // Inside the frame, where a double click copies and closes.
    bool inframe(QPoint at) const;

  private:
    void addhistory();
    void readback();
    void dropselection();
    QPoint inselection(QPoint at) const;
};

// Writes IMAGE to PATH by the path's extension ("jpg" JPEG, "png", "gif" with 256 colours, "tiff";
// any other one a bitmap), whole or not at all. nullopt when done, else the reason.
std::optional<std::string> savecapture(const QImage& image, const std::string& path);

class Ui;
// "保存": the file name asked with the save dialog of the capture, then the selection written there.
// True when written; a missing selection or a failed write is said through UI.
bool saveselection(const ScrnCap& cap, Ui& ui);

// The arrow from FROM to TO that the arrow tool draws: the shaft and the two strokes of its head.
void Arrow(QImage& image, QPoint from, QPoint to, const QColor& color);

} // namespace orvane

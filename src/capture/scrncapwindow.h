#pragma once
// ScrnCapForm: the capture window, frameless and modal over the whole desktop, showing the snapshot
// with the selection, its handles, the tool bar Image2, the colour and font choice and the place and
// size of the frame. The rules live in ScrnCap; this window draws it and hands it the mouse and keys.
#include "capture/capture.h"

#include <QDialog>

#include <functional>
#include <optional>
#include <string>

class QLabel;
class QLineEdit;
class QWidget;

namespace orvane {

class Ui;

class ScrnCapForm : public QDialog {
    Q_OBJECT
  public:
    // Over SNAPSHOT, placed at AREA (the desktop's geometry); UI asks for the file name and tells
    // what went wrong.
    ScrnCapForm(const QImage& snapshot, const QRect& area, Ui& ui, QWidget* parent = nullptr);
    const ScrnCap& state() const { return cap_; }
    // Image2(INDEX) as if clicked.
    void tool(int index);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    // CutdSave: the selection onto the clipboard.
    void copyselection();
    void save();
    // The bars and labels where the frame now stands.
    void place();
    QPoint onsnapshot(QPointF at) const;

    ScrnCap cap_;
    Ui& ui_;
    QWidget* bar_ = nullptr;     // Image2
    QWidget* palette_ = nullptr; // PicColor with Pcolor, PicFont and Combo1
    QLabel* pos_ = nullptr;      // LblPos
    QLabel* info_ = nullptr;     // lblInfo
    QLineEdit* text_ = nullptr;  // TextEdit
};

} // namespace orvane

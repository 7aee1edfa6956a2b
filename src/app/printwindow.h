#pragma once
// The notice's print preview Form25 on the system's printers, with "另存为PDF…" beside printing, and
// the grab of the main window that saves what the user sees.
#include "station/ports.h"

class QWidget;

namespace orvane {

class PreviewPrinter : public Printer {
  public:
    PreviewPrinter(Ui& ui, QWidget* parent, bool english) : ui_(ui), parent_(parent), english_(english) {}
    // Shows the page in the preview, modal; true: the preview is closed when this returns.
    bool print(const PrintedPage& page) override;

  private:
    Ui& ui_;
    QWidget* parent_;
    bool english_;
};

class WindowScreen : public Screen {
  public:
    explicit WindowScreen(QWidget* window) : window_(window) {}
    std::string windowbitmap() override;
    // Every screen of the desktop; the window alone where the platform grabs no screen.
    std::string wholescreen() override;

  private:
    QWidget* window_;
};

struct Station;
// The capture window ScrnCapForm over a snapshot of the screen, modal over WINDOW.
void opencapture(Station& st, QWidget* window);

// The message when the preview's print finds no printer installed.
inline constexpr const char* noprintermessage = "没有安装打印机。可用“另存为PDF…”保存通知单。";

} // namespace orvane

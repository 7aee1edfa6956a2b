#pragma once
// The Ui port with Qt dialogs, and the bar pb1 of the main window during a walk.
#include "station/ports.h"

#include <functional>

class QProgressBar;
class QWidget;

namespace orvane {

struct Station;

// The Workbooks port of the program: a report is kept under the station folder's reports/, opened
// with the desktop's application for spreadsheets, and its place shown with a way to the folder.
class DesktopWorkbooks : public Workbooks {
  public:
    DesktopWorkbooks(Station& st, QWidget* parent) : st_(st), parent_(parent) {}
    void show(const Workbook& book, const std::string& report) override;

  private:
    Station& st_;
    QWidget* parent_;
};

class DialogUi : public Ui {
  public:
    void setparent(QWidget* parent) { parent_ = parent; }
    void setbar(QProgressBar* bar) { bar_ = bar; }
    // Lets the window show the state the logic left before a dialog covers it.
    void setbeforedialog(std::function<void()> refresh) { beforedialog_ = std::move(refresh); }

    void message(const std::string& text) override;
    bool askyesno(const std::string& text) override;
    std::optional<std::string> inputbox(const std::string& prompt, const std::string& title,
                                        const std::string& preset) override;
    std::optional<std::string> openfile(const std::string& filter, const std::string& extension) override;
    std::optional<std::string> savefile(const std::string& filter, const std::string& extension,
                                        const std::string& title = "") override;
    std::optional<std::uint32_t> pickcolor(std::uint32_t current) override;
    void progressmax(double maximum) override;
    void progress(long value) override;

  private:
    QWidget* parent_ = nullptr;
    QProgressBar* bar_ = nullptr;
    std::function<void()> beforedialog_;
    void prepare() {
        if (beforedialog_) beforedialog_();
    }
};

} // namespace orvane

#pragma once
// The main window: shows the station's state and forwards the user's acts to the logic.
#include <QMainWindow>

#include <memory>

class QLabel;
class QProgressBar;

namespace orvane {

struct Station;
class DialogUi;
class PictureView;
class RasterCanvas;

class Form28Window : public QMainWindow {
    Q_OBJECT
  public:
    Form28Window(Station& st, DialogUi& ui, QWidget* parent = nullptr);
    ~Form28Window() override;

    // Runs first activation once the window is on screen; then shows what it left.
    void activate();
    // Shows the station's state in the controls.
    void refresh();

  signals:
    void activated();

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    Station& st_;
    DialogUi& ui_;
    std::unique_ptr<RasterCanvas> canvas_;
    PictureView* picture1_ = nullptr;
    QProgressBar* pb1_ = nullptr;
    QLabel* lts1_ = nullptr;
    bool activationqueued_ = false;
};

} // namespace orvane

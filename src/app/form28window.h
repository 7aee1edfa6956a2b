#pragma once
// The main window: shows the station's state and forwards the user's acts to the logic.
#include <QMainWindow>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QTableWidget;
class QTimer;

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
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    // Runs one act of the user through the logic, then shows what it left; a refused act is a message.
    void act(const std::function<void()>& handler);
    QPushButton* button(const char* name, const QString& caption, const char* control);
    QWidget* settingscolumn(QWidget* parent);
    void filltable(QTableWidget* table, const std::vector<std::vector<std::string>>& cells);

    Station& st_;
    DialogUi& ui_;
    std::unique_ptr<RasterCanvas> canvas_;
    PictureView* picture1_ = nullptr;
    QProgressBar* pb1_ = nullptr;
    QLabel* lts1_ = nullptr;
    QPushButton* command8_ = nullptr;
    QScrollBar* hscrolljd_ = nullptr;
    QScrollBar* hscroll8_ = nullptr;
    QLineEdit* text1_ = nullptr;
    QTimer* t1_ = nullptr;
    QTableWidget* grid1_ = nullptr;
    QTableWidget* grid2_ = nullptr;
    QTableWidget* grid3_ = nullptr;
    std::vector<QCheckBox*> checks_;
    std::vector<QRadioButton*> options_;
    std::map<std::string, QScrollBar*> bars_;
    std::map<std::string, QLabel*> labels_; // Label1, Ljls, the job summary
    bool activationqueued_ = false;
};

} // namespace orvane

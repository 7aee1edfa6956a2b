#pragma once
// The main window: shows the station's state and forwards the user's acts to the logic.
#include <QMainWindow>
#include <QPointF>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

class QCheckBox;
class QLabel;
class QLineEdit;
class QMenu;
class QAction;
class QPainter;
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
    // Command3: the alignment window over this one, modal; the picture follows each change.
    void openformpk2();
    // Picture1 takes the focus back if it can.
    void focuspicture();
    // A press on the picture: the ruler's drag, or the press of the view with its popup menu a13.
    void picturepressed(Qt::MouseButton button, QPointF at);
    void drawruler(QPainter& painter);
    void showcaptions();

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
    QCheckBox* check8_ = nullptr;  // all channels
    std::vector<QLabel*> colours_; // Lysa..Lysi
    QMenu* popup_ = nullptr;       // a13
    std::map<std::string, QAction*> menuentries_;
    bool rulerdrag_ = false;
    double rulerfrom_ = 0;
    std::vector<QRadioButton*> options_;
    std::map<std::string, QScrollBar*> bars_;
    std::map<std::string, QLabel*> labels_; // Label1, Ljls, the job summary
    bool activationqueued_ = false;
    bool activated_ = false;
    QLabel* label20_ = nullptr;
    std::map<std::string, std::string> captionsshown_;
};

} // namespace orvane

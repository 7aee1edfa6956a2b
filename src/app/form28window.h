#pragma once
// The main window: shows the station's state and forwards the user's acts to the logic.
#include <QMainWindow>
#include <QPointF>
#include <QPointer>

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
class ControlView;
class DialogUi;
class Formpk2Window;
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
    // Runs one act of the user through the logic, then shows what it left; a refused act is a message.
    void act(const std::function<void()>& handler);
    QPushButton* button(const char* name);
    QString caption(const char* name) const;
    QWidget* settingscolumn(QWidget* parent);
    // The alignment window over this one while the logic has it open; the picture follows each change.
    void showformpk2();
    // Picture1 takes the focus back if it can.
    void focuspicture();
    // A press on the picture: the ruler's drag, or the press of the view with its popup menu a13.
    void picturepressed(Qt::MouseButton button, QPointF at);
    void drawruler(QPainter& painter);

    Station& st_;
    DialogUi& ui_;
    std::unique_ptr<RasterCanvas> canvas_;
    PictureView* picture1_ = nullptr;
    QProgressBar* pb1_ = nullptr;
    QTimer* t1_ = nullptr;
    std::vector<QLabel*> colours_; // Lysa..Lysi
    QMenu* popup_ = nullptr;       // a13
    QLabel* label20_ = nullptr;
    ControlView* controls_ = nullptr;
    QPointer<Formpk2Window> formpk2_;
    bool rulerdrag_ = false;
    double rulerfrom_ = 0;
    bool activationqueued_ = false;
    bool activated_ = false;
};

} // namespace orvane

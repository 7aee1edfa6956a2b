#pragma once
// The main window: shows the station's state and forwards the user's acts to the logic.
#include <QMainWindow>
#include <QPoint>
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
class QString;
class QRadioButton;
class QScrollBar;
class QTableWidget;
class QTimer;

namespace orvane {

struct Station;
struct Side;
class ControlView;
class DialogUi;
class Form10Window;
class Formpk2Window;
class MasterWindow;
class CurveWindow;
class CurveView;
class PictureView;
class OverviewView;
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
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    // The menu "文件": open a recording, the recordings opened last.
    void filemenu();
    // The status bar's labels under the window.
    void statusbar();
    // Every named control without a tip of its own gets the station's.
    void applytips();
    // Each bar with its value and unit beside it, in a label of the table of controls.
    void barvalues();
    // A key or the wheel on the picture, as the station names it; false for one it has no use for.
    bool picturekey(QEvent* event);
    // Opens PATH in the running station, its dialogs over this window.
    void openpath(const QString& path);
    // Runs one act of the user through the logic, then shows what it left; a refused act is a message.
    void act(const std::function<void()>& handler);
    QPushButton* button(const char* name);
    // A button that opens the window of a table, with its tip.
    QPushButton* tablebutton(const char* name, const char* tip, QWidget* parent);
    QWidget* printgroup(QWidget* parent);
    QString caption(const char* name) const;
    QWidget* settingscolumn(QWidget* parent);
    QWidget* sidepanel(QWidget* parent);
    QWidget* filterpage(QWidget* parent);
    QWidget* pointspage(QWidget* parent);
    QWidget* markspage(QWidget* parent);
    QWidget* overviewpage(QWidget* parent);
    QWidget* comparisonhalf(QWidget* parent);
    PictureView* sidepicture(QWidget* parent, bool main);
    void placereadout(PictureView& view, const Side& side);
    // The alignment window over this one while the logic has it open; the picture follows each change.
    void showformpk2();
    // The maintenance window of a table once the logic has opened one.
    void showmasterform();
    // The magnifier while the logic has it open.
    void showform10();
    // The curve windows that the logic has open.
    void showcurves();
    // The track's canvas picturegj with its buttons and timer, and its place over the window.
    void trackpanel(QWidget* central);
    void placetrack();
    // Picture1 takes the focus back if it can.
    void focuspicture();
    // The mouse on the picture: on the grip of the cursor assembly it goes to Labelyz, elsewhere to the
    // view (press with its popup menu a13, the read-out, drag or click).
    void picturemouse(const char* kind, Qt::MouseButton button, QPointF at, bool main);
    // The A-mode panel Picture5 beside the picture.
    QWidget* amodepanel(QWidget* parent);
    void drawruler(QPainter& painter, const PictureView& view, const Side& side);

    Station& st_;
    DialogUi& ui_;
    std::unique_ptr<RasterCanvas> canvas_;
    std::unique_ptr<RasterCanvas> canvas3_; // the A-mode picture
    std::unique_ptr<RasterCanvas> canvas6_; // the comparison's picture
    PictureView* picture6_ = nullptr;
    QWidget* comparison_ = nullptr; // the lower half with Picture6
    PictureView* picture1_ = nullptr;
    OverviewView* overview_ = nullptr;
    PictureView* picture3_ = nullptr;
    QWidget* picture5_ = nullptr;
    QTimer* t2_ = nullptr;
    QProgressBar* pb1_ = nullptr;
    QTimer* t1_ = nullptr;
    std::vector<QLabel*> colours_; // Lysa..Lysi
    QMenu* popup_ = nullptr;       // a13
    QMenu* popupdb_ = nullptr;     // a13 on the comparison's picture
    QLabel* label20_ = nullptr;
    ControlView* controls_ = nullptr;
    QPointer<Formpk2Window> formpk2_;
    QPointer<MasterWindow> masterform_;
    QPointer<Form10Window> form10_;
    std::map<std::string, QPointer<CurveWindow>> curvewindows_;
    CurveView* track_ = nullptr;            // picturegj
    QTimer* timer1_ = nullptr;              // Shape6 follows the replay
    std::unique_ptr<RasterCanvas> canvas9_; // the enlargement
    PictureView* picture9_ = nullptr;
    QWidget* enlargement_ = nullptr; // Picture9 with its close label Label9
    bool gripheld_ = false;          // a press on the grip goes on to its move and release
    bool panelheld_ = false;         // the A-mode panel dragged by the pointer
    QPoint panelgrip_;
    bool activationqueued_ = false;
    bool activated_ = false;
};

} // namespace orvane

#pragma once
// The curve windows over Form28: the gain curve Form29, the integral curve Form8, the speed curve
// Form9 and the replay log Form4. Each lays out widgets named as its controls are; the canvases are
// curve views that paint the station's drawing at the window's size.
#include "station/controlview.h"

#include <QDialog>

#include <string>
#include <vector>

namespace orvane {

class CurveView;
struct Station;

class CurveWindow : public QDialog {
    Q_OBJECT
  public:
    // FORM is "Form29", "Form8", "Form9" or "Form4".
    CurveWindow(Station& st, const std::string& form, ControlView::Act act, QWidget* parent);
    // Shows the state of its controls and canvases; closes once the logic has closed the window.
    void refresh();
    void reject() override;
    // Whether the logic has the window FORM open.
    static bool isopen(const Station& st, const std::string& form);

  private:
    QWidget* letterrow(const std::vector<const char*>& letters);
    CurveView* view(const char* canvas);
    // The values of the scale beside the curve: five labels STEP units apart, their top at
    // BASE - i STEP, showing i VALUE.
    void scalevalues(CurveView* scale, int step, double base, int value);

    Station& st_;
    std::string form_;
    ControlView::Act act_;
    ControlView* controls_ = nullptr;
    std::vector<CurveView*> views_;
};

} // namespace orvane

#pragma once
// A maintenance window of a table (Form5, Form6, Form11, Form2, Form7) over Form28: the grid, a
// labelled box per column and the buttons, built from the window's controls in the table of controls
// and bound to them by name.
#include "station/controlview.h"

#include <QDialog>

#include <string>

namespace orvane {

struct Station;

class MasterWindow : public QDialog {
    Q_OBJECT
  public:
    MasterWindow(Station& st, const std::string& form, ControlView::Act act, QWidget* parent);
    // Shows the state of its controls; closes once the logic has closed the window.
    void refresh();
    // The close box and Escape are 返回.
    void reject() override;

  private:
    Station& st_;
    std::string form_;
    ControlView::Act act_;
    ControlView* controls_ = nullptr;
};

} // namespace orvane

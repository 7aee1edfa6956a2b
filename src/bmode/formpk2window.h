#pragma once
// The alignment window Formpk2 (拼孔): a bar a channel A to H around the words at the opening, the
// mode of the words and the instrument's row of table pinkong. Modal over Form28; each change goes
// through the main window's acts, so the picture follows it at once.
#include "station/controlview.h"

#include <QDialog>

namespace orvane {

struct Station;

class Formpk2Window : public QDialog {
    Q_OBJECT
  public:
    Formpk2Window(Station& st, ControlView::Act act, QWidget* parent);
    // Shows the state of its controls; closes once the logic has closed the alignment.
    void refresh();
    // Closing the window (its close box or Escape) ends the alignment.
    void reject() override;

  private:
    Station& st_;
    ControlView::Act act_;
    ControlView* controls_ = nullptr;
};

} // namespace orvane

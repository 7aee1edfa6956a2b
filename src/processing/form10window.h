#pragma once
// The magnifier Form10: always on top, it shows the screen round the pointer enlarged by the factor of
// its choices Option1(0..3), and names the pointer's place in its caption.
#include "station/controlview.h"

#include <QDialog>

class QLabel;
class QTimer;

namespace orvane {

struct Station;

class Form10Window : public QDialog {
    Q_OBJECT
  public:
    Form10Window(Station& st, ControlView::Act act, QWidget* parent);
    void refresh();
    void reject() override;

  private:
    // Timer1: the pointer's place and the screen round it.
    void look();

    Station& st_;
    ControlView::Act act_;
    ControlView* controls_ = nullptr;
    QLabel* picture_ = nullptr;
    QTimer* timer1_ = nullptr;
};

} // namespace orvane

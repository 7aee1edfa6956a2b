#pragma once
// The alignment window Formpk2 (拼孔): a bar a channel A to H around the words at the opening, the
// mode of the words and the instrument's row of table pinkong. Modal over Form28; each change goes
// through the main window's acts, so the picture follows it at once.
#include <QDialog>

#include <functional>

namespace orvane {

struct Station;

class Formpk2Window : public QDialog {
    Q_OBJECT
  public:
    using Act = std::function<void(const std::function<void()>&)>;
    Formpk2Window(Station& st, Act act, QWidget* parent);
    // Closing the window (its close box or Escape) ends the alignment.
    void reject() override;

  private:
    // Runs a control's handler; a mode button closes the window through the logic.
    void control(const std::function<void()>& handler);

    Station& st_;
    Act act_;
};

} // namespace orvane

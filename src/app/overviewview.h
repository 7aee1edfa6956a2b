#pragma once
// The strip of the whole run under the picture: the echoes of the three groups of channels, the
// events, the kilometres and the screen shown now; a press or drag moves the view there.
#include <QWidget>

#include <functional>

namespace orvane {

struct Station;

class OverviewView : public QWidget {
    Q_OBJECT
  public:
    using Act = std::function<void(const std::function<void()>&)>;
    OverviewView(Station& st, Act act, QWidget* parent = nullptr);

    // A widget x in the strip's own scale, its columns.
    double tostrip(double x) const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void send(const char* kind, const char* button, double x);
    Station& st_;
    Act act_;
};

} // namespace orvane

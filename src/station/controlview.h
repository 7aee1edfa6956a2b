#pragma once
// Binds the widgets of a window to the table of controls by object name: a user's act on a widget
// goes to its entry, and refresh() shows in every widget what the entry reads from the station. A
// window thus holds no rule of its own; it only lays out widgets named as the controls are.
#include <QObject>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class QTableWidget;
class QWidget;

namespace orvane {

struct Control;
struct Station;

// A grid of whole rows as the windows show their lists: read-only, one row selected at a time, the
// heads in row 0 as the control gives them, the last column to the right edge; TIP says what a click does.
QTableWidget* gridwidget(QWidget* parent, const char* name, const char* tip);

class ControlView : public QObject {
    Q_OBJECT
  public:
    // Runs one act of the user through the logic and shows what it left.
    using Act = std::function<void(const std::function<void()>&)>;
    // Binds every child of WINDOW whose object name, behind PREFIX ("" for Form28, "Formpk2."), names
    // a control; canvases are left to the window, which knows their geometry.
    ControlView(Station& st, QWidget* window, std::string prefix, Act act);

    void refresh();
    // The controls bound, by their full names.
    std::vector<std::string> bound() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Binding {
        QObject* object;
        std::string name;
        std::uint64_t shownrevision = ~std::uint64_t{0}; // of a long list: the cells it shows
    };
    void bind(QObject* object, const Control& c);
    void show(Binding& b);
    // A grid whose control reads a value shows that row selected (0: none).
    void selectrow(QTableWidget* table, const Control& c);
    const Control* controlof(QObject* object) const;

    Station& st_;
    std::string prefix_;
    Act act_;
    std::vector<Binding> bindings_;
    bool refreshing_ = false;
};

} // namespace orvane

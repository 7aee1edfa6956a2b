#pragma once
// The table of controls: every control that a user can click, tick, move or type into, in every
// window, under its name, with its handlers and what it shows. Each subsystem registers the controls
// it owns; the windows bind their widgets to the entries by object name, and the headless front
// reaches the same entries. So a control exists for both or for neither.
#include <cstdint>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace orvane {

struct Station;

// A name that no window has, or a value that the control cannot take: nothing was changed.
class ControlError : public std::invalid_argument {
  public:
    using std::invalid_argument::invalid_argument;
};

// The control belongs to a window that is not open: nothing was changed.
class ControlClosed : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

enum class ControlKind {
    button,
    label,
    checkbox,
    option,
    scrollbar,
    textbox,
    combobox,
    grid,
    canvas,
    menuentry,
    tabs // a tabbed panel: its value is the tab shown
};

// One act of the mouse on a canvas: KIND "down", "move" or "up", BUTTON "left", "right" or "none",
// the place in the canvas's own scale.
struct MouseAct {
    std::string kind;
    std::string button;
    double x = 0, y = 0;
};

struct Control {
    std::string name; // "Command8"; "Formpk2.Cmdbc" for a control of another window
    ControlKind kind = ControlKind::button;
    std::string title; // the caption it is built with, unless the station gives it another

    // What the user can do with it; a control without a handler does not take that act.
    std::function<void(Station&, const std::string& button)> click;
    std::function<void(Station&, int value)> change;                // a scroll bar moved to VALUE
    std::function<void(Station&, const std::string& text)> text;    // the text of a box replaced
    std::function<void(Station&)> enter;                            // Enter in a box
    std::function<void(Station&)> focus;                            // the control takes the focus
    std::function<void(Station&)> blur;                             // and loses it
    std::function<void(Station&, int row)> row;                     // a click on a row of a grid
    std::function<void(Station&, int row)> dblclick;                // a double click (row -1: none)
    std::function<void(Station&, const MouseAct&)> mouse;           // down, move, up on a canvas
    std::function<void(Station&, const std::string& entry)> select; // an entry of a combo box chosen
    std::function<void(Station&, const std::string& key)> key;      // a key or a turn of the wheel

    // What it shows; a control without a reader has no such state.
    std::function<int(const Station&)> value; // check box and option 0/1, scroll bar
    std::function<std::string(const Station&)> caption;
    std::function<std::string(const Station&)> textof;
    std::function<bool(const Station&)> enabled;
    std::function<bool(const Station&)> visible;
    std::function<std::vector<std::vector<std::string>>(const Station&)> cells; // a grid, heads first
    // Of a long list: a number that changes whenever its cells do, so a window redraws it only then.
    std::function<std::uint64_t(const Station&)> revision;
    // The range of a scroll bar; maximum(st) where it follows the recording.
    int min = 0, max = 0;
    std::function<int(const Station&)> maximum;

    int rangemax(const Station& st) const { return maximum ? maximum(st) : max; }
    bool isenabled(const Station& st) const { return !enabled || enabled(st); }
    bool isvisible(const Station& st) const { return !visible || visible(st); }
};

// A window other than Form28: open while OPEN says so; CLOSE is its close box.
struct FormEntry {
    std::string name;
    std::function<bool(const Station&)> open;
    std::function<void(Station&)> close;
};

class ControlTable {
  public:
    // Adds a control; a name given twice is a fault of the program, not of the user.
    Control& add(Control control);
    void addform(FormEntry form);

    const Control* find(const std::string& name) const;
    // The entry NAME, for a later subsystem that gives a control the act it owns; null when none.
    Control* edit(const std::string& name);
    const std::vector<Control>& all() const { return controls_; }
    const std::vector<FormEntry>& forms() const { return forms_; }
    // The window of a control name: "Form28" for a bare name.
    static std::string formof(const std::string& name);
    bool isopen(const Station& st, const std::string& form) const;

  private:
    std::vector<Control> controls_;
    std::map<std::string, std::size_t> index_;
    std::vector<FormEntry> forms_;
};

// Builds an entry: the name, its kind and the caption it is built with.
Control control(const std::string& name, ControlKind kind, const std::string& title = "");

// Whether a recording has loaded, so that the controls of the view take acts.
bool recordingloaded(const Station& st);
// Whether the comparison is shown, so that its controls take acts.
bool comparisonshown(const Station& st);

// A label that shows the text the station keeps for it under its name.
Control formlabel(const std::string& name);
// A button of the loaded recording whose click runs ACT.
Control actionbutton(const std::string& name, const std::string& caption, void (*act)(Station&));

// The caption a control shows: its own reader, else the caption the station gave it (state or
// language), else the one it was built with.
std::string controlcaption(const Station& st, const Control& c);

// The control NAME of an open window; ControlError when no window has it, ControlClosed when its
// window is not open.
const Control& reach(const Station& st, const std::string& name);

// The user's acts by control name, as the windows and the headless front make them. A control that
// is disabled or hidden takes no act, as on the screen.
// A click with BUTTON "left" (or empty) or "right".
void press(Station& st, const std::string& name, const std::string& button = "");
// The control changed to VALUE as by the user: a check box or option to 0/1 (the click runs only when
// the value differs; an option is never unset by a click), a scroll bar to a number within its range,
// a box to a text, a combo box to an entry.
void setcontrol(Station& st, const std::string& name, const std::string& value);
// The scroll bar NAME moved by the user to VALUE.
void scroll(Station& st, const std::string& name, int value);
// TEXT typed into the box NAME, replacing what it held, then Enter.
void enter(Station& st, const std::string& name, const std::string& text);
// A click or double click on row R of the grid NAME; a double click on a control without rows.
void clickrow(Station& st, const std::string& name, int row);
void dblclick(Station& st, const std::string& name, int row = -1);
// The entry TEXT chosen in the combo box NAME.
void select(Station& st, const std::string& name, const std::string& text);
// A mouse act on the canvas or label NAME.
void mouse(Station& st, const std::string& name, const MouseAct& act);
// KEY pressed, or the wheel turned, over the control NAME: "Right", "PageDown", "Ctrl+WheelUp" …; a
// key the control has no use for is refused.
void keypress(Station& st, const std::string& name, const std::string& key);
// The control NAME takes the focus.
void focus(Station& st, const std::string& name);
// The window FORM closed by its close box.
void closeform(Station& st, const std::string& form);
// The windows that are open, Form28 first.
std::vector<std::string> openforms(const Station& st);

} // namespace orvane

#pragma once
// The user's acts on Form28 by control name, as the window's buttons and bars and the headless
// front's actions make them. Each runs the control's handler; an unknown name is a ControlError.
#include <string>

namespace orvane {

struct Station;

// A click on a button, label, option, check box or menu entry; BUTTON "left" (or empty) or "right".
void press(Station& st, const std::string& name, const std::string& button = "");
// The user moves the scroll bar NAME to VALUE.
void scroll(Station& st, const std::string& name, int value);
// TEXT typed into the box NAME, then Enter.
void enter(Station& st, const std::string& name, const std::string& text);
// A press of BUTTON ("left", "right") at X on the picture CANVAS (Picture1 or Picture6): the side
// takes the focus; a left press pauses a running replay. True when the popup menu a13 is to show.
bool picturedown(Station& st, const std::string& canvas, const std::string& button, double x);
// N ticks of the replay timer while it runs.
void tick(Station& st, int n);

} // namespace orvane

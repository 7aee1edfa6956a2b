// A short run of a user's acts on a loaded recording: presses, timer ticks, scroll bars, typed
// boxes, mouse acts, keys and settings of any control, with values from the input. A value that a
// control refuses ends only that act, as the window would never let it through.
#include "amode/amode.h"
#include "app/startup.h"
#include "curves/track.h"
#include "fuzzstation.h"
#include "generator.h"
#include "replay/transport.h"
#include "scenario.h"

#include <string>
#include <vector>

namespace {

using namespace orvane;

// The recording every input acts on: the small synthetic run, written once a process.
const std::string& recording() {
    static const std::string path = [] {
        const ::ktrgen::Recording r = ::ktrgen::generate(::ktrgen::preset("small"), 2);
        return fuzz::writeinput(r.bytes.data(), r.bytes.size(), "small.ktr");
    }();
    return path;
}

const char* const keys[] = {"Left",          "Right",          "PageUp", "PageDown", "Home",
                            "End",           "Space",          "Escape", "WheelUp",  "WheelDown",
                            "Shift+WheelUp", "Ctrl+WheelDown", "Ctrl+G", "Q"};
const char* const kinds[] = {"down", "move", "up"};
const char* const buttons[] = {"left", "right"};

// A text of up to eight characters from the input: digits, a point, a sign or a letter.
std::string textof(fuzz::InputReader& in) {
    static const char alphabet[] = "0123456789.-+eE Ak:";
    std::string text;
    for (int n = in.byte() % 9; n > 0; --n) text += alphabet[in.byte() % (sizeof alphabet - 1)];
    return text;
}

void act(Station& st, fuzz::InputReader& in) {
    const std::vector<Control>& all = st.controls.all();
    const std::uint8_t what = in.byte();
    const std::string name = all[static_cast<std::uint16_t>(in.int16()) % all.size()].name;
    switch (what % 9) {
    case 0:
        press(st, name);
        break;
    case 1:
        press(st, name, "right");
        break;
    case 2:
        for (int n = in.byte() % 64; n > 0; --n) {
            if (st.T1) replaytick(st);
            if (st.T2) amodetick(st);
            if (st.track.Timer1) followtrack(st);
        }
        break;
    case 3:
        scroll(st, name, in.int32());
        break;
    case 4:
        enter(st, name, textof(in));
        break;
    case 5: {
        const char* kind = kinds[in.byte() % 3];
        const char* button = buttons[in.byte() % 2];
        const double x = in.int16() / 4.0, y = in.int16() / 4.0;
        mouse(st, name, {kind, button, x, y});
        break;
    }
    case 6:
        keypress(st, name, keys[in.byte() % std::size(keys)]);
        break;
    case 7:
        setcontrol(st, name, textof(in));
        break;
    default:
        clickrow(st, name, in.int16());
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::FuzzStation f;
    if (!f.open(recording())) return 0;
    fuzz::InputReader in(data, size);
    for (int n = 0; n < 16 && !in.done() && !f.st.process.ended; ++n) {
        try {
            act(f.st, in);
        } catch (const ControlError&) {
        } catch (const ControlClosed&) {
        }
        fuzz::checkside(f.st.zhu);
    }
    return 0;
}

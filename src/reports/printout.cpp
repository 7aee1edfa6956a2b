#include "reports/printout.h"

#include "amode/amode.h"
#include "bmode/bmode.h"
#include "processing/safefile.h"
#include "processing/zoom.h"
#include "replay/bofang.h"
#include "replay/transport.h"
#include "reports/notice.h"
#include "station/settings.h"
#include "station/station.h"

namespace orvane {

namespace {

constexpr std::uint32_t white = rgb(255, 255, 255), black = 0;

// The B-mode pictures recoloured and drawn anew, and the A-mode in force with its new background.
void redrawpictures(Station& st) {
    background(st);
    bofang(st);
    if (st.form.comparisonvisible) bofangdb(st);
}

// The steps every print shares: the pictures in the colours in force, the print panel with the
// defect note, and the notice.
void printwithcolours(Station& st) {
    redrawpictures(st);
    if (amodeshown(st)) redrawamode(st);
    st.Frame5visible = true;
    drawdefectnote(st);
    opennotice(st);
}

} // namespace

std::string amodecaption(const Station& st) {
    const auto it = st.form.captions.find("Labelaxxs");
    if (it != st.form.captions.end()) return it->second;
    return english(st) ? "A-mode" : "A型显示";
}

bool amodeshown(const Station& st) {
    const std::string caption = amodecaption(st);
    return caption != "A型显示" && caption != "A-mode";
}

void printpicture(Station& st, const std::string& button) {
    st.savedtimers = std::pair{st.T1, st.T2};
    st.T1 = st.T2 = false;
    const bool right = button == "right";
    if (right && st.settings.color("bxianbackcolor") == white) return;
    st.savedcolors = Station::SavedColors{st.settings.color("bxianbackcolor"),
                                          st.settings.color("biaochicolor"), st.settings.channelcolor[8]};
    if (!english(st) && right) {
        st.settings.setcolor("bxianbackcolor", white);
        st.settings.setcolor("biaochicolor", black);
        // Channel I would vanish on white paper.
        if (st.settings.channelcolor[8] == white) st.settings.setcolor("icolor", black);
    }
    printwithcolours(st);
}

void printshown(Station& st) {
    if (!pausefirst(st)) return;
    printwithcolours(st);
    if (replaying(st)) pressplay(st);
}

void closeprintpanel(Station& st) {
    st.Frame5visible = false;
    if (st.savedcolors) {
        st.settings.setcolor("bxianbackcolor", st.savedcolors->back);
        st.settings.setcolor("biaochicolor", st.savedcolors->grid);
        st.settings.setcolor("icolor", st.savedcolors->channel8);
        st.savedcolors.reset();
    }
    redrawpictures(st);
    if (st.Picture5visible) redrawamode(st);
    if (st.savedtimers) {
        std::tie(st.T1, st.T2) = *st.savedtimers;
        st.savedtimers.reset();
    }
}

void savewindowpicture(Station& st) {
    // What the user sees now, before the dialog covers it.
    const std::string picture = st.screen ? st.screen->windowbitmap() : std::string();
    const std::optional<std::string> name = st.ui->savefile("位图文件(*.bmp)|*.bmp| ", "bmp");
    if (!name || name->empty() || *name == " ") return;
    if (picture.empty()) {
        st.ui->message("没有可保存的图像");
        return;
    }
    if (const auto failed = commitfile(*name, "", picture)) {
        st.ui->message("无法保存图像：" + *name + "（" + *failed + "）");
        return;
    }
    st.written.push_back(*name);
}

void capturescreen(Station& st, Side& side) {
    bofang(st, side);
    side.Label14.visible = false;
    side.Label14.text.clear();
    if (st.hooks.capture) st.hooks.capture(st);
}

} // namespace orvane

#include "processing/comparison.h"

#include "amode/amode.h"
#include "bmode/bmode.h"
#include "processing/filter.h"
#include "recording/panels.h"
#include "recording/walk.h"
#include "replay/bofang.h"
#include "replay/transport.h"
#include "station/station.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace orvane {

namespace {

// The job start of the comparison, "hh:mm:ss" from the clock of its first sample.
std::string starttime(const Side& side) {
    const std::string& clock = side.sampleclock[0];
    return clock.size() < 6 ? std::string()
                            : clock.substr(0, 2) + ":" + clock.substr(2, 2) + ":" + clock.substr(4, 2);
}

// A second opening clears the first three columns of the scaled grid over the rows of the main
// recording; other columns keep what an earlier comparison or the filter's backup left there.
void clearcomparison(Station& st) {
    Side& side = st.cong;
    const std::int64_t last = std::min<std::int64_t>(st.zhu.lastposition, side.gridrows - 1);
    for (std::int64_t r = 0; r <= last; ++r) std::fill(side.samplegrid[r], side.samplegrid[r] + 3, 0);
}

// Back to the closed state when the opening cannot go on: the display mode as it was, and the
// button pressed once more, which closes.
void backout(Station& st) {
    st.form.lts1visible = st.form.pb1visible = false;
    st.displaymode = st.savedmode;
    presscomparison(st);
}

} // namespace

void presscomparison(Station& st) {
    if (!pausefirst(st)) return;
    if (st.form.Command14enabled) {
        st.ui->message(comparisoninfilter);
        return;
    }
    st.layoutchanged = 1;
    comparisonopen(st) ? closecomparison(st) : opencomparison(st);
}

void opencomparison(Station& st) {
    st.form.accenabled = false; // a stretch can't be saved from a comparison
    st.form.captions["Command17"] = english(st) ? "Single" : "关闭对比";
    makecomparisonstore(st, comparisonstorelast, 0);
    st.Text2 = kilometrenote(st.zhu);
    st.savedmode = st.displaymode;

    std::string path = st.scratchpath;
    std::optional<std::string> chosen;
    if (st.scratchpath == "deng") chosen = st.ui->openfile(comparisonfilter, "KTR");
    st.form.lts1 = english(st) ? "importing..." : "正在导入，请稍候。。。";
    st.form.lts1visible = st.form.pb1visible = true;
    st.form.pb1value = 0;
    if (st.scratchpath == "deng") {
        if (!chosen) {
            backout(st);
            return;
        }
        path = *chosen;
        st.ui->message(path);
    }

    clearcomparison(st);
    st.cong.filepath = path;
    const bool walked = walkfile(st, st.cong);
    if (!walked || st.cong.samplecount == 0) {
        if (walked) st.ui->message("对比文件没有数据：" + path);
        backout(st);
        return;
    }

    // Comparison always runs in the combined layout, whatever the user had chosen.
    st.displaymode = "zuhe";
    st.form.comparisonvisible = true;
    setcell(st.cong.Grid2, 1, 3, starttime(st.cong));
    st.cong.railcode = "60";
    applyparam(st, st.cong, 0);
    showgpsentry(st, st.cong, 0);
    layout(st);
    background(st);
    bofang(st);
    st.form.labels.erase("Label10");
    st.form.Lzygkdb = comparisonheading(st);
    st.form.lts1visible = st.form.pb1visible = false;
    st.form.Command20visible = true;
    seekkilometredb(st); // the comparison starts at the main view's kilometre
}

void closecomparison(Station& st) {
    st.form.captions["Command17"] = english(st) ? "Double" : "打开对比";
    st.form.Command20enabled = false;
    st.form.comparisonvisible = false;
    st.displaymode = st.savedmode;
    if (st.scratchpath != "deng") {
        std::error_code ec;
        fs::remove(st.scratchpath, ec);
        st.scratchpath = "deng";
    }
    st.playside = "zhu";
    layout(st);
    background(st);
    bofang(st);
}

} // namespace orvane

#include "bmode/alignment.h"

#include "station/ports.h"
#include "station/station.h"

#include <algorithm>

namespace orvane {

Side& alignedside(Station& st) {
    return st.alignment.comparison ? st.cong : st.zhu;
}

void openalignment(Station& st, bool comparison) {
    if (st.alignment.open) return;
    st.alignment.open = true;
    st.alignment.comparison = comparison;
    Side& side = alignedside(st);
    std::copy_n(side.pinkongval.begin(), 8, side.pinkongbase.begin());
    st.alignment.savedstep = st.replaystep;
    st.replaystep = 0;
    st.T1 = true;
    st.playside = comparison ? "cong" : "zhu";
}

void movealignment(Station& st, int channel, int value) {
    if (!st.alignment.open || channel < 0 || channel > 7) return;
    value = std::clamp(value, -200, 200);
    Side& side = alignedside(st);
    side.pinkongval[channel] = static_cast<std::int16_t>(side.pinkongbase[channel] + value);
}

void alignmentmode(Station& st, bool exact) {
    auto& words = st.zhu.pinkongval;
    // Channel I's word tells the state: it is not 0 only while words are in force.
    if (exact) {
        if (words[8] != 0) st.pinkongkeep = words;
        words.fill(0);
    } else if (words[8] == 0) {
        words = st.pinkongkeep;
    }
    closealignment(st);
}

bool alignmentstores(const Station& st) {
    return st.language != "english" && st.playside != "cong";
}

void savealignment(Station& st) {
    if (!alignmentstores(st)) return;
    Db& db = *st.gpsxdb;
    if (db.scalar("select count(*) from pinkong where jqbh=?", {st.machineno}).number() == 0)
        db.exec("insert into pinkong(jqbh) values(?)", {st.machineno});
    std::vector<std::string> values;
    for (int k = 0; k < 8; ++k) values.push_back(std::to_string(st.zhu.pinkongval[k]));
    values.push_back(st.machineno);
    db.exec("update pinkong set apk=?,bpk=?,cpk=?,dpk=?,epk=?,fpk=?,gpk=?,hpk=? where jqbh=?", values);
}

void deletealignment(Station& st) {
    if (!alignmentstores(st)) return;
    st.gpsxdb->exec("delete from pinkong where jqbh=?", {st.machineno});
}

void closealignment(Station& st) {
    if (!st.alignment.open) return;
    st.alignment.open = false;
    st.replaystep = st.alignment.savedstep;
    st.T1 = false;
    st.pinkonghit = 1;
    st.hooks.bofang(st, alignedside(st));
    st.form.captions["Command8"] = st.language == "english" ? "Play" : "连续播放";
}

} // namespace orvane

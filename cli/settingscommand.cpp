#include "commands.h"

#include "json.h"
#include "station/station.h"
#include "stores/settingsstore.h"

namespace orvane::cli {

namespace {

void dbvalue(Json& j, const DbValue& v) {
    switch (v.kind) {
    case DbValue::Kind::integer:
        j.value(v.integer);
        break;
    case DbValue::Kind::real:
        j.value(v.real);
        break;
    case DbValue::Kind::text:
        j.value(v.text);
        break;
    case DbValue::Kind::null:
        j.null();
        break;
    }
}

} // namespace

std::string settingsjson(Station& st) {
    Json j;
    j.beginobject().key("color").beginobject();
    std::string fields;
    for (const char* f : colorfields) fields += std::string(",") + f;
    for (const DbRow& row : st.colordb->rows("select weizhi" + fields + " from color order by rowid")) {
        j.key(row[0].astext()).beginobject();
        for (std::size_t i = 0; i < colorfields.size(); ++i) {
            j.key(colorfields[i]);
            dbvalue(j, row[i + 1]);
        }
        j.endobject();
    }
    j.endobject();

    const Settings& s = st.settings;
    j.key("biaojiname").beginarray();
    for (const auto& name : s.biaojiname) j.value(name);
    j.endarray();
    j.key("biaojikcpair").beginarray();
    for (const auto& pair : s.biaojikcpair) j.beginarray().value(pair[0]).value(pair[1]).endarray();
    j.endarray();

    j.key("memory").beginobject();
    j.key("language").value(st.language);
    j.key("displaymode").value(st.displaymode);
    j.key("bofsd").value(int(s.bofsd));
    j.key("diandx").value(int(s.diandx));
    j.key("zuhfj").value(int(s.zuhfj));
    j.key("manualstep").value(int(s.manualstep));
    j.key("viewspan").value(int(s.viewspan));
    j.key("markplace").value(int(s.markplace));
    j.key("latewaveshown").value(int(s.latewaveshown));
    j.key("reverseshow").value(int(s.reverseshow));
    j.key("vshape").value(int(s.vshape));
    j.key("wholefile").value(int(s.wholefile));
    j.key("integralshown").value(int(s.integralshown));
    j.key("losswavelimit").value(int(s.losswavelimit));
    j.key("colorset").beginobject();
    for (std::size_t i = 0; i < colorkeys.size(); ++i) j.key(colorkeys[i]).value(std::int64_t(s.colorset[i]));
    j.endobject();
    j.key("channelcolor").beginarray();
    for (auto c : s.channelcolor) j.value(std::int64_t(c));
    j.endarray();
    j.endobject();
    j.endobject();
    return j.text();
}

} // namespace orvane::cli

#include "commands.h"
#include "json.h"
#include "station/station.h"

#include <type_traits>

namespace orvane::cli {

namespace {

// Elements 0 to LAST of a list or an array of the station, as JSON values.
template <class List> void list(Json& j, const std::string& name, const List& values, std::int64_t last) {
    using T = typename List::value_type;
    j.key(name).beginarray();
    for (std::int64_t i = 0; i <= last && i < static_cast<std::int64_t>(values.size()); ++i) {
        if constexpr (std::is_same_v<T, bool>)
            j.value(static_cast<bool>(values[i]));
        else if constexpr (std::is_same_v<T, std::string>)
            j.value(values[i]);
        else if constexpr (std::is_same_v<T, float>)
            j.value(values[i]);
        else
            j.value(static_cast<std::int64_t>(values[i]));
    }
    j.endarray();
}

void table(Json& j, const std::string& name, const Table& cells) {
    j.key(name).beginarray();
    for (const auto& row : cells) {
        j.beginarray();
        for (const auto& cell : row) j.value(cell);
        j.endarray();
    }
    j.endarray();
}

// What the window shows after the first activation: the job summary labels and the three grids.
void panels(Json& j, const Station& st) {
    j.key("panels").beginobject();
    for (const char* name : {"Lzygk", "Lzyrq", "Ljqbh", "Lqssj", "Ljssj", "Lgzsj", "Lqslc", "Ljslc", "Ltccd",
                             "Label2_1", "Label2_8", "Label2_9"}) {
        auto it = st.form.labels.find(name);
        j.key(name).value(it == st.form.labels.end() ? std::string() : it->second);
    }
    j.key("meanspeed").value(st.meanspeed);
    table(j, "Grid1", st.zhu.Grid1);
    table(j, "Grid2", st.zhu.Grid2);
    table(j, "Grid3", st.zhu.Grid3);
    j.endobject();
}

} // namespace

void cellsjson(Json& j, const std::string& key, const Side& s, std::pair<std::int64_t, std::int64_t> range) {
    j.key(key).beginarray();
    for (std::int64_t p = std::max<std::int64_t>(0, range.first); p <= range.second && p < s.gridrows; ++p)
        for (int c = 0; c < 13; ++c)
            if (s.samplegrid[p][c] != 0 || s.rawvalue(p, c) != 0)
                j.beginarray()
                    .value(p)
                    .value(c)
                    .value(std::int64_t(s.samplegrid[p][c]))
                    .value(std::int64_t(s.rawvalue(p, c)))
                    .endarray();
    j.endarray();
}

std::string dumpjson(Station& st, const std::string& file, const std::vector<std::string>& messages,
                     const DumpRanges& ranges) {
    const Side& s = st.zhu;
    Json j;
    j.beginobject();
    j.key("file").value(file);
    j.key("messages").beginarray();
    for (const auto& m : messages) j.value(m);
    j.endarray();
    const std::pair<const char*, std::int64_t> scalars[] = {{"lastposition", s.lastposition},
                                                            {"segmentbase", s.segmentbase},
                                                            {"samplecount", s.samplecount},
                                                            {"gpscount", s.gpscount},
                                                            {"jobcount", s.jobcount},
                                                            {"paramcount", s.paramcount},
                                                            {"markcount", s.markcount},
                                                            {"fecount", s.fecount},
                                                            {"fdcount", s.fdcount},
                                                            {"stopcount", s.stopcount},
                                                            {"restartcount", st.restartcount},
                                                            {"analystcount", st.analystcount},
                                                            {"quartercount", s.quartercount},
                                                            {"quarterlast", s.quarterlast},
                                                            {"foldvalue", s.foldvalue},
                                                            {"pinkonghit", st.pinkonghit}};
    for (auto& [name, value] : scalars) j.key(name).value(value);
    j.key("analysiscount").value(std::int64_t(st.analysiscount));
    const std::pair<const char*, const std::string*> texts[] = {{"railcode", &s.railcode},
                                                                {"subwayflag", &st.subwayflag},
                                                                {"bureauflag", &st.bureauflag},
                                                                {"trackside", &st.trackside},
                                                                {"countdirection", &st.countdirection},
                                                                {"resetmodetext", &st.resetmodetext},
                                                                {"machineno", &st.machineno},
                                                                {"jobcaption", &st.jobcaption},
                                                                {"jobdatetext", &st.jobdatetext},
                                                                {"analystname", &st.analystname}};
    for (auto& [name, value] : texts) j.key(name).value(*value);

    // Lists with their sentinel: elements 0 to count.
    list(j, "samplepos", s.samplepos, s.samplecount);
    list(j, "sampleclock", s.sampleclock, s.samplecount);
    list(j, "parampos", s.parampos, s.paramcount);
    list(j, "paramrec", s.paramrec, s.paramcount);
    list(j, "jobpos", s.jobpos, s.jobcount);
    list(j, "gpspos", s.gpspos, s.gpscount);
    // Lists of elements 0 to count - 1.
    list(j, "samplespeed", s.samplespeed, s.samplecount - 1);
    list(j, "speedhex", s.speedhex, s.samplecount - 1);
    list(j, "gpstext", s.gpstext, s.gpscount - 1);
    list(j, "suppressionon", s.suppressionon, s.gpscount - 1);
    list(j, "jobrec", s.jobrec, s.jobcount - 1);
    list(j, "markpos", s.markpos, s.markcount - 1);
    list(j, "marktext", s.marktext, s.markcount - 1);
    list(j, "fepos", s.fepos, s.fecount - 1);
    list(j, "feval", s.feval, s.fecount - 1);
    list(j, "fdpos", s.fdpos, s.fdcount - 1);
    list(j, "fdval", s.fdval, s.fdcount - 1);
    list(j, "stoplist", s.stoplist, s.stopcount - 1);
    list(j, "analystlist", st.analystlist, st.analystcount - 1);
    list(j, "analysispos", st.analysispos, st.analysiscount - 1);
    list(j, "analysislist", st.analysislist, st.analysiscount - 1);
    list(j, "quarterindex", s.quarterindex, s.quarterlast);

    list(j, "channelkind", s.channelkind, 8);
    list(j, "channelscale", s.channelscale, 8);
    list(j, "pinkongval", s.pinkongval, 8);

    panels(j, st);

    const std::int64_t rows = s.gridrows;
    if (ranges.cells) cellsjson(j, "cells", s, *ranges.cells);
    if (ranges.mileage) {
        j.key("mileage").beginarray();
        // Cut to the grid's rows as the cells are: a range past them asks for nothing there is.
        for (std::int64_t p = std::max<std::int64_t>(0, ranges.mileage->first);
             p <= ranges.mileage->second && p < rows; ++p)
            j.beginarray().value(p).value(s.mileage[p][0]).endarray();
        j.endarray();
    }
    j.endobject();
    return j.text();
}

} // namespace orvane::cli

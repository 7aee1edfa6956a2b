#include "station/station.h"

namespace orvane {

namespace {
// The highest rows of the grids: the main side's 6,400,000, the comparison side's 6,000,000.
constexpr std::int64_t maingridlast = 6400000;
constexpr std::int64_t comparisongridlast = 6000000;
// Rows made ready beyond a position at a time (the decoders write up to 300 positions ahead).
constexpr std::int64_t ahead = 65536;
} // namespace

Side::Side(bool mainside) : main(mainside), gridlast(mainside ? maingridlast : comparisongridlast) {}

bool Side::growgrids(std::int64_t position) {
    if (position < 0 || position > gridlast) return false;
    std::int64_t last = std::min(gridlast, position + ahead);
    samplegrid.reserverows(last, gridlast);
    rawgrid.reserverows(last, gridlast);
    mileage.reserverows(last, gridlast);
    gridrows = last + 1;
    return true;
}

Control formtext(const std::string& name, std::string Form28State::*field) {
    Control c = control(name, ControlKind::textbox);
    c.textof = [field](const Station& st) { return st.form.*field; };
    c.text = [field](Station& st, const std::string& text) { st.form.*field = text; };
    return c;
}

void setcell(Table& table, std::size_t row, std::size_t column, const std::string& text) {
    if (row < table.size() && column < table[row].size()) table[row][column] = text;
}

} // namespace orvane

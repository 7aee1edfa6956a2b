#include "app/station.h"

namespace orvane {

namespace {
// The highest rows of the grids: the main side's 6,400,000, the comparison side's 6,000,000.
constexpr std::int64_t maingridlast = 6400000;
constexpr std::int64_t comparisongridlast = 6000000;
// Rows kept ready beyond a position: the decoders write up to 300 positions ahead of an entry.
constexpr std::int64_t ahead = 1024;
} // namespace

Side::Side(bool mainside) : main(mainside), gridlast(mainside ? maingridlast : comparisongridlast) {}

bool Side::reachgrids(std::int64_t position) {
    if (position < 0 || position > gridlast) return false;
    if (position < samplegrid.rows()) return true;
    std::int64_t last = std::min(gridlast, position + ahead);
    samplegrid.reserverows(last);
    rawgrid.reserverows(last);
    mileage.reserverows(last);
    return true;
}

void Side::fitgrids() {
    samplegrid.fit();
    rawgrid.fit();
    mileage.fit();
}

} // namespace orvane

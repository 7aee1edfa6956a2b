#include "recording/zaodibo.h"

#include "recording/decoders.h"
#include "recording/hex.h"
#include "station/numbers.h"
#include "station/station.h"

#include <algorithm>

namespace orvane {

namespace {

// The bottom echo of the rail code digit of a parameter record; a digit outside 1 to 4 keeps the
// height of the segment before (the "60" rail before any).
float footheight(const Station& st, const std::string& image, float before) {
    const int digit = static_cast<int>(hexvalue(mid(image, 352, 1)));
    if (digit < 1 || digit > 4) return before;
    float height = st.railheight[digit];
    if (st.railoverride == "45" && height == 384) height = 290;
    return height;
}

// Sets column COLUMN to 0 over the N positions that end at END.
void clearrun(Side& side, int column, std::int32_t end, std::int32_t n, bool marklost) {
    const std::int64_t from = std::max<std::int64_t>(0, static_cast<std::int64_t>(end) - n + 1);
    const std::int64_t to = std::min<std::int64_t>(end, side.gridrows - 1);
    for (std::int64_t p = from; p <= to; ++p) {
        side.samplegrid[p][column] = 0;
        if (marklost) side.lossmark[p] = true;
    }
}

} // namespace

void zaodibo(Station& st, Side& side) {
    Clock& clock = *st.clock;
    const bool subway = side.main && st.subwayflag == "beijingditie";
    side.lossmark.assign(static_cast<std::size_t>(side.gridrows), false);
    // Every empty cell counts; at each multiple of the run length the foot line steps. The next
    // multiple is kept instead of dividing at every cell.
    std::int64_t counter = 0, due = 0;
    auto newrun = [&](std::int64_t run) { due = (counter / run + 1) * run; };
    float height = st.railheight[3];
    for (std::int32_t i = 0; i < side.paramcount; ++i) {
        if (side.parampos[i + 1] > positionlimit) break;
        height = footheight(st, side.paramrec[i], height);
        const auto flat = static_cast<std::int16_t>(roundeven(height));
        const std::int16_t subwayfoot = static_cast<std::int16_t>(roundeven(height + 5));
        newrun(static_cast<std::int64_t>(clock.rnd() * 16 + 5));
        clock.rnd(); // a second draw that the foot line never uses
        const std::int64_t last = std::min<std::int64_t>(side.parampos[i + 1], side.gridrows - 1);
        for (std::int64_t p = std::max(0, side.parampos[i]); p <= last; ++p) {
            std::int16_t* row = side.samplegrid[p];
            if (row[8] == 0) {
                if (++counter != due) {
                    row[8] = flat;
                } else {
                    // The foot line stays flat for 5 to 21 positions, then steps by up to two units.
                    const bool down = clock.rnd() * 2 > 1;
                    const double r = clock.rnd();
                    row[8] = static_cast<std::int16_t>(roundeven(down ? height - 2 * r : height + 2 * r));
                    newrun(static_cast<std::int64_t>(roundeven(clock.rnd() * 16 + 5)));
                }
            }
            if (subway) row[4] = subwayfoot;
        }
    }
    markbottomloss(st, side);
    if (subway)
        for (std::int32_t n = 0; n < side.fdcount; ++n)
            clearrun(side, 4, side.fdpos[n], side.fdval[n], false);
}

void markbottomloss(Station& st, Side& side) {
    // A loss once marked stays marked when the limit is raised again, as the raw value it stands for.
    side.lossmark.resize(static_cast<std::size_t>(side.gridrows), false);
    for (std::int32_t n = 0; n < side.fecount; ++n)
        clearrun(side, 8, side.fepos[n], side.feval[n], side.feval[n] > st.settings.losswavelimit);
}

} // namespace orvane

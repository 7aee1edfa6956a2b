#include "reports/rawsamples.h"

#include "reports/shelf.h"
#include "reports/workbook.h"
#include "station/station.h"

#include <cmath>

namespace orvane {

namespace {

// The channel of the A-mode's one-character text, "A" to "I"; -1 for none.
int channelof(const Station& st) {
    const int k = st.amodechannel.empty() ? -1 : st.amodechannel[0] - 'A';
    return k >= 0 && k < 9 ? k : -1;
}

// The speed of sound by which the channel's kind scaled its values.
float speedof(const std::string& kind, int k) {
    return k == 8 || kind == "12" || kind == "13" || kind == "00" ? 0.0593f : 0.0323f;
}

} // namespace

Workbook rawsamplebook(const Station& st) {
    Workbook book;
    Sheet& s = book.sheet(1);
    const int k = channelof(st);
    if (k < 0) return book;
    const Side& z = st.zhu;
    s.write(2, 1, "处理后数值");
    s.write(2, 2, "原始数值");
    for (int b = 0; b < 12; ++b) {
        s.write(3, 2 * b + 1, static_cast<double>(b * 100));
        for (int i = 0; i < 100; ++i) {
            const std::int64_t index = static_cast<std::int64_t>(b) * 100 + i + z.viewindex;
            const std::int32_t row = z.mapat(index + z.pinkongval[static_cast<std::size_t>(k)]);
            const bool inside = row >= 0 && row < z.gridrows;
            const std::int32_t raw = inside ? z.rawvalue(row, k) : 0;
            if (raw == Side::losssign) continue; // the loss sign blanks both
            double processed = z.cellat(row, k);
            if (processed == raw) {
                const float scale = z.channelscale[static_cast<std::size_t>(k)];
                processed = scale != 0
                                ? std::trunc(processed /
                                             speedof(z.channelkind[static_cast<std::size_t>(k)], k) / scale)
                                : processed;
            }
            s.write(i + 4, 2 * b + 1, processed);
            s.write(i + 4, 2 * b + 2, static_cast<double>(raw));
        }
    }
    return book;
}

void pressrawsamples(Station& st) {
    if (channelof(st) < 0) return;
    handover(st, rawsamplebook(st), "rawsamples");
}

} // namespace orvane

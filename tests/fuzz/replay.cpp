// The first activation of any file, then pictures at view indices and alignment words from the
// input. The input: nine alignment words (16 bits), four view indices (32 bits), then the recording.
#include "fuzzstation.h"
#include "replay/bofang.h"

#include <array>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orvane;
    fuzz::InputReader in(data, size);
    std::array<std::int16_t, 9> words;
    for (auto& w : words) w = in.int16();
    std::array<std::int32_t, 4> indices;
    for (auto& v : indices) v = in.int32();
    const std::string path = fuzz::writeinput(in.rest(), in.restsize());

    fuzz::FuzzStation f;
    if (!f.open(path)) return 0;
    Side& z = f.st.zhu;
    fuzz::checkside(z);
    if (z.samplecount == 0) return 0;
    bofang(f.st);
    // The alignment words as the channel options would set them, and the map built again.
    z.pinkongval = words;
    f.st.hooks.rebuildmap(f.st, z);
    // A view index anywhere the map reaches, as the position bar and the seek put it.
    for (std::int32_t v : indices) {
        const auto reach = static_cast<std::int64_t>(z.viewmap.size());
        z.viewindex = static_cast<std::int32_t>(reach > 0 ? (static_cast<std::uint32_t>(v) % reach) : 0);
        bofang(f.st);
    }
    return 0;
}

// The walk of any file: first as the main side, then as the comparison side.
#include "recording/walk.h"
#include "fuzzstation.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orvane;
    const std::string path = fuzz::writeinput(data, size);
    fuzz::FuzzStation f;
    f.st.railheight = {0, 280, 304, 352, 384}; // as the first activation sets them
    f.st.zhu.filepath = path;
    walkfile(f.st, f.st.zhu);
    fuzz::checkside(f.st.zhu);
    f.st.cong.filepath = path;
    walkfile(f.st, f.st.cong);
    fuzz::checkside(f.st.cong);
    return 0;
}

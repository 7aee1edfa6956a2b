#include "recording/walk.h"

#include "recording/decoders.h"
#include "recording/hex.h"
#include "recording/zaodibo.h"
#include "station/numbers.h"
#include "station/station.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace orvane {

namespace {

// Records read from the file at a time.
constexpr std::size_t blockrecords = 4096;

// The bounds of the event lists: elements 0 to the bound.
void resetside(Station& st, Side& side) {
    auto fit = [](auto& list, std::size_t bound) {
        if (list.size() != bound + 1) list.assign(bound + 1, {});
    };
    fit(side.gpstext, 10000);
    fit(side.gpspos, 10000);
    fit(side.jobrec, 1000);
    fit(side.jobpos, 1000);
    fit(side.paramrec, 10000);
    fit(side.parampos, 10000);
    fit(side.marktext, 10000);
    fit(side.markpos, 10000);
    fit(side.sampleclock, 100000);
    fit(side.samplepos, 100000);
    fit(side.samplespeed, 100000);
    fit(side.fepos, 100000);
    fit(side.feval, 100000);
    fit(side.stoplist, 10000);
    fit(side.quarterindex, 5000);
    if (side.main) {
        fit(side.suppressionon, 10000);
        fit(side.speedhex, 100000);
        fit(side.fdpos, 10000);
        fit(side.fdval, 10000);
        st.subwayflag = "feibeijingditie";
        st.restartcount = 0;
        st.analystcount = 0;
        st.analysiscount = 0;
    }
    side.segmentbase = st.baseoffset;
    side.gpscount = side.jobcount = side.paramcount = side.markcount = side.samplecount = 0;
    side.stopcount = side.fecount = side.fdcount = 0;
    side.quartercount = side.quarterlast = 0;
    side.abortflag = 0;
}

void dispatch(Station& st, Side& side, const std::uint8_t* record) {
    switch (record[0]) {
    case 0x42:
        decodedetection(st, side, record);
        break;
    case 0x43:
        storeparam(st, side, record);
        break;
    case 0x45:
    case 0x57:
        storejob(st, side, record);
        break;
    case 0x4D:
        decodesample(st, side, record);
        break;
    case 0x53:
        restartsegment(st, side, record);
        break;
    case 0x44:
        if (side.main) decodeanalysis(st, record);
        break;
    case 0x58:
        if (side.main) decodeanalyst(st, record);
        break;
    case 0x59:
        if (side.main) decodeanalystname(st, record);
        break;
    default:
        break; // empty records and unknown types
    }
}

// Reads every record of the file; false when the file cannot be read at all.
bool readfile(Station& st, Side& side) {
    std::error_code ec;
    const std::string& path = side.filepath;
    if (!fs::is_regular_file(path, ec)) {
        st.ui->message("无法读取文件：" + path);
        return false;
    }
    const auto length = fs::file_size(path, ec);
    std::ifstream in(path, std::ios::binary);
    if (ec || !in) {
        st.ui->message("无法读取文件：" + path);
        return false;
    }
    // A length that is no multiple of 256 may leave a partial last record, read with zeros behind.
    const double n = static_cast<double>(length) / recordbytes;
    const auto last = static_cast<std::int64_t>(roundeven(n - 1));
    st.ui->progressmax(n);
    // A short recording takes a block of its own length, not a whole block of the long ones.
    const std::int64_t blocklength = std::clamp<std::int64_t>(last + 1, 1, blockrecords);
    std::vector<std::uint8_t> block(static_cast<std::size_t>(blocklength) * recordbytes);
    for (std::int64_t first = 0; first <= last && side.abortflag != 1; first += blocklength) {
        const std::int64_t count = std::min<std::int64_t>(blocklength, last - first + 1);
        std::memset(block.data(), 0, block.size());
        in.read(reinterpret_cast<char*>(block.data()), count * recordbytes);
        if (in.bad()) {
            st.ui->message("读取文件失败：" + path + "，记录 " + std::to_string(first));
            return true;
        }
        in.clear();
        for (std::int64_t k = 0; k < count && side.abortflag != 1; ++k) {
            dispatch(st, side, block.data() + k * recordbytes);
            st.ui->progress(static_cast<long>(first + k));
        }
    }
    return true;
}

bool lastcharisextension(const std::string& path) {
    return !path.empty() && (path.back() == 'r' || path.back() == 'R');
}

} // namespace

void completemileage(Side& side) {
    const std::int64_t end = std::min<std::int64_t>(side.lastposition, side.mileage.rows() - 1);
    std::int64_t i = 0;
    while (i < static_cast<std::int64_t>(side.lastposition) - 10 && i <= end) {
        const float mi = side.mileage[i][0];
        if (mi == 0) {
            ++i;
            continue;
        }
        std::int64_t j = i + 1;
        while (j <= end && side.mileage[j][0] == 0) ++j;
        if (j > end) break;
        const float mj = side.mileage[j][0];
        const float difference = mj - mi;
        // At most 400 metres is taken as continuous; a larger jump is a post change or a correction.
        if (std::fabs(difference) <= 0.4f) {
            const double slope = static_cast<double>(difference) / static_cast<double>(j - i);
            for (std::int64_t k = i + 1; k < j; ++k)
                side.mileage[k][0] = static_cast<float>(mi + slope * static_cast<double>(k - i));
        }
        i = j;
    }
}

namespace {

// The end of the file lies at least 400 positions behind the last sample and job record; the grids
// must reach it. Then the flags of the line from the last job record and the sentinels behind the
// lists' counts. A file without samples ends the walk here.
bool endwalk(Station& st, Side& side) {
    if (side.samplecount > 0 && side.lastposition < side.samplepos[side.samplecount - 1] + 400)
        side.lastposition = side.samplepos[side.samplecount - 1] + 400;
    if (side.jobcount > 0 && side.lastposition < side.jobpos[side.jobcount - 1] + 400)
        side.lastposition = side.jobpos[side.jobcount - 1] + 400;
    if (side.samplecount == 0) return false;
    if (!side.reachgrids(side.lastposition)) {
        st.ui->message("记录位置超出范围：" + side.filepath + "，结束位置 " +
                       std::to_string(side.lastposition) + " 截至 " + std::to_string(side.gridlast));
        side.lastposition = static_cast<std::int32_t>(side.gridlast);
        side.abortflag = 1;
    }

    if (side.main && side.jobcount > 0) {
        // Byte 121 of the last job record: "02" a subway line, a low digit 1 the Beijing bureau.
        const std::string& job = side.jobrec[side.jobcount - 1];
        if (job.size() >= 244) {
            st.subwayflag = job.compare(242, 2, "02") == 0 ? "beijingditie" : "feibeijingditie";
            st.bureauflag = job[243] == '1' ? "beijingjv" : "feibjj";
        }
    }

    side.seglist.assign(static_cast<std::size_t>(side.samplecount + side.jobcount) + 1, 0);
    side.stopflag.assign(10001, 0);
    side.parampos[0] = side.jobpos[0] = side.gpspos[0] = side.samplepos[0] = 0;
    side.parampos[side.paramcount] = side.lastposition;
    side.jobpos[side.jobcount] = side.lastposition;
    side.gpspos[side.gpscount] = side.lastposition;
    side.samplepos[side.samplecount] = side.lastposition;
    if (side.paramcount > 0) side.paramrec[side.paramcount] = side.paramrec[side.paramcount - 1];
    side.sampleclock[side.samplecount] = side.sampleclock[side.samplecount - 1];
    return true;
}

bool mileagestep(Station&, Side& side) {
    completemileage(side);
    return true;
}

bool bottomwavestep(Station& st, Side& side) {
    zaodibo(st, side);
    return true;
}

bool mapstep(Station& st, Side& side) {
    side.scrollmax = scrollmaximum(side.lastposition);
    st.hooks.rebuildmap(st, side);
    side.quarterindex[0] = 0;
    side.quarterlast = (side.quartercount + 3) / 4;
    side.quarterindex[side.quarterlast] = side.lastposition + 500;
    return true;
}

constexpr WalkStep steps[] = {
    {"ends", endwalk}, {"mileage", mileagestep}, {"bottom wave", bottomwavestep}, {"map", mapstep}};

} // namespace

bool readrecords(Station& st, Side& side) {
    if (!side.main) {
        std::error_code ec;
        if (!fs::exists(side.filepath, ec) || !lastcharisextension(side.filepath)) {
            st.ui->message(side.filepath + "有误");
            return false;
        }
    }
    resetside(st, side);
    return readfile(st, side);
}

std::span<const WalkStep> walksteps() {
    return steps;
}

bool walkfile(Station& st, Side& side) {
    if (!readrecords(st, side)) return false;
    for (const WalkStep& step : walksteps())
        if (!step.run(st, side)) break;
    return side.abortflag != 1;
}

} // namespace orvane

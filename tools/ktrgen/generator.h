#pragma once
// Writes a recording of the KRM-5T format from a scenario, and the truth of what it put where.
#include "scenario.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace ktrgen {

// What the recording holds, in the positions of the station's walk.
struct Truth {
    std::string preset;
    std::uint32_t seed = 0;
    std::int32_t lastposition = 0; // where the walk ends
    std::int32_t records = 0;
    std::int32_t samples = 0;
    std::int32_t gps = 0;
    std::int32_t params = 0;
    std::int32_t jobs = 0;                                   // 0x45, 0x57 and 0x53 records
    std::vector<std::pair<std::int32_t, std::string>> marks; // position and mark text, in file order
    std::vector<std::int32_t> restarts;                      // positions of the 0x53 records
    std::vector<std::int32_t> stops;                         // reversals: the stop positions
    std::vector<std::int32_t> joints;
    std::vector<std::int32_t> welds;
    std::vector<std::pair<std::string, std::int32_t>> defects;
    std::vector<std::pair<std::int32_t, std::int32_t>> overspeed; // sample positions above 3.0 km/h
    std::vector<std::int32_t> bottomloss; // end positions of the lost bottom echo entries
    // Positions of the GPS entries whose integral values lie below, or above, the grass-wave limits.
    std::vector<std::int32_t> lowintegral, highintegral;
};

struct Recording {
    std::vector<std::uint8_t> bytes;
    Truth truth;
};

// The same scenario and seed always give the same bytes.
Recording generate(const Scenario& s, std::uint32_t seed);

// The truth as JSON.
std::string truthjson(const Truth& t);

// Writes SIZE bytes through a partial file renamed into place, so that a failed run leaves no file
// behind; throws std::runtime_error naming the path when it cannot.
void writefile(const std::string& path, const char* data, std::size_t size);
// The recording's bytes as the file PATH.
void writefile(const std::string& path, const Recording& r);

} // namespace ktrgen

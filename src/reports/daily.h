#pragma once
// The daily report "日台数据分析报告": one day's work of one instrument. The job sheet with what was
// planned and done, the instrument's settings at four points of the run, the lowest integral values
// and their grass-wave ratings, and the checks of speed, grass wave and suppression at its foot; the
// detail sheets behind it. The report reads the lists of the analysis index as they stand.
#include "station/station.h"

#include <array>
#include <cstdint>
#include <string>

namespace orvane {

class Workbook;

// The parameter records read at the four points of the run: at 5000 (a quarter of a run shorter
// than that), a third and two thirds the record after the one in force there; at the end the last.
std::array<std::int32_t, 4> sensitivityrecords(const Side& side);
// "a/b": of the b GPS entries, the a whose first field isn't 0.
std::string gpsratio(const Side& side);
// The lowest integral value of each channel over rows 4 to the last of the list of integral values;
// rows whose nine values are all 0 don't count, and a list without such a row gives all 0.
std::array<double, 9> lowestintegral(const Table& integral);
// The grass-wave rating "<5" to "25" of the integral value V on CHANNEL (0 to 8).
std::string grassrating(int channel, double v);
// How often each of the hand marks 0 to 4 was set.
std::array<int, 5> markcounts(const Side& side);

// The daily report's workbook at the speed STANDARD: the job sheet and the four sheets of details.
Workbook dailybook(const Station& st, float standard);
// The daily report at STANDARD handed to the user, its count of overspeed kept.
void dailyreport(Station& st, float standard);

} // namespace orvane

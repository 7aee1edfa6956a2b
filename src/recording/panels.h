#pragma once
// What the window shows of the records in force: the parameter record in Grid1 and Grid3, the GPS
// entry in Grid1, Grid3 and Label2, the job record in Grid2, and the job summary after a load.
// Each routine takes the side it fills; the comparison side's twin is the same call with cong.
#include <cstdint>
#include <optional>
#include <string>

namespace orvane {

struct Station;
struct Side;
class Db;

// The name of a code in table TABLE (gzryb: staff, zyqjb: lines), if a row has it: the code is
// compared by its numeric value, so "007" and "7" are the same code. Without the station's databases
// (a headless measurement) no code has a name.
std::optional<std::string> codename(Db* db, const std::string& table, const std::string& column, double code);

// The heads of Grid1, Grid2 and Grid3 of both sides, as the window sets them when it loads.
void setpanelheads(Station& st);

// The label of a channel kind behind its letter in Grid1.
std::string channellabel(int kind, const std::string& trackside);
// The gain of a gain byte in dB with one decimal.
std::string gaintext(int gainbyte);

// Loads paramrec[index] of SIDE: channel kinds, scales and alignment words, Grid1, Grid3, railcode.
void applyparam(Station& st, Side& side, std::int32_t index);

// Shows gpstext[index] of SIDE: integral values and levels in Grid1, voltage in Grid3, and on the
// main side the position in Label2.
void showgpsentry(Station& st, Side& side, std::int32_t index);
// The level text of an integral value of channel k.
std::string integrallevel(int k, int value);

// Fills row 1 of Grid2 of SIDE from jobrec[index]; the time column only while the replay shows it.
void applyjob(Station& st, Side& side, std::int32_t index, bool timecolumn = false);

// The job summary of the main recording, once after the load: labels, length, mean speed, the
// instrument number and the alignment words of table pinkong.
void jobsummary(Station& st);
// The heading of the comparison over its picture, Lzygkdb: instrument number and date of its job.
std::string comparisonheading(const Station& st);

} // namespace orvane

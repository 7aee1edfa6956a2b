#pragma once
// Command24 "超速": the quality summary of a job with its overspeed places, in the layout and by the
// overspeed rule that the customer strings choose; and the job overview of the label Lzygk.
#include <cstdint>
#include <string>
#include <vector>

namespace orvane {

struct Station;
struct Side;
class Workbook;
struct Sheet;

// The fields of the job that every report fills, from the labels of the job summary, the panels at
// the replay's place and the tables of the station.
struct JobFields {
    std::string team, date, instrument, operators, line, direction, railside, railtype;
    std::string startmileage, endmileage, starttime, endtime, length, workingtime, meanspeed;
    std::string reflection, penetration, loss;
};
JobFields jobfields(const Station& st);

// The gain in dB of channel C (0 to 8) of a parameter record image.
double gainof(const std::string& paramimage, int channel);
// The gain in dB of a channel's gain byte, "30.0"; of channel C (0 to 8) of a parameter record image.
std::string sensitivityof(int gainbyte);
std::string sensitivityof(const std::string& paramimage, int channel);

// The sample rule: every stepsize-th sample from 1 is tested.
int stepsize(std::int32_t samplecount);
// The samples that the sample rule finds above STANDARD.
std::vector<std::int32_t> sampleoverspeed(const Side& side, float standard);
// The window rule: windows of 2500 steps, closed by the first sample past them; an incomplete last
// window isn't tested.
struct SpeedWindow {
    std::int32_t start = 0, end = 0; // the first and the closing sample
    float average = 0;
};
std::vector<SpeedWindow> windowoverspeed(const Side& side, float standard);
// The eight heads of the overspeed places in row ROW: "线别" to "速度".
void overspeedheads(Sheet& s, int row);
// Columns 5 to 8 of the place of window W in row ROW: time, mileage "±5米", operator, average.
void windowplace(Sheet& s, int row, const Station& st, const SpeedWindow& w);
// The count of overspeed by the rule that the build variant takes.
std::int32_t overspeedcount(const Station& st, float standard);

// The quality summary in its two layouts, and the job overview.
Workbook windowlayout(const Station& st, float standard);
Workbook samplelayout(const Station& st, float standard);
Workbook joboverview(const Station& st);

// The layout that the customer strings give Command24: "daily", "window" or "sample".
std::string reportlayout(const Station& st);
// Command24: asks for the standard, then the report of the configuration; the daily report where
// the configuration asks for it, the quality summary in the layout it gives otherwise.
void pressoverspeed(Station& st);
// The daily report: the same question and refusal, then the daily report at the standard given.
void pressdaily(Station& st);
// The daily report whatever the configuration, as the window's own entry and the batch make it: the
// same question, then the lists of the index loaded, as a careful user would, then the report.
void pressdailyentry(Station& st);
// The quality summary in LAYOUT ("window" or "sample") at STANDARD, handed to the user.
void qualityreport(Station& st, const std::string& layout, float standard);
// A click on Lzygk: the job overview, without a question.
void pressjoboverview(Station& st);

inline constexpr const char* shortrunmessage = "距离过短，无法统计速度";

} // namespace orvane

#pragma once
// Command19 "标记超速": at which marks each operator went faster than the supervisor's standard, and
// how the alarm switches stood; and the list of integral values as a workbook.
#include <cstdint>
#include <string>
#include <vector>

namespace orvane {

struct Station;
class Workbook;

// One operator's marks above the standard: the count and the mileages, a line break every 15.
struct OperatorMarks {
    std::string name;
    std::int16_t count = 0;
    std::string text;
};
// The marks of the list Grid1ts (as it stands, filtered or not) whose speed text is above STANDARD.
std::vector<OperatorMarks> marksabove(const Station& st, float standard);

// The two sheets: the marks above the standard, and the alarm switches.
Workbook markspeedbook(const Station& st, float standard);
// Command19: asks for the standard, loads the index when its lists are missing, hands the workbook over.
void markoverspeed(Station& st);
// A double click on Grid1jf: the list of integral values as a workbook.
void integralexport(Station& st);

} // namespace orvane

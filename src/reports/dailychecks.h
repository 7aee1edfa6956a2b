#pragma once
// The checks of the daily report: the pushing speed, the grass-wave level and the suppression
// switch, on the detail sheets "超速详情表", "草状波不达标地段汇总表", "全程超速汇总表", "积分值列表" and in
// the check rows at the foot of the job sheet.
#include "reports/quality.h"
#include "station/station.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace orvane {

class Workbook;

// Whether a parameter record has suppression on: its byte 10 isn't "00".
bool suppressing(const std::string& paramimage);

// The entries of the handover list as they stand ("执机：" or "股道：" in front, "里程突变" too), each
// once in the order of first appearance, at most 11.
std::vector<std::string> handovernames(const Table& handover);
// The operator in force at each row of the list of integral values, rows 1 to at most 999 (element 0
// stands for the head row and stays empty).
std::vector<std::string> integraloperators(const Station& st);

// The places where the integral values of a channel stay below (LOW) or above the grass-wave
// threshold while suppression is on and one operator walks: per entry of NAMES and channel the count
// and the text "  start-end" of each run, a line break behind every fifth.
struct GrassRuns {
    std::vector<std::array<int, 9>> count;
    std::vector<std::array<std::string, 9>> text;
};
GrassRuns grassruns(const Station& st, const std::vector<std::string>& names,
                    const std::vector<std::string>& rowop, bool low);

// The steps walked with suppression off ("00"), summed over the parameter records.
std::int64_t suppressionlength(const Side& side);

// Sheets 2 to 5 of BOOK from the overspeed WINDOWS, and the check rows 24 to 26 of sheet 1.
void dailychecks(Workbook& book, const Station& st, const std::vector<SpeedWindow>& windows);

} // namespace orvane

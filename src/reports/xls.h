#pragma once
// Workbooks that users bring from an older station: legacy .xls files (read with libfreexl) and
// .xlsx files, told apart by their first bytes rather than by the name they were given.
#include "reports/workbook.h"

#include <string>

namespace orvane {

// The sheets of the .xls file PATH with their names and cells (texts and numbers; dates as their
// texts). Throws std::runtime_error with the reason.
Workbook readxls(const std::string& path);

// The workbook in PATH, .xls or .xlsx by its content. Throws std::runtime_error with the reason, also
// for a file that is no spreadsheet at all.
Workbook readspreadsheet(const std::string& path);

} // namespace orvane

#pragma once
// Workbooks as .xlsx files: written for the user, and read back (an import of master data, and the
// check that a written file holds what the report made).
#include "reports/workbook.h"

#include <optional>
#include <string>

namespace orvane {

// Writes BOOK to PATH whole: made under a temporary name beside it, then renamed into place.
// nullopt when done, else the reason, and PATH is as it was.
std::optional<std::string> savexlsx(const Workbook& book, const std::string& path);

// The sheets of the .xlsx file PATH: names, cells, row fonts, column widths; the borders as one
// range per cell that has thin lines on its four sides. Throws std::runtime_error with the reason.
Workbook readxlsx(const std::string& path);

} // namespace orvane

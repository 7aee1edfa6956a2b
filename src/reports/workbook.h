#pragma once
// A workbook as the reports make it: sheets of cells with row fonts, column widths and bordered
// ranges. The operations are those a report asks of a spreadsheet: a new workbook, more sheets, a
// sheet by number, its name, cells written and read, a row's font size, a column's width, borders.
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace orvane {

// What a cell holds: a text or a number.
struct CellValue {
    bool number = false;
    double real = 0;
    std::string text;

    bool operator==(const CellValue&) const = default;
};

struct Sheet {
    std::string name;
    std::map<std::pair<int, int>, CellValue> cells{}; // (row, column) from 1, in row then column order
    std::map<int, double> rowfonts{};                 // font size of a whole row
    std::map<std::string, double> columnwidths{};     // "A": width in character units
    std::vector<std::string> borders{};               // "A2:H9": thin lines on every cell

    // TEXT into cell (ROW, COLUMN); a text starting with an apostrophe stays text without it.
    void write(int row, int column, const std::string& text);
    void write(int row, int column, const char* text) { write(row, column, std::string(text)); }
    void write(int row, int column, double number);
    void write(int row, int column, const CellValue& value);
    // The cell's value; an empty text where nothing was written.
    CellValue read(int row, int column) const;
    void rowfont(int row, double size) { rowfonts[row] = size; }
    void columnwidth(const std::string& column, double width) { columnwidths[column] = width; }
    void border(const std::string& range) { borders.push_back(range); }
};

class Workbook {
  public:
    // A new workbook with the default sheets "Sheet1" to "Sheet3".
    Workbook();
    // N more sheets behind the others.
    void addsheets(int n);
    // Sheet N, counted from 1; a number past the sheets is a fault of the report.
    Sheet& sheet(int n);
    const std::vector<Sheet>& sheets() const { return sheets_; }
    std::vector<Sheet>& sheets() { return sheets_; }

  private:
    std::vector<Sheet> sheets_;
};

// Column letters of a column number from 1: 1 "A", 27 "AA".
std::string columnletters(int column);
// A cell's name: (2, 1) "A2".
std::string cellname(int row, int column);
// The cells of a range "A2:H9" (or one cell "B3") as its top left and bottom right (row, column),
// whichever corners it names; false for a bad text.
bool rangecells(const std::string& range, std::pair<int, int>& first, std::pair<int, int>& last);

} // namespace orvane

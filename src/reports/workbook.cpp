#include "reports/workbook.h"

#include <stdexcept>
#include <utility>

namespace orvane {

void Sheet::write(int row, int column, const std::string& text) {
    CellValue v;
    v.text = !text.empty() && text[0] == '\'' ? text.substr(1) : text;
    cells[{row, column}] = v;
}

void Sheet::write(int row, int column, double number) {
    CellValue v;
    v.number = true;
    v.real = number;
    cells[{row, column}] = v;
}

void Sheet::write(int row, int column, const CellValue& value) {
    cells[{row, column}] = value;
}

CellValue Sheet::read(int row, int column) const {
    const auto it = cells.find({row, column});
    return it == cells.end() ? CellValue{} : it->second;
}

Workbook::Workbook() {
    addsheets(3);
}

void Workbook::addsheets(int n) {
    for (int i = 0; i < n; ++i) sheets_.push_back(Sheet{"Sheet" + std::to_string(sheets_.size() + 1)});
}

Sheet& Workbook::sheet(int n) {
    if (n < 1 || n > static_cast<int>(sheets_.size()))
        throw std::out_of_range("工作簿没有第 " + std::to_string(n) + " 个工作表");
    return sheets_[static_cast<std::size_t>(n - 1)];
}

std::string columnletters(int column) {
    std::string letters;
    for (; column > 0; column = (column - 1) / 26)
        letters.insert(letters.begin(), static_cast<char>('A' + (column - 1) % 26));
    return letters;
}

std::string cellname(int row, int column) {
    return columnletters(column) + std::to_string(row);
}

namespace {

// "H9" to (9, 8); false for anything else.
bool onecell(const std::string& text, std::pair<int, int>& cell) {
    std::size_t i = 0;
    int column = 0, row = 0;
    for (; i < text.size() && text[i] >= 'A' && text[i] <= 'Z'; ++i) {
        column = column * 26 + (text[i] - 'A' + 1);
        if (column > 16384) return false;
    }
    if (i == 0 || i == text.size()) return false;
    for (; i < text.size(); ++i) {
        if (text[i] < '0' || text[i] > '9') return false;
        row = row * 10 + (text[i] - '0');
        if (row > 1048576) return false;
    }
    if (row == 0) return false;
    cell = {row, column};
    return true;
}

} // namespace

bool rangecells(const std::string& range, std::pair<int, int>& first, std::pair<int, int>& last) {
    const std::size_t colon = range.find(':');
    const bool good = colon == std::string::npos
                          ? onecell(range, first) && onecell(range, last)
                          : onecell(range.substr(0, colon), first) && onecell(range.substr(colon + 1), last);
    // The spreadsheet reads a range given from either corner as the same cells.
    if (good) {
        if (first.first > last.first) std::swap(first.first, last.first);
        if (first.second > last.second) std::swap(first.second, last.second);
    }
    return good;
}

} // namespace orvane

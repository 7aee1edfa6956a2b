#include "reports/xls.h"

#include "reports/xlsx.h"

#include <algorithm>
#include <array>
#include <freexl.h>
#include <fstream>
#include <stdexcept>

namespace orvane {

namespace {

// The handle of an open .xls file, closed however the read ends (also after a failed open).
struct XlsFile {
    const void* handle = nullptr;
    ~XlsFile() { freexl_close(handle); }
};

// The sheet's largest row and column by freexl: a legacy sheet has at most 65536 rows and 256
// columns, so a damaged file can't make the read run on.
void readcells(const void* handle, Sheet& sheet) {
    unsigned int rows = 0;
    unsigned short columns = 0;
    if (freexl_worksheet_dimensions(handle, &rows, &columns) != FREEXL_OK) return;
    rows = std::min(rows, 65536u);
    columns = std::min<unsigned short>(columns, 256);
    for (unsigned int r = 0; r < rows; ++r)
        for (unsigned short c = 0; c < columns; ++c) {
            FreeXL_CellValue v;
            if (freexl_get_cell_value(handle, r, c, &v) != FREEXL_OK) continue;
            const int row = static_cast<int>(r) + 1, column = c + 1;
            switch (v.type) {
            case FREEXL_CELL_INT:
                sheet.write(row, column, static_cast<double>(v.value.int_value));
                break;
            case FREEXL_CELL_DOUBLE:
                sheet.write(row, column, v.value.double_value);
                break;
            case FREEXL_CELL_TEXT:
            case FREEXL_CELL_SST_TEXT:
            case FREEXL_CELL_DATE:
            case FREEXL_CELL_DATETIME:
            case FREEXL_CELL_TIME:
                sheet.write(row, column, CellValue{false, 0, v.value.text_value ? v.value.text_value : ""});
                break;
            default:
                break;
            }
        }
}

} // namespace

Workbook readxls(const std::string& path) {
    XlsFile file;
    if (freexl_open(path.c_str(), &file.handle) != FREEXL_OK)
        throw std::runtime_error("无法读取工作簿 " + path + "（不是可读的 .xls 文件）");
    unsigned int sheets = 0;
    if (freexl_get_info(file.handle, FREEXL_BIFF_SHEET_COUNT, &sheets) != FREEXL_OK)
        throw std::runtime_error("无法读取工作簿 " + path + "（没有工作表）");
    Workbook book;
    book.sheets().clear();
    for (unsigned short n = 0; n < sheets && n < 256; ++n) {
        Sheet sheet;
        const char* name = nullptr;
        if (freexl_get_worksheet_name(file.handle, n, &name) == FREEXL_OK && name) sheet.name = name;
        if (freexl_select_active_worksheet(file.handle, n) == FREEXL_OK) readcells(file.handle, sheet);
        book.sheets().push_back(std::move(sheet));
    }
    return book;
}

Workbook readspreadsheet(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error("无法读取文件 " + path);
    std::array<unsigned char, 4> head{};
    in.read(reinterpret_cast<char*>(head.data()), head.size());
    // A legacy workbook is a compound document; a newer one is a zip archive.
    if (in.gcount() == 4 && head == std::array<unsigned char, 4>{0xD0, 0xCF, 0x11, 0xE0})
        return readxls(path);
    if (in.gcount() == 4 && head == std::array<unsigned char, 4>{'P', 'K', 3, 4}) return readxlsx(path);
    throw std::runtime_error("不是电子表格文件：" + path);
}

} // namespace orvane

// The workbook model and its .xlsx files, read back and compared cell by cell.
#include "reports/workbook.h"
#include "reports/xlsx.h"
#include "stationfixture.h"

#include <cmath>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sys/resource.h>

namespace fs = std::filesystem;

namespace orvane {
namespace {

// The cells that the ranges of a sheet's borders cover.
std::set<std::pair<int, int>> borderedcells(const Sheet& s) {
    std::set<std::pair<int, int>> cells;
    for (const std::string& range : s.borders) {
        std::pair<int, int> a, b;
        EXPECT_TRUE(rangecells(range, a, b)) << range;
        for (int r = a.first; r <= b.first; ++r)
            for (int c = a.second; c <= b.second; ++c) cells.insert({r, c});
    }
    return cells;
}

// BOOK written and read back holds the same sheets, cells, row fonts, column widths and borders.
void expectroundtrip(const Workbook& book, const std::string& path) {
    ASSERT_EQ(savexlsx(book, path), std::nullopt);
    const Workbook back = readxlsx(path);
    ASSERT_EQ(back.sheets().size(), book.sheets().size());
    for (std::size_t i = 0; i < book.sheets().size(); ++i) {
        const Sheet& want = book.sheets()[i];
        const Sheet& got = back.sheets()[i];
        EXPECT_EQ(got.name, want.name);
        // Numbers come back in the sixteen digits that the file keeps of them.
        ASSERT_EQ(got.cells.size(), want.cells.size()) << want.name;
        for (auto g = got.cells.begin(), w = want.cells.begin(); w != want.cells.end(); ++g, ++w) {
            EXPECT_EQ(g->first, w->first);
            EXPECT_EQ(g->second.number, w->second.number);
            EXPECT_EQ(g->second.text, w->second.text);
            EXPECT_NEAR(g->second.real, w->second.real, std::fabs(w->second.real) * 1e-15);
        }
        EXPECT_EQ(got.rowfonts, want.rowfonts) << want.name;
        ASSERT_EQ(got.columnwidths.size(), want.columnwidths.size());
        for (const auto& [column, width] : want.columnwidths)
            EXPECT_NEAR(got.columnwidths.at(column), width, 1.0 / 14);
        EXPECT_EQ(borderedcells(got), borderedcells(want)) << want.name;
    }
}

TEST(Workbook, ANewWorkbookHasThreeSheetsAndAddedOnesGoBehind) {
    Workbook book;
    ASSERT_EQ(book.sheets().size(), 3u);
    EXPECT_EQ(book.sheets()[2].name, "Sheet3");
    book.addsheets(2);
    ASSERT_EQ(book.sheets().size(), 5u);
    EXPECT_EQ(book.sheets()[4].name, "Sheet5");
    EXPECT_EQ(&book.sheet(1), &book.sheets()[0]);
    EXPECT_THROW(book.sheet(6), std::out_of_range);
    EXPECT_THROW(book.sheet(0), std::out_of_range);
}

TEST(Workbook, ATextStartingWithAnApostropheStaysTextWithoutIt) {
    Workbook book;
    Sheet& s = book.sheet(1);
    s.write(3, 21, "'12");
    s.write(3, 22, 12.5);
    EXPECT_EQ(s.read(3, 21), (CellValue{false, 0, "12"}));
    EXPECT_EQ(s.read(3, 22), (CellValue{true, 12.5, ""}));
    EXPECT_EQ(s.read(9, 9), CellValue{});
}

TEST(Workbook, CellsAndRangesByName) {
    EXPECT_EQ(columnletters(1), "A");
    EXPECT_EQ(columnletters(26), "Z");
    EXPECT_EQ(columnletters(27), "AA");
    EXPECT_EQ(cellname(2, 30), "AD2");
    std::pair<int, int> a, b;
    ASSERT_TRUE(rangecells("A2:H9", a, b));
    EXPECT_EQ(a, std::make_pair(2, 1));
    EXPECT_EQ(b, std::make_pair(9, 8));
    // A range given bottom up covers the same cells, as the spreadsheet reads it.
    ASSERT_TRUE(rangecells("A2:H1", a, b));
    EXPECT_EQ(a, std::make_pair(1, 1));
    EXPECT_EQ(b, std::make_pair(2, 8));
    EXPECT_FALSE(rangecells("2A", a, b));
    EXPECT_FALSE(rangecells("A0", a, b));
}

TEST(Xlsx, EveryCellRowFontWidthAndBorderComesBack) {
    testkit::TempFolder temp;
    Workbook book;
    Sheet& s = book.sheet(1);
    s.name = "标记点超速汇总表";
    s.columnwidth("A", 150);
    s.rowfont(1, 20);
    s.write(1, 1, "                                   标记点超速汇总表                ");
    s.write(2, 1, "张伟共16处： \r\n0012.500 \r\n0012.600 ");
    s.write(2, 3, 12.399999618530273);
    s.write(4, 2, "'0");
    s.border("A2:C5");
    book.sheet(2).name = "O'Brien";
    book.sheet(2).write(1, 1, "<&>\"");
    expectroundtrip(book, temp.file("book.xlsx"));
}

TEST(Xlsx, AFolderInTheWayIsRefusedAndNothingIsLeftBehind) {
    testkit::TempFolder temp;
    fs::create_directory(temp.path() / "report.xlsx");
    const auto failed = savexlsx(Workbook{}, temp.file("report.xlsx"));
    ASSERT_TRUE(failed);
    EXPECT_NE(failed->find("report.xlsx"), std::string::npos);
    EXPECT_EQ(std::distance(fs::directory_iterator(temp.path()), fs::directory_iterator()), 1);
}

TEST(Xlsx, AMissingFolderIsAClearReason) {
    testkit::TempFolder temp;
    const auto failed = savexlsx(Workbook{}, temp.file("no/such/report.xlsx"));
    ASSERT_TRUE(failed);
    EXPECT_NE(failed->find("report.xlsx"), std::string::npos);
}

TEST(Xlsx, AFullDiskLeavesTheOldFileWhole) {
    testkit::TempFolder temp;
    const std::string path = temp.file("report.xlsx");
    { std::ofstream(path) << "old"; }
    Workbook big;
    for (int r = 1; r <= 2000; ++r) big.sheet(1).write(r, 1, std::string(200, 'x') + std::to_string(r));
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    rlimit small = before;
    small.rlim_cur = 4096;
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    const auto failed = savexlsx(big, path);
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_TRUE(failed);
    std::ifstream in(path);
    std::string text((std::istreambuf_iterator<char>(in)), {});
    EXPECT_EQ(text, "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(temp.path()), fs::directory_iterator()), 1);
}

TEST(Xlsx, AFileThatIsNoWorkbookIsAReason) {
    testkit::TempFolder temp;
    { std::ofstream(temp.file("x.xlsx")) << "not a zip"; }
    EXPECT_THROW(readxlsx(temp.file("x.xlsx")), std::runtime_error);
    EXPECT_THROW(readxlsx(temp.file("missing.xlsx")), std::runtime_error);
}

} // namespace
} // namespace orvane

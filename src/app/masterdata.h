#pragma once
// The maintenance windows of the station's small tables, where the names on every panel and report
// come from: staff Form5 (Command23 "人员"), lines Form6 (Commanddywh), defects Form11 (Command35),
// instruments and teams Form2 (Command42 "班组") and the texts of the operator marks Form7 (a double
// click on Grid1ts). Each is a grid over the whole table, a row of entry boxes and the buttons 增加,
// 增加保存, 修改保存, 删除 and 返回; staff and lines also go out to a workbook and come back from one.
// Every statement takes the user's texts as bound parameters, so any name is stored as typed.
#include <string>
#include <vector>

namespace orvane {

struct Station;
class Db;

// The caption of the window FORM ("工作人员表维护" for Form5).
std::string mastertitle(const std::string& form);
// Opens the window FORM over Form28 and fills its grid.
void openmasterform(Station& st, const std::string& form);
// The select of the open window into its grid; Form7 reads its five marks one by one.
void LoadData(Station& st);
// The row ROW of the grid (1 the first row under the heads) under the cursor, into the boxes.
void xianshi(Station& st, int row);
// CmdAdd "增  加": the boxes emptied, the number open for typing, 增加保存 enabled.
void addrow(Station& st);
// Command2 "增加保存": the window's tests in its order, then the insert.
void savenewrow(Station& st);
// Command1 "修改保存": the other columns of the row whose number is in Tbh.
void savechangedrow(Station& st);
// CmdDel: the window's guard, the row under the cursor, the question, then the delete.
void deleterow(Station& st);
// CmdCancel "返  回" and the close box. Form7 gives the picture the new mark texts at once; the
// combo boxes of lines and defects follow their tables.
void closemasterform(Station& st);
// Command3 "导出": the table as a workbook for the user, title in row 1, a sheet row per table row.
void exporttable(Station& st);
// Command4 "导入": the table replaced by rows 2 to 1000 of the first sheet of a chosen workbook, in
// one transaction, so that a file that can't be read or a failure half way leaves it as it was.
void importtable(Station& st);

// The names of table TABLE (zyqjb or bz) for their combo box, in the table's order.
std::vector<std::string> combonames(Db& db, const std::string& table);

// The openers on Form28, the two combo boxes, and every control of the five windows.
void registermasterdata(Station& st);

} // namespace orvane

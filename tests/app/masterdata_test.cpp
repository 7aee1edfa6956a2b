// The maintenance windows of staff, lines, defects, instruments and mark texts, with the export to
// and the import from a workbook.
#include "app/masterdata.h"
#include "app/startup.h"
#include "bmode/bmode.h"
#include "ktrbuilder.h"
#include "recording/hex.h"
#include "recording/panels.h"
#include "replay/viewmap.h"
#include "reports/workbook.h"
#include "reports/xlsx.h"
#include "station/controls.h"
#include "viewfixture.h"

#include <gtest/gtest.h>

using namespace orvane;

namespace {

class MasterData : public testkit::ViewTest {
  protected:
    void SetUp() override { start(); }
    Db& gpsx() { return *st.gpsxdb; }
    const Table& grid() const { return st.master.Grid1; }
    std::vector<std::string> column(std::size_t k) const {
        std::vector<std::string> out;
        for (std::size_t r = 1; r < grid().size(); ++r) out.push_back(grid()[r][k]);
        return out;
    }
    long count(const std::string& table) {
        return static_cast<long>(gpsx().scalar("select count(*) from " + table).number());
    }
    // A new row typed into the open window FORM and saved.
    void addnew(const std::string& form, const std::vector<std::pair<std::string, std::string>>& boxes) {
        press(st, form + ".CmdAdd");
        for (const auto& [box, text] : boxes) setcontrol(st, form + "." + box, text);
        press(st, form + ".Command2");
    }
    int rowof(const std::string& key) const {
        for (std::size_t r = 1; r < grid().size(); ++r)
            if (grid()[r][0] == key) return static_cast<int>(r);
        return -1;
    }
    // The workbook BOOK written as an .xlsx file NAME and chosen in the import's file dialog.
    void importbook(const std::string& form, const Workbook& book, const std::string& name = "in.xlsx") {
        const std::string path = temp.file(name);
        ASSERT_FALSE(savexlsx(book, path));
        ui.answers.push_back(path);
        press(st, form + ".Command4");
    }
    static Workbook staffbook(const std::vector<std::vector<std::string>>& rows) {
        Workbook book;
        book.sheet(1).write(1, 1, "人员表");
        for (std::size_t r = 0; r < rows.size(); ++r)
            for (std::size_t k = 0; k < rows[r].size(); ++k)
                book.sheet(1).write(static_cast<int>(r) + 2, static_cast<int>(k) + 1,
                                    CellValue{false, 0, rows[r][k]});
        return book;
    }
};

// A workbook handed to the user, kept for the test.
class KeptWorkbooks : public Workbooks {
  public:
    std::vector<std::pair<std::string, Workbook>> books;
    void show(const Workbook& book, const std::string& report) override { books.emplace_back(report, book); }
};

TEST_F(MasterData, StaffNumbers007And7AreOneNumber) {
    press(st, "Command23");
    addnew("Form5", {{"Tbh", "007"}, {"Txm", "甲"}});
    EXPECT_TRUE(ui.messages.empty());
    addnew("Form5", {{"Tbh", "7"}, {"Txm", "乙"}});
    EXPECT_EQ(ui.messages, std::vector<std::string>{"编号重复，增加失败"});
    EXPECT_EQ(gpsx().scalar("select count(*) from gzryb where val(bh)=7").number(), 1);
}

TEST_F(MasterData, StaffRow012IsTheOperatorNumber12OfARecording) {
    press(st, "Command23");
    clickrow(st, "Form5.Grid1", rowof("12"));
    ui.answers.push_back("yes");
    press(st, "Form5.CmdDel");
    addnew("Form5", {{"Tbh", "012"}, {"Txm", "孙七"}});
    testkit::KtrBuilder b;
    b.job(testkit::Job{.operatorno = "012"});
    setpanelheads(st);
    st.zhu.jobrec.assign(1, hexof(b.records()[0].data(), 256));
    applyjob(st, st.zhu, 0);
    EXPECT_EQ(st.zhu.Grid2[1][1], "孙七");
}

TEST_F(MasterData, ARefusedDeleteLeavesTheRowSelected) {
    gpsx().exec("insert into zysyb(jqbh,zjr1bh) values('00101','2')");
    press(st, "Command23");
    const int row = rowof("2");
    clickrow(st, "Form5.Grid1", row);
    press(st, "Form5.CmdDel");
    EXPECT_EQ(ui.messages, std::vector<std::string>{"此人已有工作记录生成，删除失败"});
    EXPECT_TRUE(ui.questions.empty());
    EXPECT_EQ(st.master.row, row);
    EXPECT_EQ(reach(st, "Form5.Grid1").value(st), row);
    EXPECT_EQ(st.master.boxes["Tbh"], "2");
    EXPECT_EQ(count("gzryb"), 5);
}

TEST_F(MasterData, ImportOfABlankSecondRowEmptiesTheTable) {
    press(st, "Command23");
    Workbook book = staffbook({});
    book.sheet(1).write(3, 1, "99"); // behind the blank row: never read
    importbook("Form5", book);
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(count("gzryb"), 0);
    EXPECT_EQ(grid().size(), 1u);
}

TEST_F(MasterData, StaffTestsAnEmptyNumberBeforeItsDigits) {
    press(st, "Command23");
    EXPECT_FALSE(reach(st, "Form5.Command2").isenabled(st));
    addnew("Form5", {{"Txm", "无号"}});
    addnew("Form5", {{"Tbh", "12a"}});
    EXPECT_EQ(ui.messages,
              (std::vector<std::string>{"编号不得为空", "输入有误。。。请注意，编码中不能出现非数字的字符"}));
    EXPECT_EQ(count("gzryb"), 5);
}

TEST_F(MasterData, NamesWithQuotesAndChineseAreStoredAsTyped) {
    press(st, "Command23");
    const std::string name = "O'Brien \"老王\" 100%; drop table gzryb;--";
    addnew("Form5", {{"Tbh", "30"}, {"Txm", name}, {"Tbz", "探伤'组"}, {"Tgwd", "哈尔滨"}});
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(gpsx().scalar("select xm from gzryb where bh=?", {"30"}).astext(), name);
    EXPECT_EQ(grid().back(), (std::vector<std::string>{"30", name, "探伤'组", "哈尔滨"}));
}

TEST_F(MasterData, StaffChangeKeepsTheNumber) {
    press(st, "Command23");
    clickrow(st, "Form5.Grid1", rowof("3"));
    EXPECT_EQ(st.master.boxes["Txm"], "王强");
    EXPECT_FALSE(reach(st, "Form5.Tbh").isenabled(st));
    setcontrol(st, "Form5.Tbh", "4"); // a disabled box takes no text
    EXPECT_EQ(st.master.boxes["Tbh"], "3");
    setcontrol(st, "Form5.Txm", "王刚");
    press(st, "Form5.Command1");
    EXPECT_EQ(gpsx().scalar("select xm from gzryb where bh='3'").astext(), "王刚");
    EXPECT_EQ(count("gzryb"), 5);
}

TEST_F(MasterData, DeleteAsksWithTheNumberAndNoKeepsTheRow) {
    press(st, "Command23");
    press(st, "Form5.CmdDel");
    EXPECT_EQ(ui.messages, std::vector<std::string>{"请选择要删除的记录!"});
    clickrow(st, "Form5.Grid1", rowof("3"));
    ui.answers.push_back("no");
    press(st, "Form5.CmdDel");
    EXPECT_EQ(ui.questions, std::vector<std::string>{"确实要删除该条记录吗？(编码为3)"});
    EXPECT_EQ(count("gzryb"), 5);
    ui.answers.push_back("yes");
    press(st, "Form5.CmdDel");
    EXPECT_EQ(count("gzryb"), 4);
    EXPECT_EQ(rowof("3"), -1);
}

TEST_F(MasterData, LinesTestADuplicateBeforeAnEmptyNumber) {
    press(st, "Commanddywh");
    addnew("Form6", {{"Tmc", "无号"}});
    EXPECT_EQ(ui.messages.back(), "编号不得为空");
    gpsx().exec("insert into zyqjb values ('', '空号线')");
    addnew("Form6", {{"Tmc", "无号"}});
    EXPECT_EQ(ui.messages.back(), "编号重复，增加失败");
    // Lines compare the number as text: "01" is not "1".
    addnew("Form6", {{"Tbh", "01"}, {"Tmc", "滨北线"}});
    EXPECT_EQ(ui.messages.size(), 2u);
}

TEST_F(MasterData, LinesReloadUnorderedAfterASave) {
    press(st, "Commanddywh");
    addnew("Form6", {{"Tbh", "0"}, {"Tmc", "新线"}});
    EXPECT_EQ(column(0), (std::vector<std::string>{"1", "2", "3", "4", "0"}));
    press(st, "Form6.CmdCancel");
    press(st, "Commanddywh");
    EXPECT_EQ(column(0), (std::vector<std::string>{"0", "1", "2", "3", "4"}));
    // The combo box of lines follows the table once the window closes.
    press(st, "Form6.CmdCancel");
    EXPECT_EQ(st.form.lines.back(), "新线");
}

TEST_F(MasterData, LineInUseIsNotDeleted) {
    gpsx().exec("insert into zysyb(jqbh,zyqj) values('00101','3')");
    press(st, "Commanddywh");
    clickrow(st, "Form6.Grid1", rowof("3"));
    press(st, "Form6.CmdDel");
    EXPECT_EQ(ui.messages, std::vector<std::string>{"此线别已有对应的工作记录生成，删除失败"});
    EXPECT_EQ(count("zyqjb"), 4);
}

TEST_F(MasterData, DefectsGuardFindsItsOwnRowAndDeletesAnyway) {
    press(st, "Command35");
    EXPECT_EQ(grid()[0], (std::vector<std::string>{"编号", "伤损"}));
    clickrow(st, "Form11.Grid1", rowof("2"));
    ui.answers.push_back("yes");
    press(st, "Form11.CmdDel");
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(ui.questions, std::vector<std::string>{"确实要删除该条记录吗？(编码为2)"});
    EXPECT_EQ(count("bz"), 4);
    addnew("Form11", {{"Tbh", "1"}, {"Tmc", "重复"}});
    EXPECT_EQ(ui.messages, std::vector<std::string>{"编号重复，增加失败"});
}

TEST_F(MasterData, InstrumentsSortByTextAndTestNoDuplicate) {
    press(st, "Command42");
    addnew("Form2", {{"Tbh", "9"}, {"Tbz", "九组"}});
    addnew("Form2", {{"Tbh", "10"}, {"Tbz", "十组"}});
    addnew("Form2", {{"Tbh", "00101"}, {"Tbz", "又一组"}});
    addnew("Form2", {{"Tbh", "A1"}});
    addnew("Form2", {{"Tbz", "无号"}});
    EXPECT_EQ(ui.messages,
              (std::vector<std::string>{"输入有误。。。请注意，编码中不能出现非数字的字符", "编号不得为空"}));
    EXPECT_EQ(column(0), (std::vector<std::string>{"00101", "00101", "00102", "00215", "10", "9"}));
}

TEST_F(MasterData, ExportThenImportGivesTheSameTable) {
    KeptWorkbooks kept;
    st.workbooks = &kept;
    press(st, "Command23");
    addnew("Form5", {{"Tbh", "007"}, {"Txm", "O'Neil"}, {"Tbz", "一组"}, {"Tgwd", "分公司"}});
    const Table before = grid();
    press(st, "Form5.Command3");
    ASSERT_EQ(kept.books.size(), 1u);
    const Sheet& sheet = kept.books[0].second.sheets()[0];
    EXPECT_EQ(sheet.name, "人员表");
    EXPECT_EQ(sheet.read(1, 1).text, "人员表");
    EXPECT_EQ(sheet.read(2, 1).text, "1");
    gpsx().exec("delete from gzryb");
    importbook("Form5", kept.books[0].second);
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(grid(), before);
}

TEST_F(MasterData, LinesExportUnderTheirOwnTitle) {
    KeptWorkbooks kept;
    st.workbooks = &kept;
    press(st, "Commanddywh");
    press(st, "Form6.Command3");
    ASSERT_EQ(kept.books.size(), 1u);
    EXPECT_EQ(kept.books[0].second.sheets()[0].name, "线别表");
    EXPECT_EQ(kept.books[0].second.sheets()[0].read(5, 2).text, "哈大线");
}

TEST_F(MasterData, ImportStopsAtRow1000AndStoresNumbersAsText) {
    press(st, "Command23");
    Workbook book;
    book.sheet(1).write(1, 1, "人员表");
    for (int r = 2; r <= 5000; ++r) {
        book.sheet(1).write(r, 1, static_cast<double>(r));
        book.sheet(1).write(r, 2, 1.5);
    }
    importbook("Form5", book);
    EXPECT_EQ(count("gzryb"), 999);
    EXPECT_EQ(gpsx().scalar("select xm from gzryb where bh='1000'").astext(), "1.5");
    EXPECT_EQ(gpsx().scalar("select typeof(bh) from gzryb limit 1").astext(), "text");
}

TEST_F(MasterData, ACancelledImportDeletesNothing) {
    press(st, "Command23");
    press(st, "Form5.Command4");
    EXPECT_EQ(count("gzryb"), 5);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(MasterData, AFileThatIsNoSpreadsheetLeavesTheTable) {
    press(st, "Command23");
    ui.answers.push_back(writefile("notes.xls", "这不是表格"));
    press(st, "Form5.Command4");
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].rfind("导入失败，人员表未改动：不是电子表格文件", 0), 0u);
    ui.answers.push_back(temp.file("missing.xlsx"));
    press(st, "Form5.Command4");
    EXPECT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(count("gzryb"), 5);
}

TEST_F(MasterData, AReadOnlyDatabaseLeavesTheTableWhole) {
    press(st, "Command23");
    gpsx().exec("pragma query_only=1");
    importbook("Form5", staffbook({{"40", "甲"}, {"41", "乙"}}));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].rfind("导入失败，人员表未改动：", 0), 0u);
    addnew("Form5", {{"Tbh", "42"}});
    EXPECT_EQ(ui.messages.size(), 2u);
    gpsx().exec("pragma query_only=0");
    EXPECT_EQ(count("gzryb"), 5);
    EXPECT_EQ(grid().size(), 6u);
}

// A database that refuses the third insert of an import: the import is undone whole.
class FailingDb : public Db {
  public:
    explicit FailingDb(Db& inner) : inner_(inner) {}
    const std::string& path() const override { return inner_.path(); }
    void exec(const std::string& sql, const std::vector<std::string>& params) override {
        if (sql.rfind("insert", 0) == 0 && ++inserts_ == 3) throw std::runtime_error("磁盘已满");
        inner_.exec(sql, params);
    }
    DbValue scalar(const std::string& sql, const std::vector<std::string>& params) override {
        return inner_.scalar(sql, params);
    }
    std::vector<DbRow> rows(const std::string& sql, const std::vector<std::string>& params) override {
        return inner_.rows(sql, params);
    }

  private:
    Db& inner_;
    int inserts_ = 0;
};

TEST_F(MasterData, AFailureHalfWayUndoesTheWholeImport) {
    std::unique_ptr<Db> real = std::move(st.gpsxdb);
    st.gpsxdb = std::make_unique<FailingDb>(*real);
    press(st, "Command23");
    importbook("Form5", staffbook({{"40", "甲"}, {"41", "乙"}, {"42", "丙"}, {"43", "丁"}}));
    EXPECT_EQ(ui.messages, std::vector<std::string>{"导入失败，人员表未改动：磁盘已满"});
    EXPECT_EQ(real->scalar("select count(*) from gzryb").number(), 5);
    EXPECT_EQ(real->scalar("select xm from gzryb where bh='1'").astext(), "张伟");
    st.gpsxdb = std::move(real);
}

TEST_F(MasterData, ImportsLegacyAndNewWorkbooksMadeElsewhere) {
    const std::string xls = temp.file("staff.xls"), xlsx = temp.file("lines.xlsx");
    const std::string script =
        "import sys, xlwt, openpyxl\n"
        "b = xlwt.Workbook(); s = b.add_sheet('Sheet1'); s.write(0, 0, '人员表')\n"
        "for i, r in enumerate([('21', '赵六', '三组', '哈'), (22, \"O'Neil\", 5, '齐')]):\n"
        "    [s.write(i + 1, k, v) for k, v in enumerate(r)]\n"
        "b.save(sys.argv[1])\n"
        "w = openpyxl.Workbook(); t = w.active; t.append(['线别表'])\n"
        "t.append(['05', '京沪线']); t.append([6, '沪昆线'])\n"
        "w.save(sys.argv[2])\n";
    const std::string scriptpath = writefile("make.py", script);
    ASSERT_EQ(std::system(("/usr/bin/python3 " + scriptpath + " " + xls + " " + xlsx).c_str()), 0);
    press(st, "Command23");
    ui.answers.push_back(xls);
    press(st, "Form5.Command4");
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(grid(), (Table{{"编号", "姓名", "作业组", "分公司"},
                             {"21", "赵六", "三组", "哈"},
                             {"22", "O'Neil", "5", "齐"}}));
    press(st, "Form5.CmdCancel");
    press(st, "Commanddywh");
    ui.answers.push_back(xlsx);
    press(st, "Form6.Command4");
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(grid(), (Table{{"编号", "名称"}, {"05", "京沪线"}, {"6", "沪昆线"}}));
}

TEST_F(MasterData, MarkTextsChangeAndThePictureShowsThemAtOnce) {
    prepareview(5000);
    st.settings.markplace = 0;
    pictureconstants(st);
    s.railcode = "60";
    layout(st);
    s.samplegrid[700][9] = 13; // mark 3
    rebuildmap(st, s);
    s.viewindex = 600;
    dblclick(st, "Grid1ts", 1);
    ASSERT_EQ(openforms(st).back(), "Form7");
    EXPECT_EQ(column(0), (std::vector<std::string>{"标记0", "标记1", "标记2", "标记3", "标记4"}));
    EXPECT_EQ(grid()[4][1], "可疑点");
    clickrow(st, "Form7.Grid1", 4);
    EXPECT_EQ(st.master.boxes["Tbh"], "标记3");
    setcontrol(st, "Form7.Tmc", "核伤'疑");
    press(st, "Form7.Command1");
    EXPECT_EQ(gpsx().scalar("select bjwb from biaoji where bjid='标记3'").astext(), "核伤'疑");
    EXPECT_EQ(st.settings.biaojiname[3], "可疑点"); // until the window closes
    canvas.ops.clear();
    press(st, "Form7.CmdCancel");
    EXPECT_EQ(st.settings.biaojiname[3], "核伤'疑");
    bool shown = false;
    for (const DrawOp& op : canvas.ops)
        shown = shown || (op.kind == DrawOp::Kind::print && op.text == "核伤'疑");
    EXPECT_TRUE(shown);
}

} // namespace

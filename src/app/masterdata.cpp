#include "app/masterdata.h"

#include "reports/shelf.h"
#include "reports/workbook.h"
#include "reports/xls.h"
#include "station/controls.h"
#include "station/numbers.h"
#include "station/station.h"
#include "station/vbval.h"
#include "stores/settingsstore.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <stdexcept>
#include <tuple>

namespace orvane {

namespace {

// What may refuse a new row, in the order the window tests it.
enum class Test {
    empty,     // "编号不得为空"
    numeric,   // the number must be one
    sametext,  // a row with the same number text
    samevalue, // a row with the same numeric value: "007" and "7" are one number
};

// One maintenance window: its table, its columns and boxes in table order, its selects, its tests.
struct TableForm {
    const char* form;
    const char* title;
    std::unique_ptr<Db> Station::*db;
    const char* table;
    std::vector<const char*> columns, heads, boxes;
    const char* load;  // the select of LoadData
    const char* saved; // the select after a save
    std::vector<Test> tests;
    // The count that refuses a delete, run with the cell of column guardcolumn of the row; without a
    // refusal the count is made and has no effect.
    const char* guard;
    int guardcolumn;
    const char* refusal;
    const char* sheet; // the workbook's title for export and import; empty: the window has neither
    bool rows;         // the window adds and deletes rows (Form7 only changes texts)
};

const std::vector<TableForm>& tableforms() {
    static const std::vector<TableForm> forms = {
        {"Form5",
         "工作人员表维护",
         &Station::gpsxdb,
         "gzryb",
         {"bh", "xm", "bz", "gwd"},
         {"编号", "姓名", "作业组", "分公司"},
         {"Tbh", "Txm", "Tbz", "Tgwd"},
         "select * from gzryb order by val(bh)",
         "select * from gzryb order by val(bh)",
         {Test::empty, Test::numeric, Test::samevalue},
         "select count(*) from zysyb where zjr1bh=?",
         0,
         "此人已有工作记录生成，删除失败",
         "人员表",
         true},
        {"Form6",
         "线别表维护",
         &Station::gpsxdb,
         "zyqjb",
         {"bh", "mc"},
         {"编号", "名称"},
         {"Tbh", "Tmc"},
         "select * from zyqjb order by val(bh)",
         "select * from zyqjb",
         {Test::sametext, Test::empty},
         "select count(*) from zysyb where zyqj=?",
         0,
         "此线别已有对应的工作记录生成，删除失败",
         "线别表",
         true},
        {"Form11",
         "伤损列表",
         &Station::gpsxdb,
         "bz",
         {"bh", "mc"},
         {"编号", "伤损"},
         {"Tbh", "Tmc"},
         "select * from bz",
         "select * from bz",
         {Test::sametext, Test::empty},
         "select count(*) from bz where mc=?",
         1,
         "",
         "",
         true},
        {"Form2",
         "仪器班组",
         &Station::yqhbzdb,
         "yqhbz",
         {"yqh", "bz"},
         {"仪器号", "班组"},
         {"Tbh", "Tbz"},
         "select * from yqhbz order by yqh",
         "select * from yqhbz order by yqh",
         {Test::empty, Test::numeric},
         "",
         0,
         "",
         "",
         true},
        {"Form7",
         "标记属性",
         &Station::gpsxdb,
         "biaoji",
         {"bjid", "bjwb"},
         {"标记", "属性"},
         {"Tbh", "Tmc"},
         "",
         "select * from biaoji",
         {},
         "",
         0,
         "",
         "",
         false},
    };
    return forms;
}

const TableForm* tableform(const std::string& form) {
    for (const TableForm& f : tableforms())
        if (form == f.form) return &f;
    return nullptr;
}

// The open window; a fault of the program when none is.
const TableForm& openform(const Station& st) {
    const TableForm* f = tableform(st.master.name);
    if (!f) throw std::logic_error("没有打开的维护窗口");
    return *f;
}

Db& dbof(Station& st, const TableForm& f) {
    Db* db = (st.*f.db).get();
    if (!db) throw std::runtime_error(std::string("数据库未打开，无法维护") + f.title);
    return *db;
}

std::string textof(const DbValue& v) {
    return v.isnull() ? std::string() : v.astext();
}

// The grid: the heads, then ROWS as texts.
void fillgrid(Station& st, const TableForm& f, const std::vector<DbRow>& rows) {
    Table grid{std::vector<std::string>(f.heads.begin(), f.heads.end())};
    for (const DbRow& row : rows) {
        std::vector<std::string> cells(f.heads.size());
        for (std::size_t k = 0; k < cells.size() && k < row.size(); ++k) cells[k] = textof(row[k]);
        grid.push_back(std::move(cells));
    }
    st.master.Grid1 = std::move(grid);
    st.master.row = 0;
    ++st.master.revision;
}

void reload(Station& st, const TableForm& f, const char* select) {
    fillgrid(st, f, dbof(st, f).rows(select));
}

std::string box(const Station& st, const std::string& name) {
    const auto it = st.master.boxes.find(name);
    return it == st.master.boxes.end() ? std::string() : it->second;
}

std::vector<std::string> boxtexts(const Station& st, const TableForm& f) {
    std::vector<std::string> texts;
    for (const char* b : f.boxes) texts.push_back(box(st, b));
    return texts;
}

// A count above 0.
bool counts(Db& db, const std::string& sql, const std::string& value) {
    return db.scalar(sql, {value}).number() > 0;
}

// The reason a new row with number KEY is refused, by the window's tests in its order.
std::optional<std::string> refusal(Db& db, const TableForm& f, const std::string& key) {
    const std::string table = f.table, column = f.columns[0];
    for (Test t : f.tests) {
        switch (t) {
        case Test::empty:
            if (key.empty()) return "编号不得为空";
            break;
        case Test::numeric:
            if (!typednumber(key)) return "输入有误。。。请注意，编码中不能出现非数字的字符";
            break;
        case Test::samevalue:
            if (counts(db, "select count(*) from " + table + " where val(" + column + ")=val(?)",
                       shortestdouble(vbval(key))))
                return "编号重复，增加失败";
            break;
        case Test::sametext:
            if (counts(db, "select count(*) from " + table + " where " + column + "=?", key))
                return "编号重复，增加失败";
            break;
        }
    }
    return std::nullopt;
}

// insert into TABLE(c1,c2,…) values(?,?,…): a new row from the texts of its columns.
std::string insertsql(const TableForm& f) {
    std::string columns, marks;
    for (const char* c : f.columns) {
        columns += std::string(columns.empty() ? "" : ",") + c;
        marks += marks.empty() ? "?" : ",?";
    }
    return std::string("insert into ") + f.table + "(" + columns + ") values(" + marks + ")";
}

// The text of a spreadsheet cell as the import stores it: a number as its shortest text.
std::string celltext(const CellValue& v) {
    return v.number ? shortestdouble(v.real) : v.text;
}

// Runs ACT of a window's button; a statement the database refuses ends the act with its reason.
void guarded(Station& st, void (*act)(Station&)) {
    try {
        act(st);
    } catch (const std::runtime_error& e) {
        st.ui->message(e.what());
    }
}

} // namespace

std::vector<std::string> combonames(Db& db, const std::string& table) {
    std::vector<std::string> names;
    long count = static_cast<long>(db.scalar("select count(*) from " + table).number());
    auto rows = db.rows("select mc from " + table + " ");
    for (long i = 0; i < count && i < static_cast<long>(rows.size()); ++i)
        names.push_back(textof(rows[i][0]));
    return names;
}

std::string mastertitle(const std::string& form) {
    const TableForm* f = tableform(form);
    return f ? f->title : "";
}

void openmasterform(Station& st, const std::string& form) {
    if (!tableform(form)) throw std::logic_error("没有维护窗口 " + form);
    st.master = {};
    st.master.name = form;
    try {
        LoadData(st);
    } catch (const std::runtime_error& e) {
        st.master.name.clear();
        st.ui->message(e.what());
    }
}

void LoadData(Station& st) {
    const TableForm& f = openform(st);
    if (f.rows) return reload(st, f, f.load);
    // The five operator marks, each read by its key; a missing row shows an empty text.
    Db& db = dbof(st, f);
    std::vector<DbRow> rows;
    for (int n = 0; n < 5; ++n) {
        const std::string key = "标记" + std::to_string(n);
        const auto text = db.rows("select bjwb from biaoji where bjid= ?", {key});
        DbValue id;
        id.kind = DbValue::Kind::text;
        id.text = key;
        rows.push_back({id, text.empty() || text[0].empty() ? DbValue{} : text[0][0]});
    }
    fillgrid(st, f, rows);
}

void xianshi(Station& st, int row) {
    const TableForm& f = openform(st);
    if (row < 1 || row >= static_cast<int>(st.master.Grid1.size())) return;
    st.master.row = row;
    st.master.adding = false;
    for (std::size_t k = 0; k < f.boxes.size(); ++k) st.master.boxes[f.boxes[k]] = st.master.Grid1[row][k];
}

void addrow(Station& st) {
    const TableForm& f = openform(st);
    for (const char* b : f.boxes) st.master.boxes[b].clear();
    st.master.adding = true;
}

void savenewrow(Station& st) {
    const TableForm& f = openform(st);
    Db& db = dbof(st, f);
    if (const auto reason = refusal(db, f, box(st, "Tbh"))) return st.ui->message(*reason);
    db.exec(insertsql(f), boxtexts(st, f));
    st.master.adding = false;
    reload(st, f, f.saved);
}

void savechangedrow(Station& st) {
    const TableForm& f = openform(st);
    const std::vector<std::string> texts = boxtexts(st, f);
    if (texts[0].empty()) return st.ui->message("请选择要修改的记录!");
    // The number names the row and stays as it is; the other columns take the boxes.
    std::string sets;
    std::vector<std::string> values;
    for (std::size_t k = 1; k < f.columns.size(); ++k) {
        sets += std::string(sets.empty() ? "" : ",") + f.columns[k] + "=?";
        values.push_back(texts[k]);
    }
    values.push_back(texts[0]);
    dbof(st, f).exec(std::string("update ") + f.table + " set " + sets + " where " + f.columns[0] + "=?",
                     values);
    reload(st, f, f.saved);
}

void deleterow(Station& st) {
    const TableForm& f = openform(st);
    Db& db = dbof(st, f);
    const int row = st.master.row;
    const bool chosen = row >= 1 && row < static_cast<int>(st.master.Grid1.size());
    const std::string key = chosen ? st.master.Grid1[row][0] : "";
    if (*f.guard) {
        const std::string value = chosen ? st.master.Grid1[row][f.guardcolumn] : "";
        if (counts(db, f.guard, value) && *f.refusal) return st.ui->message(f.refusal);
    }
    if (!chosen) return st.ui->message("请选择要删除的记录!");
    if (!st.ui->askyesno("确实要删除该条记录吗？(编码为" + key + ")")) return;
    db.exec(std::string("Delete From ") + f.table + " Where " + f.columns[0] + "=?", {key});
    reload(st, f, f.load);
    for (const char* b : f.boxes) st.master.boxes[b].clear();
}

void closemasterform(Station& st) {
    const std::string form = st.master.name;
    st.master = {};
    try {
        if (form == "Form7") {
            st.settings.biaojiname = marknames(st);
            if (recordingloaded(st)) st.hooks.bofang(st, st.zhu);
        }
        if (form == "Form6" && st.gpsxdb) st.form.lines = combonames(*st.gpsxdb, "zyqjb");
        if (form == "Form11" && st.gpsxdb) st.form.defects = combonames(*st.gpsxdb, "bz");
    } catch (const std::runtime_error& e) {
        st.ui->message(e.what());
    }
}

void exporttable(Station& st) {
    const TableForm& f = openform(st);
    Workbook book;
    Sheet& sheet = book.sheet(1);
    sheet.name = f.sheet;
    sheet.write(1, 1, CellValue{false, 0, f.sheet});
    const std::vector<DbRow> rows = dbof(st, f).rows(f.load);
    for (std::size_t r = 0; r < rows.size(); ++r)
        for (std::size_t k = 0; k < rows[r].size(); ++k)
            sheet.write(static_cast<int>(r) + 2, static_cast<int>(k) + 1,
                        CellValue{false, 0, textof(rows[r][k])});
    handover(st, book, f.sheet);
}

void importtable(Station& st) {
    const TableForm& f = openform(st);
    const auto path = st.ui->openfile("所有文件 (*.XLS)|*.XLS;*.XLSX", "xls");
    if (!path) return; // a cancel stops before anything is deleted
    const std::string failed = std::string("导入失败，") + f.sheet + "未改动：";
    Workbook book;
    try {
        book = readspreadsheet(*path);
        if (book.sheets().empty()) throw std::runtime_error("工作簿中没有工作表：" + *path);
    } catch (const std::exception& e) {
        return st.ui->message(failed + e.what());
    }
    const Sheet& sheet = book.sheets().front();
    Db& db = dbof(st, f);
    try {
        db.exec("begin immediate");
        try {
            db.exec(std::string("delete from ") + f.table);
            for (int r = 2; r <= 1000; ++r) {
                if (celltext(sheet.read(r, 1)).empty()) break;
                std::vector<std::string> cells;
                for (std::size_t k = 0; k < f.columns.size(); ++k)
                    cells.push_back(celltext(sheet.read(r, static_cast<int>(k) + 1)));
                db.exec(insertsql(f), cells);
            }
            db.exec("commit");
        } catch (...) {
            db.exec("rollback");
            throw;
        }
    } catch (const std::exception& e) {
        st.ui->message(failed + e.what());
    }
    reload(st, f, f.load);
}

void registermasterdata(Station& st) {
    // The openers on Form28.
    for (const auto& [name, caption, form] : {std::tuple{"Command23", "人员", "Form5"},
                                              {"Commanddywh", "维护", "Form6"},
                                              {"Command35", "维护", "Form11"},
                                              {"Command42", "班组", "Form2"}}) {
        Control opener = control(name, ControlKind::button, caption);
        const std::string f = form;
        opener.click = [f](Station& st, const std::string&) { openmasterform(st, f); };
        st.controls.add(opener);
    }
    if (Control* marks = st.controls.edit("Grid1ts"))
        marks->dblclick = [](Station& st, int) { openmasterform(st, "Form7"); };
    // The combo boxes of lines and defects: a chosen name goes into the notice's line box and into the
    // defect note.
    for (const auto& [name, names, into] :
         {std::tuple{"Comboxb", &Form28State::lines, 0}, {"Combobz", &Form28State::defects, 1}}) {
        Control combo = control(name, ControlKind::combobox);
        const auto list = names;
        const int target = into;
        combo.cells = [list](const Station& st) { return Table{st.form.*list}; };
        combo.textof = [target](const Station& st) { return target == 0 ? st.form.Txb : st.Textbz; };
        combo.select = [list, target, name = std::string(name)](Station& st, const std::string& text) {
            const auto& entries = st.form.*list;
            if (std::find(entries.begin(), entries.end(), text) == entries.end())
                throw ControlError(name + " 没有这一项：" + text);
            if (target == 0)
                st.form.Txb = text;
            else if (const Control* note = st.controls.find("Textbz"))
                note->text(st, text); // as typed into the note's box
        };
        st.controls.add(combo);
    }

    for (const TableForm& f : tableforms()) {
        const std::string form = f.form;
        st.controls.addform(
            {form, [form](const Station& st) { return st.master.name == form; }, closemasterform});
        Control grid = control(form + ".Grid1", ControlKind::grid);
        grid.cells = [](const Station& st) { return st.master.Grid1; };
        grid.revision = [](const Station& st) { return st.master.revision; };
        grid.value = [](const Station& st) { return st.master.row; };
        grid.row = [](Station& st, int row) { xianshi(st, row); };
        st.controls.add(grid);
        for (const char* b : f.boxes) {
            Control text = control(form + "." + b, ControlKind::textbox);
            const std::string name = b;
            text.textof = [name](const Station& st) { return box(st, name); };
            text.text = [name](Station& st, const std::string& value) { st.master.boxes[name] = value; };
            // The number of a row can't change: it is typed only for a new row.
            if (name == "Tbh") text.enabled = [](const Station& st) { return st.master.adding; };
            st.controls.add(text);
        }
        std::vector<std::tuple<const char*, const char*, void (*)(Station&)>> buttons;
        if (f.rows)
            buttons = {{"CmdAdd", "增  加", addrow},
                       {"Command2", "增加保存", savenewrow},
                       {"Command1", "修改保存", savechangedrow},
                       {"CmdDel", "删  除", deleterow}};
        else
            buttons = {{"Command1", "修改保存", savechangedrow}};
        if (*f.sheet) {
            buttons.emplace_back("Command3", "导出", exporttable);
            buttons.emplace_back("Command4", "导入", importtable);
        }
        for (const auto& [name, caption, act] : buttons) {
            Control b = control(form + "." + name, ControlKind::button, caption);
            b.click = [act = act](Station& st, const std::string&) { guarded(st, act); };
            if (std::string(name) == "Command2")
                b.enabled = [](const Station& st) { return st.master.adding; };
            st.controls.add(b);
        }
        Control back = control(form + ".CmdCancel", ControlKind::button, "返  回");
        back.click = [](Station& st, const std::string&) { closemasterform(st); };
        st.controls.add(back);
    }
}

} // namespace orvane

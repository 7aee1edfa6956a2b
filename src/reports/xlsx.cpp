#include "reports/xlsx.h"

#include "processing/safefile.h"

#include <cmath>
#include <map>
#include <pugixml.hpp>
#include <set>
#include <stdexcept>
#include <tuple>
#include <unistd.h>
#include <xlsxwriter.h>
#include <zip.h>

namespace orvane {

namespace {

// The font size of the spreadsheet's default style, and the height of a line of text of size S:
// the spreadsheet gives a row of the default 11 points a height of 15.
constexpr double defaultsize = 11;
double lineheight(double size) {
    return size * 15.0 / 11.0;
}

// The look of a cell: its row's font size, thin lines around it, line breaks shown.
using Look = std::tuple<double, bool, bool>;

class Writer {
  public:
    explicit Writer(const std::string& path) : book_(workbook_new(path.c_str())) {}
    ~Writer() {
        if (book_) workbook_close(book_);
    }

    std::optional<std::string> write(const Workbook& book) {
        if (!book_) return std::string("无法创建工作簿");
        for (const Sheet& s : book.sheets())
            if (auto failed = sheet(s)) return failed;
        const lxw_error error = workbook_close(book_);
        book_ = nullptr;
        if (error != LXW_NO_ERROR) return std::string(lxw_strerror(error));
        return std::nullopt;
    }

  private:
    lxw_format* format(const Look& look) {
        auto it = formats_.find(look);
        if (it != formats_.end()) return it->second;
        lxw_format* f = workbook_add_format(book_);
        const auto& [size, bordered, wrapped] = look;
        format_set_font_size(f, size);
        if (bordered) format_set_border(f, LXW_BORDER_THIN);
        if (wrapped) format_set_text_wrap(f);
        formats_[look] = f;
        return f;
    }

    std::optional<std::string> sheet(const Sheet& s) {
        lxw_worksheet* ws = workbook_add_worksheet(book_, s.name.c_str());
        if (!ws) return "工作表名称无效：" + s.name;
        std::set<std::pair<int, int>> bordered;
        for (const std::string& range : s.borders) {
            std::pair<int, int> first, last;
            if (!rangecells(range, first, last)) return "区域无效：" + range;
            for (int r = first.first; r <= last.first; ++r)
                for (int c = first.second; c <= last.second; ++c) bordered.insert({r, c});
        }
        auto sizeof_ = [&](int row) {
            const auto it = s.rowfonts.find(row);
            return it == s.rowfonts.end() ? defaultsize : it->second;
        };
        // A row with a larger font or with line breaks gets a height that shows it whole.
        std::map<int, double> heights;
        for (const auto& [row, size] : s.rowfonts) heights[row] = lineheight(size);
        for (const auto& [place, value] : s.cells) {
            const auto [row, column] = place;
            const bool wrapped = !value.number && value.text.find('\n') != std::string::npos;
            lxw_format* f = format({sizeof_(row), bordered.count(place) > 0, wrapped});
            lxw_error error =
                value.number
                    ? worksheet_write_number(ws, row - 1, static_cast<lxw_col_t>(column - 1), value.real, f)
                    : worksheet_write_string(ws, row - 1, static_cast<lxw_col_t>(column - 1),
                                             value.text.c_str(), f);
            if (error != LXW_NO_ERROR) return cellname(row, column) + "：" + lxw_strerror(error);
            if (wrapped) {
                double lines = 1;
                for (char ch : value.text) lines += ch == '\n';
                heights[row] = std::max(heights[row], lines * lineheight(sizeof_(row)));
            }
        }
        // Blank cells of a bordered range get their lines too.
        for (const auto& place : bordered)
            if (!s.cells.count(place))
                worksheet_write_blank(ws, place.first - 1, static_cast<lxw_col_t>(place.second - 1),
                                      format({sizeof_(place.first), true, false}));
        for (const auto& [row, height] : heights) {
            const auto font = s.rowfonts.find(row);
            worksheet_set_row(ws, row - 1, height,
                              font == s.rowfonts.end() ? nullptr : format({font->second, false, false}));
        }
        for (const auto& [letters, width] : s.columnwidths) {
            std::pair<int, int> cell;
            if (!rangecells(letters + "1", cell, cell)) return "列无效：" + letters;
            worksheet_set_column(ws, static_cast<lxw_col_t>(cell.second - 1),
                                 static_cast<lxw_col_t>(cell.second - 1), width, nullptr);
        }
        return std::nullopt;
    }

    lxw_workbook* book_;
    std::map<Look, lxw_format*> formats_;
};

} // namespace

std::optional<std::string> savexlsx(const Workbook& book, const std::string& path) {
    const std::string partial = partialof(path);
    if (auto failed = Writer(partial).write(book)) {
        ::unlink(partial.c_str());
        return "无法写入 " + path + "：" + *failed;
    }
    return commitpartial(partial, path);
}

namespace {

// One member of the zip archive as text; empty when it is not there.
std::string member(zip_t* zip, const std::string& name) {
    zip_stat_t st;
    if (zip_stat(zip, name.c_str(), 0, &st) != 0) return {};
    zip_file_t* f = zip_fopen(zip, name.c_str(), 0);
    if (!f) return {};
    std::string text(static_cast<std::size_t>(st.size), '\0');
    const zip_int64_t n = zip_fread(f, text.data(), st.size);
    zip_fclose(f);
    if (n < 0) return {};
    text.resize(static_cast<std::size_t>(n));
    return text;
}

pugi::xml_document parsed(zip_t* zip, const std::string& name) {
    pugi::xml_document doc;
    const std::string text = member(zip, name);
    if (text.empty() || !doc.load_buffer(text.data(), text.size()))
        throw std::runtime_error("工作簿缺少或无法读取 " + name);
    return doc;
}

// The spreadsheet's escapes of control characters, "_x000D_", back to the characters.
std::string unescaped(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '_' && i + 6 < text.size() && text[i + 1] == 'x' && text[i + 6] == '_') {
            const std::string hex = text.substr(i + 2, 4);
            if (hex.find_first_not_of("0123456789ABCDEFabcdef") == std::string::npos) {
                out += static_cast<char>(std::stoi(hex, nullptr, 16));
                i += 6;
                continue;
            }
        }
        out += text[i];
    }
    return out;
}

// The text of a string item: its t, or the t of each run.
std::string itemtext(const pugi::xml_node& si) {
    if (auto t = si.child("t")) return unescaped(t.text().get());
    std::string text;
    for (auto r : si.children("r")) text += r.child("t").text().get();
    return unescaped(text);
}

struct Styles {
    std::vector<double> fontsize;    // by font
    std::vector<bool> thin;          // by border: thin on all four sides
    std::vector<std::size_t> font;   // by cell format
    std::vector<std::size_t> border; // by cell format
};

Styles styles(zip_t* zip) {
    Styles s;
    const pugi::xml_document doc = parsed(zip, "xl/styles.xml");
    const auto root = doc.child("styleSheet");
    for (auto f : root.child("fonts").children("font"))
        s.fontsize.push_back(f.child("sz").attribute("val").as_double());
    for (auto b : root.child("borders").children("border")) {
        bool all = true;
        for (const char* side : {"left", "right", "top", "bottom"})
            all = all && std::string(b.child(side).attribute("style").as_string()) == "thin";
        s.thin.push_back(all);
    }
    for (auto xf : root.child("cellXfs").children("xf")) {
        s.font.push_back(xf.attribute("fontId").as_uint());
        s.border.push_back(xf.attribute("borderId").as_uint());
    }
    return s;
}

// The width that the spreadsheet shows for a stored column width: the writer stores the width in
// pixels of 7 to the character plus a padding of 5 pixels.
double shownwidth(double stored) {
    return (std::round(stored * 7) - 5) / 7;
}

void readsheet(zip_t* zip, const std::string& name, const std::vector<std::string>& strings, const Styles& st,
               Sheet& sheet) {
    const pugi::xml_document doc = parsed(zip, name);
    const auto root = doc.child("worksheet");
    for (auto col : root.child("cols").children("col"))
        for (unsigned c = col.attribute("min").as_uint(); c >= 1 && c <= col.attribute("max").as_uint(); ++c)
            sheet.columnwidths[columnletters(static_cast<int>(c))] =
                shownwidth(col.attribute("width").as_double());
    auto fontof = [&](std::size_t xf) {
        return xf < st.font.size() && st.font[xf] < st.fontsize.size() ? st.fontsize[st.font[xf]]
                                                                       : defaultsize;
    };
    for (auto row : root.child("sheetData").children("row")) {
        const int r = row.attribute("r").as_int();
        if (row.attribute("customFormat").as_bool()) {
            const double size = fontof(row.attribute("s").as_uint());
            if (size != defaultsize) sheet.rowfonts[r] = size;
        }
        for (auto c : row.children("c")) {
            std::pair<int, int> place;
            if (!rangecells(c.attribute("r").as_string(), place, place)) continue;
            const std::size_t xf = c.attribute("s").as_uint();
            if (xf < st.border.size() && st.border[xf] < st.thin.size() && st.thin[st.border[xf]])
                sheet.border(cellname(place.first, place.second));
            const std::string type = c.attribute("t").as_string();
            if (type == "s") {
                const std::size_t k = c.child("v").text().as_uint();
                sheet.write(place.first, place.second,
                            CellValue{false, 0, k < strings.size() ? strings[k] : ""});
            } else if (type == "inlineStr") {
                sheet.write(place.first, place.second, CellValue{false, 0, itemtext(c.child("is"))});
            } else if (type == "str") {
                sheet.write(place.first, place.second,
                            CellValue{false, 0, unescaped(c.child("v").text().get())});
            } else if (c.child("v")) {
                sheet.write(place.first, place.second, c.child("v").text().as_double());
            }
        }
    }
}

} // namespace

Workbook readxlsx(const std::string& path) {
    int error = 0;
    zip_t* zip = zip_open(path.c_str(), ZIP_RDONLY, &error);
    if (!zip) throw std::runtime_error("无法打开工作簿 " + path);
    struct Closer {
        zip_t* z;
        ~Closer() { zip_discard(z); }
    } closer{zip};
    std::vector<std::string> strings;
    if (!member(zip, "xl/sharedStrings.xml").empty()) {
        const pugi::xml_document doc = parsed(zip, "xl/sharedStrings.xml");
        for (auto si : doc.child("sst").children("si")) strings.push_back(itemtext(si));
    }
    const Styles st = styles(zip);
    std::map<std::string, std::string> targets;
    const pugi::xml_document rels = parsed(zip, "xl/_rels/workbook.xml.rels");
    for (auto r : rels.child("Relationships").children("Relationship"))
        targets[r.attribute("Id").as_string()] = r.attribute("Target").as_string();
    const pugi::xml_document doc = parsed(zip, "xl/workbook.xml");
    Workbook book;
    book.sheets().clear();
    for (auto s : doc.child("workbook").child("sheets").children("sheet")) {
        Sheet sheet;
        sheet.name = s.attribute("name").as_string();
        std::string target = targets[s.attribute("r:id").as_string()];
        if (target.rfind("/xl/", 0) == 0) target = target.substr(4);
        readsheet(zip, "xl/" + target, strings, st, sheet);
        book.sheets().push_back(std::move(sheet));
    }
    return book;
}

} // namespace orvane

#include "reports/notice.h"

#include "amode/amode.h"
#include "bmode/bmode.h"
#include "processing/zoom.h"
#include "reports/printlayer.h"
#include "reports/printout.h"
#include "station/text.h"

#include <numeric>
#include <utility>

namespace orvane {

namespace {

constexpr double X0 = 1300, Y0 = 1100;
// The fields' row: each value has the room up to the next label, less a small gap.
constexpr double fieldgap = 100;
// The B-mode picture's box, and the A-mode picture's: Picture3 as large as on the window (434 by
// 301 pixels of 15 twips). The tables fill the room left of the A-mode picture.
constexpr double bmodewidth = 14000, bmodeheight = 4900;
constexpr double amodex = X0 + 8600, amodewidth = 434 * 15, amodeheight = 301 * 15;
constexpr double tablewidth = 8400, tablerow = 330;
// A table starts this far below its heading.
constexpr double headingroom = 300;
// The pictures' canvases on the window in pixels, which a dot's or a line's width counts in.
constexpr double bmodepixels[2] = {1200, 420}, amodepixels[2] = {620, 430};

// One element of the page: an element that fails is skipped and the page goes on.
template <class F> void element(F&& make) {
    try {
        make();
    } catch (const std::exception&) {
    }
}

// What the canvas at PORT shows, drawn anew by DRAW into a recorder put in its place for the while.
template <class F> RecordingCanvas snapshot(Canvas*& port, F&& draw) {
    RecordingCanvas copy;
    if (port) copy.scale(port->scalewidth, port->scaletop, port->scaleheight);
    struct Restore {
        Canvas*& port;
        Canvas* kept;
        ~Restore() { port = kept; }
    } restore{port, std::exchange(port, &copy)};
    draw();
    return copy;
}

std::string labelof(const Station& st, const std::string& name) {
    const auto it = st.form.labels.find(name);
    return it == st.form.labels.end() ? std::string() : it->second;
}

// An empty box prints as twelve blanks, which keeps the place of a name written in by hand.
std::string orblanks(const std::string& text) {
    return text.empty() ? std::string(12, ' ') : text;
}

// The width of one character in ems of the page's font, the widest its family has for such a one.
double emsof(char32_t c) {
    if (c >= 0x2E80) return 1; // Chinese, full-width forms
    if (c >= '0' && c <= '9') return 0.556;
    if (c == ' ' || c == '.' || c == ',' || c == ':' || c == ';' || c == '\'' || c == '|') return 0.278;
    if (c >= 'a' && c <= 'z') return c == 'm' || c == 'w' ? 0.833 : 0.556;
    if (c >= 'A' && c <= 'Z') return c == 'M' || c == 'W' ? 0.944 : 0.778;
    return 0.667;
}

void printtable(PrintLayer& p, const Table& list) {
    std::size_t columns = 0;
    for (const auto& row : list) columns = std::max(columns, row.size());
    p.starttable();
    p.tablesize(static_cast<int>(columns), static_cast<int>(list.size()));
    p.rowheight(tablerow);
    const std::vector<double> widths = listwidths(list);
    const double total = std::accumulate(widths.begin(), widths.end(), 0.0);
    for (std::size_t c = 0; c < columns; ++c)
        p.columnwidth(static_cast<int>(c), total > 0 ? widths[c] / total * tablewidth : tablewidth / columns);
    for (std::size_t r = 0; r < list.size(); ++r)
        for (std::size_t c = 0; c < list[r].size(); ++c)
            p.cell(static_cast<int>(r), static_cast<int>(c), list[r][c]);
    p.endtable();
}

// A picture and the four lines along its edges.
void framedpicture(PrintLayer& p, const std::string& source, const RecordingCanvas& canvas,
                   const double* pixels, double x, double y, double width, double height) {
    element([&] { p.picture(source, &canvas, pixels[0], pixels[1], x, y, width, height); });
    element([&] { p.line(x, y, x + width, y); });
    element([&] { p.line(x + width, y, x + width, y + height); });
    element([&] { p.line(x, y + height, x + width, y + height); });
    element([&] { p.line(x, y, x, y + height); });
}

} // namespace

double textwidth(const std::string& text, double size) {
    double ems = 0;
    for (char32_t c : utf32of(text)) ems += emsof(c);
    return ems * size * 20;
}

std::string cliptext(const std::string& text, double size, double room) {
    std::u32string kept;
    double width = 0;
    for (char32_t c : utf32of(text)) {
        width += emsof(c) * size * 20;
        if (width > room) break;
        kept.push_back(c);
    }
    return utf8of(kept);
}

std::vector<double> listwidths(const Table& list) {
    std::vector<double> widths;
    for (const auto& row : list) {
        if (widths.size() < row.size()) widths.resize(row.size(), 2);
        for (std::size_t c = 0; c < row.size(); ++c) {
            double chars = 0;
            for (char32_t ch : utf32of(row[c])) chars += ch >= 0x2E80 ? 2 : 1;
            widths[c] = std::max(widths[c], chars + 2); // a character's room on each side
        }
    }
    return widths;
}

PrintedPage noticepage(Station& st) {
    const bool china = !english(st);
    const RecordingCanvas bmode = snapshot(st.picture1, [&] {
        background(st);
        drawdefectnote(st);
    });
    RecordingCanvas amode = snapshot(st.picture3, [&] {
        if (amodeshown(st)) redrawamode(st);
    });
    // Before any A-mode the box stays empty on the paper.
    if (!amodeshown(st)) amode.backgroundcolor = rgb(255, 255, 255);

    PrintLayer p;
    p.startdoc();
    p.fontname = "Arial";
    auto write = [&](double x, double y, double size, bool bold, const std::string& text, double room = 0) {
        element([&] {
            p.fontsize = size;
            p.fontbold = bold;
            p.currentx = x;
            p.currenty = y;
            p.text(room > 0 ? cliptext(text, size, room) : text);
        });
    };
    write(6500, 400, 24, false, china ? "报警点" + st.noticekind + "通知单" : "Report");
    if (china) write(1300, Y0, 12, true, "工务段：");
    write(2200, Y0, 12, false, orblanks(st.form.Tgwd), 3400 - 2200 - fieldgap);
    if (china) write(3400, Y0, 12, true, "线别：");
    write(4300, Y0, 12, false, st.form.Txb, 5500 - 4300 - fieldgap);
    write(5500, Y0, 12, true, china ? "日期：" : "Date：");
    write(6400, Y0, 12, false, labelof(st, "Lzyrq"), 8100 - 6400 - fieldgap);
    write(8100, Y0, 12, true, china ? "机号：" : "M/C：");
    write(9000, Y0, 12, false, labelof(st, "Ljqbh"), 10100 - 9000 - fieldgap);
    if (china) write(10100, Y0, 12, true, "分析人：");
    write(11000, Y0, 12, false, orblanks(st.form.Tmc), 12000 - 11000 - fieldgap);
    if (china) write(12000, Y0, 12, true, "分析日：");
    write(12900, Y0, 12, false, st.form.Textdyrq, X0 + bmodewidth - 12900);

    write(X0, Y0 + 420, 10, false, china ? "B型显示图" : "B-mode shown");
    framedpicture(p, "Picture1", bmode, bmodepixels, X0, Y0 + 710, bmodewidth, bmodeheight);
    write(amodex, Y0 + 5500 + 350, 10, false, amodecaption(st), amodewidth);
    framedpicture(p, "Picture3", amode, amodepixels, amodex, Y0 + 6150, amodewidth, amodeheight);

    double y = Y0 + 6150;
    for (const auto& [heading, list] : {std::pair<const char*, const Table*>{"探头状态", &st.zhu.Grid1},
                                        {"作业参数", &st.zhu.Grid2},
                                        {"仪器设置", &st.zhu.Grid3}}) {
        write(X0, y, 10, false, heading);
        p.currentx = X0;
        p.currenty = y + headingroom;
        element([&, list = list] { printtable(p, *list); });
        y = p.currenty;
    }
    if (china)
        write(X0, y, 10, false,
              "GPS数值： " + labelof(st, "Label2_9") + " " + labelof(st, "Label2_8") + std::string(8, ' ') +
                  labelof(st, "Label2_1"));
    return p.enddoc();
}

void pressnotice(Station& st, const std::string& button) {
    st.noticekind = button == "right" ? "反馈" : "复核";
    opennotice(st);
}

void opennotice(Station& st) {
    st.Form25open = true;
    const PrintedPage page = noticepage(st);
    if (!st.printer) return;
    bool closed = false;
    try {
        closed = st.printer->print(page);
    } catch (const std::exception& e) {
        // A page that can't go out ends the print with its reason; the display goes back as on a close.
        st.ui->message(std::string("通知单未能打印：") + e.what());
        closed = true;
    }
    if (closed) closenotice(st);
}

void closenotice(Station& st) {
    st.Form25open = false;
    closeprintpanel(st);
}

} // namespace orvane

#include "reports/printlayer.h"

namespace orvane {

void PrintLayer::startdoc() {
    page_ = {};
    open_ = true;
    intable_ = false;
}

const PrintedPage& PrintLayer::enddoc() {
    open_ = false;
    intable_ = false;
    return page_;
}

PageOp& PrintLayer::add(PageOp op) {
    if (!open_) throw PrintError("打印文档尚未开始");
    op.font = fontname;
    op.size = fontsize;
    op.bold = fontbold;
    page_.ops.push_back(std::move(op));
    return page_.ops.back();
}

namespace {

PageOp opat(PageOp::Kind kind, double x, double y) {
    PageOp op;
    op.kind = kind;
    op.x = x;
    op.y = y;
    return op;
}

} // namespace

void PrintLayer::text(const std::string& text) {
    PageOp op = opat(PageOp::Kind::text, currentx, currenty);
    op.text = text;
    add(std::move(op));
}

void PrintLayer::line(double x1, double y1, double x2, double y2) {
    PageOp op = opat(PageOp::Kind::line, x1, y1);
    op.x2 = x2;
    op.y2 = y2;
    add(std::move(op));
}

void PrintLayer::picture(const std::string& source, const RecordingCanvas* canvas, double pixelwidth,
                         double pixelheight, double x, double y, double width, double height) {
    if (!canvas) throw PrintError("没有图像：" + source);
    PageOp op = opat(PageOp::Kind::picture, x, y);
    op.width = width;
    op.height = height;
    op.source = source;
    op.picture = *canvas;
    op.pixelwidth = pixelwidth;
    op.pixelheight = pixelheight;
    add(std::move(op));
}

void PrintLayer::starttable() {
    if (!open_) throw PrintError("打印文档尚未开始");
    table_ = opat(PageOp::Kind::table, currentx, currenty);
    intable_ = true;
}

void PrintLayer::tablesize(int columns, int rows) {
    if (!intable_) throw PrintError("表格尚未开始");
    if (columns < 0 || rows < 0) throw PrintError("表格大小有误");
    table_.widths.assign(static_cast<std::size_t>(columns), 0);
    table_.rows.assign(static_cast<std::size_t>(rows),
                       std::vector<std::string>(static_cast<std::size_t>(columns)));
}

void PrintLayer::rowheight(double height) {
    if (!intable_) throw PrintError("表格尚未开始");
    table_.rowheight = height;
}

void PrintLayer::columnwidth(int column, double width) {
    if (!intable_ || column < 0 || static_cast<std::size_t>(column) >= table_.widths.size())
        throw PrintError("表格没有第 " + std::to_string(column) + " 列");
    table_.widths[static_cast<std::size_t>(column)] = width;
}

void PrintLayer::cell(int row, int column, const std::string& text) {
    if (!intable_ || row < 0 || static_cast<std::size_t>(row) >= table_.rows.size() || column < 0 ||
        static_cast<std::size_t>(column) >= table_.widths.size())
        throw PrintError("表格没有单元 " + std::to_string(row) + "," + std::to_string(column));
    table_.rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = text;
}

void PrintLayer::endtable() {
    if (!intable_) throw PrintError("表格尚未开始");
    intable_ = false;
    double width = 0;
    for (double w : table_.widths) width += w;
    table_.width = width;
    table_.height = table_.rowheight * static_cast<double>(table_.rows.size());
    const double bottom = table_.y + table_.height;
    add(std::move(table_));
    currentx = page_.ops.back().x;
    currenty = bottom + tablegap;
}

} // namespace orvane

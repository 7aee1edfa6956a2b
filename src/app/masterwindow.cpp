#include "app/masterwindow.h"

#include "app/masterdata.h"
#include "station/controls.h"
#include "station/station.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace orvane {

namespace {

// What a button does where its caption alone doesn't say it.
QString tipof(const std::string& button, const std::string& form) {
    const QString table = form == "Form5" ? "人员表" : "线别表";
    if (button == "Command3") return "软件升级时，用于从原有软件中将" + table + "恢复到新系统中来";
    if (button == "Command4") return "用工作簿第一页的第2行起各行替换整个" + table + "（第1列为空处结束）";
    if (button == "CmdAdd") return "清空输入框，输入新记录后按“增加保存”";
    if (button == "Command1") return "保存对当前记录的修改，编号不能修改";
    return {};
}

} // namespace

MasterWindow::MasterWindow(Station& st, const std::string& form, ControlView::Act act, QWidget* parent)
    : QDialog(parent), st_(st), form_(form), act_(std::move(act)) {
    setObjectName(QString::fromStdString(form));
    setWindowTitle(QString::fromStdString(mastertitle(form)));
    setModal(true);
    resize(560, 460);
    auto* box = new QVBoxLayout(this);
    box->addWidget(gridwidget(this, "Grid1", "点击一行，将该记录显示在下面的输入框中"), 1);

    // The boxes under the heads of their columns, the buttons in the order the window registers them.
    const std::string prefix = form + ".";
    const Table& heads = st_.master.Grid1;
    auto* fields = new QFormLayout();
    auto* buttons = new QHBoxLayout();
    std::size_t column = 0;
    for (const Control& c : st_.controls.all()) {
        if (c.name.rfind(prefix, 0) != 0) continue;
        const QString name = QString::fromStdString(c.name.substr(prefix.size()));
        if (c.kind == ControlKind::textbox) {
            auto* text = new QLineEdit(this);
            text->setObjectName(name);
            const bool headed = !heads.empty() && column < heads[0].size();
            fields->addRow(headed ? QString::fromStdString(heads[0][column]) : name, text);
            ++column;
        } else if (c.kind == ControlKind::button) {
            auto* b = new QPushButton(QString::fromStdString(c.title), this);
            b->setObjectName(name);
            b->setAutoDefault(false);
            b->setToolTip(tipof(name.toStdString(), form));
            buttons->addWidget(b);
        }
    }
    box->addLayout(fields);
    box->addLayout(buttons);
    controls_ = new ControlView(st_, this, prefix, act_);
    refresh();
}

void MasterWindow::refresh() {
    if (st_.master.name != form_) {
        if (isVisible()) accept();
        return;
    }
    controls_->refresh();
}

void MasterWindow::reject() {
    act_([this] {
        if (st_.master.name == form_) closeform(st_, form_);
    });
    if (isVisible()) QDialog::reject();
}

} // namespace orvane

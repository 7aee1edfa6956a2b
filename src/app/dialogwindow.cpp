#include "app/dialogwindow.h"

#include "reports/shelf.h"

#include "render/rastercanvas.h"

#include <QApplication>
#include <QColorDialog>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QUrl>

namespace orvane {

namespace {

QString q(const std::string& s) {
    return QString::fromStdString(s);
}

// "文本文件 (*.TXT)|*.TXT" as the station writes filters, to Qt's "文本文件 (*.TXT *.txt)".
QString qtfilter(const std::string& filter) {
    QStringList parts = q(filter).split('|');
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts[i + 1].replace(';', ' ');
        out << parts[i].section('(', 0, 0).trimmed() + " (" + patterns + " " + patterns.toLower() + ")";
    }
    return out.join(";;");
}

} // namespace

void DialogUi::message(const std::string& text) {
    prepare();
    QMessageBox::information(parent_, QString(), q(text));
}

bool DialogUi::askyesno(const std::string& text) {
    prepare();
    return QMessageBox::question(parent_, QString(), q(text), QMessageBox::Yes | QMessageBox::No) ==
           QMessageBox::Yes;
}

std::optional<std::string> DialogUi::inputbox(const std::string& prompt, const std::string& title,
                                              const std::string& preset) {
    bool ok = false;
    QString text = QInputDialog::getText(parent_, q(title), q(prompt), QLineEdit::Normal, q(preset), &ok);
    if (!ok) return std::nullopt;
    return text.toStdString();
}

std::optional<std::string> DialogUi::openfile(const std::string& filter, const std::string&) {
    QString path = QFileDialog::getOpenFileName(parent_, QString(), QString(), qtfilter(filter));
    if (path.isEmpty()) return std::nullopt;
    return path.toStdString();
}

std::optional<std::string> DialogUi::savefile(const std::string& filter, const std::string& extension,
                                              const std::string& title) {
    QFileDialog dialog(parent_, q(title), QString(), qtfilter(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(q(extension));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return dialog.selectedFiles().first().toStdString();
}

std::optional<std::uint32_t> DialogUi::pickcolor(std::uint32_t current) {
    QColor chosen = QColorDialog::getColor(qcolorof(current), parent_);
    if (!chosen.isValid()) return std::nullopt;
    return static_cast<std::uint32_t>(chosen.red() + 256 * chosen.green() + 65536 * chosen.blue());
}

void DialogUi::progressmax(double maximum) {
    if (!bar_) return;
    prepare(); // the bar and its label shown before the long work starts
    bar_->show();
    bar_->setMaximum(static_cast<int>(std::min(maximum, 2147483647.0)));
    bar_->setValue(0);
}

void DialogUi::progress(long value) {
    if (!bar_) return;
    // The walk yields to the window only here; a repaint every few hundred records keeps it alive
    // without slowing the walk.
    if (value % 512 != 0 && value != bar_->maximum()) return;
    bar_->setValue(static_cast<int>(value));
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void DesktopWorkbooks::show(const Workbook& book, const std::string& report) {
    const Shelved shelved = shelve(st_, book, report);
    if (shelved.failed) {
        QMessageBox::warning(parent_, "orvane", "报表未能保存：" + q(*shelved.failed));
        return;
    }
    const QString path = q(shelved.path);
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    // Not modal: the analyst goes on while the spreadsheet opens.
    auto* box = new QMessageBox(QMessageBox::Information, "orvane", "报表已保存：\n" + path, QMessageBox::Ok,
                                parent_);
    box->setAttribute(Qt::WA_DeleteOnClose);
    QPushButton* folder = box->addButton("打开文件夹", QMessageBox::ActionRole);
    QObject::connect(folder, &QPushButton::clicked, box, [path] {
        QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath()));
    });
    box->open();
}

} // namespace orvane

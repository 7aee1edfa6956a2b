#include "station/controlview.h"

#include "station/station.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableWidget>

namespace orvane {

QTableWidget* gridwidget(QWidget* parent, const char* name, const char* tip) {
    auto* grid = new QTableWidget(parent);
    grid->setObjectName(name);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid->setSelectionMode(QAbstractItemView::SingleSelection);
    grid->verticalHeader()->hide();
    grid->horizontalHeader()->hide();
    grid->horizontalHeader()->setStretchLastSection(true);
    grid->setToolTip(QString::fromUtf8(tip));
    return grid;
}

ControlView::ControlView(Station& st, QWidget* window, std::string prefix, Act act)
    : QObject(window), st_(st), prefix_(std::move(prefix)), act_(std::move(act)) {
    for (QObject* object : window->findChildren<QObject*>()) {
        if (object->objectName().isEmpty()) continue;
        const Control* c = controlof(object);
        if (c && c->kind != ControlKind::canvas) bind(object, *c);
    }
}

const Control* ControlView::controlof(QObject* object) const {
    return st_.controls.find(prefix_ + object->objectName().toStdString());
}

std::vector<std::string> ControlView::bound() const {
    std::vector<std::string> names;
    for (const Binding& b : bindings_) names.push_back(b.name);
    return names;
}

void ControlView::bind(QObject* object, const Control& c) {
    const std::string name = c.name;
    bindings_.push_back({object, name});
    if (auto* button = qobject_cast<QAbstractButton*>(object)) {
        connect(button, &QAbstractButton::clicked, this,
                [this, name] { act_([this, name] { press(st_, name); }); });
    } else if (auto* bar = qobject_cast<QScrollBar*>(object)) {
        connect(bar, &QScrollBar::valueChanged, this, [this, name](int value) {
            if (!refreshing_) act_([this, name, value] { scroll(st_, name, value); });
        });
    } else if (auto* box = qobject_cast<QLineEdit*>(object)) {
        connect(box, &QLineEdit::textEdited, this, [this, name](const QString& text) {
            act_([this, name, text] { setcontrol(st_, name, text.toStdString()); });
        });
        connect(box, &QLineEdit::returnPressed, this, [this, name, box] {
            act_([this, name, box] { enter(st_, name, box->text().toStdString()); });
        });
    } else if (auto* entry = qobject_cast<QAction*>(object)) {
        connect(entry, &QAction::triggered, this, [this, name] { act_([this, name] { press(st_, name); }); });
    } else if (auto* combo = qobject_cast<QComboBox*>(object)) {
        connect(combo, &QComboBox::textActivated, this, [this, name](const QString& text) {
            act_([this, name, text] { select(st_, name, text.toStdString()); });
        });
    } else if (auto* tabs = qobject_cast<QTabWidget*>(object)) {
        connect(tabs, &QTabWidget::currentChanged, this, [this, name](int index) {
            if (!refreshing_) act_([this, name, index] { scroll(st_, name, index); });
        });
    } else if (auto* table = qobject_cast<QTableWidget*>(object)) {
        if (c.row)
            connect(table, &QTableWidget::cellClicked, this,
                    [this, name](int row, int) { act_([this, name, row] { clickrow(st_, name, row); }); });
        if (c.dblclick)
            connect(table, &QTableWidget::cellDoubleClicked, this,
                    [this, name](int row, int) { act_([this, name, row] { dblclick(st_, name, row); }); });
    }
    // Labels take clicks, and any widget may have a rule for taking the focus.
    if (qobject_cast<QLabel*>(object) || c.focus || c.blur) object->installEventFilter(this);
}

bool ControlView::eventFilter(QObject* watched, QEvent* event) {
    const Control* c = controlof(watched);
    if (c && event->type() == QEvent::FocusIn && c->focus && !refreshing_) {
        const std::string name = c->name;
        act_([this, name] { focus(st_, name); });
    }
    if (c && event->type() == QEvent::FocusOut && c->blur && !refreshing_) {
        const std::string name = c->name;
        act_([this, name] {
            const Control* left = st_.controls.find(name);
            if (left) left->blur(st_);
        });
    }
    if (c && c->click && event->type() == QEvent::MouseButtonPress && qobject_cast<QLabel*>(watched)) {
        const std::string name = c->name;
        const bool right = static_cast<QMouseEvent*>(event)->button() == Qt::RightButton;
        act_([this, name, right] { press(st_, name, right ? "right" : "left"); });
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void ControlView::refresh() {
    refreshing_ = true;
    for (Binding& b : bindings_) show(b);
    refreshing_ = false;
}

void ControlView::show(Binding& b) {
    const Control* c = st_.controls.find(b.name);
    if (!c) return;
    const QString caption = QString::fromStdString(controlcaption(st_, *c));
    if (auto* entry = qobject_cast<QAction*>(b.object)) {
        entry->setEnabled(c->isenabled(st_));
        entry->setVisible(c->isvisible(st_));
        if (entry->isCheckable() && c->value) entry->setChecked(c->value(st_) != 0);
        if (!caption.isEmpty() && entry->text() != caption) entry->setText(caption);
        return;
    }
    auto* widget = qobject_cast<QWidget*>(b.object);
    if (!widget) return;
    if (widget->isEnabled() != c->isenabled(st_)) widget->setEnabled(c->isenabled(st_));
    if (widget->isHidden() == c->isvisible(st_)) widget->setVisible(c->isvisible(st_));
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        if (!caption.isEmpty() && button->text() != caption) button->setText(caption);
        if (c->value && button->isCheckable() && button->isChecked() != (c->value(st_) != 0)) {
            const QSignalBlocker quiet(button);
            button->setChecked(c->value(st_) != 0);
        }
    } else if (auto* label = qobject_cast<QLabel*>(widget)) {
        const QString text = c->textof ? QString::fromStdString(c->textof(st_)) : caption;
        if (label->text() != text) label->setText(text);
    } else if (auto* box = qobject_cast<QLineEdit*>(widget)) {
        const QString text = QString::fromStdString(c->textof ? c->textof(st_) : std::string());
        if (box->text() != text) box->setText(text);
    } else if (auto* bar = qobject_cast<QScrollBar*>(widget)) {
        const QSignalBlocker quiet(bar);
        if (bar->minimum() != c->min || bar->maximum() != c->rangemax(st_))
            bar->setRange(c->min, c->rangemax(st_));
        if (c->value && bar->value() != c->value(st_)) bar->setValue(c->value(st_));
    } else if (auto* combo = qobject_cast<QComboBox*>(widget)) {
        // A combo box whose entries follow a table shows them as its first row of cells.
        if (c->cells) {
            QStringList entries;
            const auto cells = c->cells(st_);
            if (!cells.empty())
                for (const std::string& entry : cells[0]) entries << QString::fromStdString(entry);
            QStringList shown;
            for (int i = 0; i < combo->count(); ++i) shown << combo->itemText(i);
            if (shown != entries) {
                const QSignalBlocker quiet(combo);
                combo->clear();
                combo->addItems(entries);
            }
        }
        const QString text = QString::fromStdString(c->textof ? c->textof(st_) : std::string());
        if (combo->currentText() != text) {
            const QSignalBlocker quiet(combo);
            // A fixed list shows no entry while its text is none of them.
            if (!combo->isEditable() && combo->findText(text) < 0)
                combo->setCurrentIndex(-1);
            else
                combo->setCurrentText(text);
        }
    } else if (auto* tabs = qobject_cast<QTabWidget*>(widget)) {
        if (c->value && tabs->currentIndex() != c->value(st_)) {
            const QSignalBlocker quiet(tabs);
            tabs->setCurrentIndex(c->value(st_));
        }
    } else if (auto* table = qobject_cast<QTableWidget*>(widget)) {
        if (!c->cells) return;
        if (c->revision) {
            const std::uint64_t now = c->revision(st_);
            if (now == b.shownrevision) return selectrow(table, *c);
            b.shownrevision = now;
        }
        const auto cells = c->cells(st_);
        table->setRowCount(static_cast<int>(cells.size()));
        table->setColumnCount(cells.empty() ? 0 : static_cast<int>(cells[0].size()));
        for (std::size_t r = 0; r < cells.size(); ++r)
            for (std::size_t k = 0; k < cells[r].size(); ++k) {
                const QString text = QString::fromStdString(cells[r][k]);
                auto* item = table->item(static_cast<int>(r), static_cast<int>(k));
                if (!item)
                    table->setItem(static_cast<int>(r), static_cast<int>(k), new QTableWidgetItem(text));
                else if (item->text() != text)
                    item->setText(text);
            }
        selectrow(table, *c);
    }
}

void ControlView::selectrow(QTableWidget* table, const Control& c) {
    if (!c.value) return;
    const int row = c.value(st_);
    if (row <= 0) {
        if (!table->selectedItems().isEmpty()) table->clearSelection();
    } else if (table->currentRow() != row || table->selectedItems().isEmpty()) {
        const QSignalBlocker quiet(table);
        table->selectRow(row);
    }
}

} // namespace orvane

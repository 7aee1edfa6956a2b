#include "bmode/formpk2window.h"

#include "station/station.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>

namespace orvane {

Formpk2Window::Formpk2Window(Station& st, ControlView::Act act, QWidget* parent)
    : QDialog(parent), st_(st), act_(act) {
    setObjectName("Formpk2");
    setWindowTitle(st_.language == "english" ? "Shift" : "拼孔");
    setModal(true);
    auto* grid = new QGridLayout(this);
    // The labels of the bars: Labea..Labef for A to F, then Label2 (G) and Label1 (H).
    static const char* const labels[] = {"Labea", "Labeb", "Labec",  "Labed",
                                         "Labee", "Labef", "Label2", "Label1"};
    for (int k = 0; k < 8; ++k) {
        auto* label = new QLabel(this);
        label->setObjectName(labels[k]);
        auto* bar = new QScrollBar(Qt::Horizontal, this);
        bar->setObjectName(QString("HScroll%1").arg(k + 1));
        bar->setMinimumWidth(360);
        auto* value = new QLabel("0", this);
        connect(bar, &QScrollBar::valueChanged, value, qOverload<int>(&QLabel::setNum));
        grid->addWidget(label, k, 0);
        grid->addWidget(bar, k, 1);
        grid->addWidget(value, k, 2);
    }
    for (const char* name : {"Labeg", "Labegg"}) {
        auto* label = new QLabel(this);
        label->setObjectName(name);
        grid->addWidget(label, 8, name[5] == 'g' ? 1 : 0);
    }
    auto* frame6 = new QGroupBox("拼孔模式", this);
    frame6->setObjectName("Frame6");
    auto* modes = new QHBoxLayout(frame6);
    for (const char* name : {"Option1", "Option2"}) {
        auto* option = new QRadioButton(frame6);
        option->setObjectName(name);
        modes->addWidget(option);
    }
    grid->addWidget(frame6, 9, 0, 1, 3);
    auto* buttons = new QHBoxLayout();
    for (const char* name : {"Cmdbc", "Cmdsc"}) {
        auto* b = new QPushButton(this);
        b->setObjectName(name);
        b->setAutoDefault(false);
        buttons->addWidget(b);
    }
    grid->addLayout(buttons, 10, 0, 1, 3);
    controls_ = new ControlView(st_, this, "Formpk2.", act_);
    refresh();
    // The frame of the modes shows as its options do: not in English, not for the comparison side.
    frame6->setVisible(!findChild<QRadioButton*>("Option1")->isHidden());
}

void Formpk2Window::refresh() {
    if (!st_.alignment.open) {
        if (isVisible()) accept();
        return;
    }
    controls_->refresh();
}

void Formpk2Window::reject() {
    // Closing the window ends the alignment; the main window's refresh then closes this one.
    act_([this] {
        if (st_.alignment.open) closeform(st_, "Formpk2");
    });
    if (isVisible()) QDialog::reject();
}

} // namespace orvane

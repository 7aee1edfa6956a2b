#include "app/formpk2window.h"

#include "app/actions.h"
#include "app/station.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>

namespace orvane {

Formpk2Window::Formpk2Window(Station& st, Act act, QWidget* parent)
    : QDialog(parent), st_(st), act_(std::move(act)) {
    setObjectName("Formpk2");
    const bool english = st_.language == "english";
    setWindowTitle(english ? "Shift" : "拼孔");
    setModal(true);
    auto* grid = new QGridLayout(this);
    // The labels of the bars: Labea..Labef for A to F, then Label2 (G) and Label1 (H).
    static const char* const labels[] = {"Labea", "Labeb", "Labec",  "Labed",
                                         "Labee", "Labef", "Label2", "Label1"};
    for (int k = 0; k < 8; ++k) {
        auto* label = new QLabel(QString(QChar('A' + k)), this);
        label->setObjectName(labels[k]);
        auto* bar = new QScrollBar(Qt::Horizontal, this);
        const std::string name = "HScroll" + std::to_string(k + 1);
        bar->setObjectName(QString::fromStdString(name));
        bar->setRange(-200, 200);
        bar->setValue(0); // a bar tells the change against the words at the opening
        bar->setMinimumWidth(360);
        auto* value = new QLabel("0", this);
        connect(bar, &QScrollBar::valueChanged, this, [this, name, value](int v) {
            value->setNum(v);
            control([this, name, v] { orvane::scroll(st_, name, v); });
        });
        grid->addWidget(label, k, 0);
        grid->addWidget(bar, k, 1);
        grid->addWidget(value, k, 2);
    }
    auto* labeg = new QLabel("I", this);
    labeg->setObjectName("Labeg");
    auto* labegg = new QLabel(english ? "Reference,fixed" : "基准位置，不可调整", this);
    labegg->setObjectName("Labegg");
    grid->addWidget(labeg, 8, 0);
    grid->addWidget(labegg, 8, 1);

    auto* frame6 = new QGroupBox("拼孔模式", this);
    frame6->setObjectName("Frame6");
    auto* modes = new QHBoxLayout(frame6);
    const bool wordsinforce = st_.zhu.pinkongval[8] != 0;
    for (const auto& [name, caption, on] :
         {std::tuple{"Option1", "拼孔", wordsinforce}, std::tuple{"Option2", "精确", !wordsinforce}}) {
        auto* option = new QRadioButton(caption, frame6);
        option->setObjectName(name);
        option->setChecked(on);
        const std::string control = name;
        connect(option, &QRadioButton::clicked, this,
                [this, control] { this->control([this, control] { orvane::press(st_, control); }); });
        modes->addWidget(option);
    }
    // The comparison side and the English language only try words, never store them.
    const bool store = !english && st_.playside != "cong";
    frame6->setVisible(store);
    grid->addWidget(frame6, 9, 0, 1, 3);
    auto* buttons = new QHBoxLayout();
    for (const auto& [name, caption] : {std::pair{"Cmdbc", "保存"}, std::pair{"Cmdsc", "删除"}}) {
        auto* b = new QPushButton(caption, this);
        b->setObjectName(name);
        b->setEnabled(store);
        b->setAutoDefault(false);
        const std::string control = name;
        connect(b, &QPushButton::clicked, this,
                [this, control] { this->control([this, control] { orvane::press(st_, control); }); });
        buttons->addWidget(b);
    }
    grid->addLayout(buttons, 10, 0, 1, 3);
}

void Formpk2Window::control(const std::function<void()>& handler) {
    act_(handler);
    if (!st_.alignment.open) accept();
}

void Formpk2Window::reject() {
    act_([this] { orvane::press(st_, "Formpk2"); }); // closing the window ends the alignment
    QDialog::reject();
}

} // namespace orvane

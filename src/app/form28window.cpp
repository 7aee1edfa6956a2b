#include "app/form28window.h"

#include "app/actions.h"
#include "app/controls.h"
#include "app/dialogwindow.h"
#include "app/startup.h"
#include "app/station.h"
#include "bmode/pictureview.h"
#include "render/rastercanvas.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace orvane {

namespace {
// The B-mode canvas in pixels: 1200 view indices across, the rail's height below.
constexpr int picturewidth = 1200;
constexpr int pictureheight = 420;
} // namespace

Form28Window::Form28Window(Station& st, DialogUi& ui, QWidget* parent)
    : QMainWindow(parent), st_(st), ui_(ui),
      canvas_(std::make_unique<RasterCanvas>(picturewidth, pictureheight)) {
    setObjectName("Form28");
    canvas_->beginbackground(st_.settings.color("bxianbackcolor"));
    canvas_->storebackground();
    canvas_->clear();
    st_.picture1 = canvas_.get();

    auto* central = new QWidget(this);
    auto* outer = new QHBoxLayout(central);
    auto* layout = new QVBoxLayout();
    outer->addLayout(layout, 1);
    outer->addWidget(settingscolumn(central));
    picture1_ = new PictureView(*canvas_, central);
    picture1_->setObjectName("Picture1");
    layout->addWidget(picture1_, 1);

    // The transport under the picture: direction, hand steps, play, the position bar and its speed.
    auto* transport = new QHBoxLayout();
    transport->addWidget(button("Command26", "◀ 反向", "Command26"));
    transport->addWidget(button("Command27", "◀ 步退", "Command27"));
    command8_ = button("Command8", "", "Command8");
    transport->addWidget(command8_);
    transport->addWidget(button("Command34", "步进 ▶", "Command34"));
    transport->addWidget(button("Command25", "正向 ▶", "Command25"));
    hscrolljd_ = new QScrollBar(Qt::Horizontal, central);
    hscrolljd_->setObjectName("HScrolljd");
    connect(hscrolljd_, &QScrollBar::sliderMoved, this,
            [this](int value) { act([this, value] { orvane::scroll(st_, "HScrolljd", value); }); });
    connect(hscrolljd_, &QScrollBar::actionTriggered, this, [this](int) {
        if (!hscrolljd_->isSliderDown())
            act([this] { orvane::scroll(st_, "HScrolljd", hscrolljd_->sliderPosition()); });
    });
    transport->addWidget(new QLabel("播放进度:", central));
    transport->addWidget(hscrolljd_, 1);
    transport->addWidget(new QLabel("B显速度", central));
    hscroll8_ = new QScrollBar(Qt::Horizontal, central);
    hscroll8_->setObjectName("HScroll8");
    hscroll8_->setRange(1, 9);
    hscroll8_->setMinimumWidth(90);
    connect(hscroll8_, &QScrollBar::valueChanged, this, [this](int value) {
        if (value != st_.settings.bofsd) act([this, value] { orvane::scroll(st_, "HScroll8", value); });
    });
    transport->addWidget(hscroll8_);
    auto* label20 = new QLabel("指定里程:", central);
    label20->setObjectName("Label20");
    label20->setToolTip("左键：查找该里程；右键：下一个相同里程");
    label20->installEventFilter(this);
    transport->addWidget(label20);
    text1_ = new QLineEdit(central);
    text1_->setObjectName("Text1");
    text1_->setMaximumWidth(100);
    connect(text1_, &QLineEdit::returnPressed, this,
            [this] { act([this] { orvane::enter(st_, "Text1", text1_->text().toStdString()); }); });
    transport->addWidget(text1_);
    layout->addLayout(transport);

    // The channel boxes, the position and record labels.
    auto* channels = new QHBoxLayout();
    const char* boxes[] = {"Check1", "Check2", "Check3",  "Check4", "Check5",
                           "Check6", "Check7", "Check16", "Check17"};
    for (int k = 0; k < 9; ++k) {
        auto* box = new QCheckBox(QString(QChar('A' + k)), central);
        box->setObjectName(boxes[k]);
        const std::string name = boxes[k];
        connect(box, &QCheckBox::clicked, this,
                [this, name] { act([this, name] { orvane::press(st_, name); }); });
        checks_.push_back(box);
        channels->addWidget(box);
    }
    for (const char* name : {"Label1", "Ljls"}) {
        labels_[name] = new QLabel(central);
        labels_[name]->setObjectName(name);
        channels->addWidget(labels_[name], 1);
    }
    layout->addLayout(channels);

    // The panels: channels and gains, the job in force, the switches, and the job summary.
    auto* panels = new QHBoxLayout();
    auto table = [&](const char* name) {
        auto* t = new QTableWidget(central);
        t->setObjectName(name);
        t->setEditTriggers(QAbstractItemView::NoEditTriggers);
        t->verticalHeader()->hide();
        t->horizontalHeader()->hide();
        t->setMaximumHeight(200);
        panels->addWidget(t);
        return t;
    };
    grid1_ = table("Grid1");
    grid2_ = table("Grid2");
    grid3_ = table("Grid3");
    auto* summary = new QVBoxLayout();
    for (const char* name : {"Lzygk", "Lqssj", "Ljssj", "Lgzsj", "Lqslc", "Ljslc", "Ltccd", "Label2_1"}) {
        labels_[name] = new QLabel(central);
        labels_[name]->setObjectName(name);
        summary->addWidget(labels_[name]);
    }
    panels->addLayout(summary);
    layout->addLayout(panels);

    t1_ = new QTimer(this);
    t1_->setObjectName("T1");
    connect(t1_, &QTimer::timeout, this, [this] { act([this] { orvane::tick(st_, 1); }); });

    auto* status = new QHBoxLayout();
    lts1_ = new QLabel(central);
    lts1_->setObjectName("lts1");
    pb1_ = new QProgressBar(central);
    pb1_->setObjectName("pb1");
    status->addWidget(lts1_);
    status->addWidget(pb1_, 1);
    layout->addLayout(status);
    setCentralWidget(central);

    ui_.setparent(this);
    ui_.setbar(pb1_);
    ui_.setbeforedialog([this] { refresh(); });
    resize(1280, 720);
    refresh();
}

Form28Window::~Form28Window() {
    t1_->stop();
    st_.picture1 = nullptr;
    ui_.setbar(nullptr);
    ui_.setbeforedialog(nullptr);
    ui_.setparent(nullptr);
}

// The display settings beside the picture: each option and bar writes its setting and redraws.
QWidget* Form28Window::settingscolumn(QWidget* parent) {
    struct Group {
        const char* title;
        std::vector<std::pair<const char*, const char*>> options;
    };
    static const Group groups[] = {
        {"B显模式", {{"Option3", "分"}, {"Option4", "合"}, {"Option5", "中"}}},
        {"水平显示模式", {{"Option8", "扩展"}, {"Option9", "压缩"}}},
        {"播放模式", {{"Option16", "剪辑"}, {"Option17", "全程"}}},
        {"倒车显示模式设置", {{"Option1", "消除频繁倒车标记"}, {"Option2", "显示所有倒车标记"}}},
        {"标记显示位置", {{"Option6", "底部"}, {"Option7", "顶部"}}},
        {"迟到波显示模式", {{"Option14", "显示"}, {"Option15", "隐藏"}}},
        {"斜70度显示模式", {{"Option18", "｜型"}, {"Option19", "V型"}}},
        {"积分栏显示模式", {{"Option20", "隐藏"}, {"Option21", "显示"}}},
        {"辅助线", {{"Option10", "隐藏"}, {"Option11", "显示"}}},
    };
    auto* column = new QWidget(parent);
    auto* box = new QVBoxLayout(column);
    for (const Group& g : groups) {
        auto* frame = new QGroupBox(g.title, column);
        auto* row = new QHBoxLayout(frame);
        for (const auto& [name, caption] : g.options) {
            auto* option = new QRadioButton(caption, frame);
            option->setObjectName(name);
            const std::string control = name;
            connect(option, &QRadioButton::clicked, this,
                    [this, control] { act([this, control] { orvane::press(st_, control); }); });
            options_.push_back(option);
            row->addWidget(option);
        }
        box->addWidget(frame);
    }
    // The bars of the dot size, the hand step and the length of a reportable bottom-echo loss.
    const std::tuple<const char*, const char*, int, int> bars[] = {{"HScroll7", "点大小设置", 1, 5},
                                                                   {"HScroll3", "手动步进值", 10, 2000},
                                                                   {"HScroll10", "失波长度：", 1, 200}};
    for (const auto& [name, caption, low, high] : bars) {
        box->addWidget(new QLabel(caption, column));
        auto* bar = new QScrollBar(Qt::Horizontal, column);
        bar->setObjectName(name);
        bar->setRange(low, high);
        const std::string control = name;
        connect(bar, &QScrollBar::valueChanged, this, [this, control](int value) {
            act([this, control, value] { orvane::scroll(st_, control, value); });
        });
        bars_[name] = bar;
        box->addWidget(bar);
    }
    box->addStretch(1);
    column->setMaximumWidth(330);
    return column;
}

QPushButton* Form28Window::button(const char* name, const QString& caption, const char* control) {
    auto* b = new QPushButton(caption, centralWidget() ? centralWidget() : this);
    b->setObjectName(name);
    const std::string target = control;
    connect(b, &QPushButton::clicked, this,
            [this, target] { act([this, target] { orvane::press(st_, target); }); });
    return b;
}

void Form28Window::act(const std::function<void()>& handler) {
    if (!st_.form.mainviewenabled) return; // nothing to replay before a recording has loaded
    try {
        handler();
    } catch (const std::exception& e) {
        st_.ui->message(e.what());
    }
    refresh();
}

void Form28Window::filltable(QTableWidget* table, const std::vector<std::vector<std::string>>& cells) {
    table->setRowCount(static_cast<int>(cells.size()));
    table->setColumnCount(cells.empty() ? 0 : static_cast<int>(cells[0].size()));
    for (std::size_t r = 0; r < cells.size(); ++r)
        for (std::size_t c = 0; c < cells[r].size(); ++c) {
            auto* item = table->item(static_cast<int>(r), static_cast<int>(c));
            const QString text = QString::fromStdString(cells[r][c]);
            if (!item)
                table->setItem(static_cast<int>(r), static_cast<int>(c), new QTableWidgetItem(text));
            else if (item->text() != text)
                item->setText(text);
        }
}

bool Form28Window::eventFilter(QObject* watched, QEvent* event) {
    if (watched->objectName() == "Label20" && event->type() == QEvent::MouseButtonPress) {
        const bool right = static_cast<QMouseEvent*>(event)->button() == Qt::RightButton;
        act([this, right] {
            st_.Text1 = text1_->text().toStdString();
            orvane::press(st_, "Label20", right ? "right" : "left");
        });
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

void Form28Window::refresh() {
    setWindowTitle(QString::fromStdString(st_.form.caption));
    lts1_->setText(QString::fromStdString(st_.form.lts1));
    lts1_->setVisible(st_.form.lts1visible);
    pb1_->setVisible(st_.form.pb1visible);
    {
        const QSignalBlocker a(hscrolljd_), b(hscroll8_);
        hscrolljd_->setRange(0, std::max(0, st_.zhu.scrollmax));
        hscrolljd_->setValue(st_.zhu.viewindex / 300);
        hscroll8_->setValue(st_.settings.bofsd);
    }
    command8_->setText(QString::fromStdString(st_.form.captions["Command8"]));
    for (QRadioButton* option : options_) {
        const std::string name = option->objectName().toStdString();
        const bool on = name == "Option10"   ? !st_.form.auxlines
                        : name == "Option11" ? st_.form.auxlines
                                             : optionon(st_, name);
        if (option->isChecked() != on) {
            const QSignalBlocker quiet(option);
            option->setChecked(on);
        }
    }
    const std::pair<const char*, int> barvalues[] = {{"HScroll7", st_.settings.diandx},
                                                     {"HScroll3", st_.settings.manualstep},
                                                     {"HScroll10", st_.settings.losswavelimit}};
    for (const auto& [name, value] : barvalues) {
        const QSignalBlocker quiet(bars_[name]);
        bars_[name]->setValue(value);
    }
    for (int k = 0; k < 9; ++k) checks_[k]->setChecked(st_.form.channelshown[k]);
    for (auto& [name, label] : labels_) {
        auto it = st_.form.labels.find(name);
        label->setText(it == st_.form.labels.end() ? QString() : QString::fromStdString(it->second));
    }
    filltable(grid1_, st_.zhu.Grid1);
    filltable(grid2_, st_.zhu.Grid2);
    filltable(grid3_, st_.zhu.Grid3);
    // The replay timer runs while the logic says so, at the interval of the speed.
    if (st_.T1 && (!t1_->isActive() || t1_->interval() != st_.T1interval))
        t1_->start(st_.T1interval);
    else if (!st_.T1 && t1_->isActive())
        t1_->stop();
    picture1_->update();
}

void Form28Window::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (activationqueued_) return;
    activationqueued_ = true;
    // The walk starts once the window has painted, so that the bar is seen moving.
    QTimer::singleShot(0, this, &Form28Window::activate);
}

void Form28Window::activate() {
    st_.form.pb1visible = true;
    st_.form.lts1visible = true;
    refresh();
    windowactivate(st_);
    refresh();
    emit activated();
    if (st_.process.ended) close();
}

void Form28Window::closeEvent(QCloseEvent* event) {
    st_.T1 = false; // closing during replay stops it first
    t1_->stop();
    windowunload(st_);
    event->accept();
}

} // namespace orvane

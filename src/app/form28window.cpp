#include "app/form28window.h"

#include "app/actions.h"
#include "app/controls.h"
#include "app/dialogwindow.h"
#include "app/formpk2window.h"
#include "app/settings.h"
#include "app/startup.h"
#include "app/station.h"
#include "bmode/bmode.h"
#include "bmode/pictureview.h"
#include "render/rastercanvas.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

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
    // The settings scroll on a small screen rather than push the window past it.
    auto* settings = new QScrollArea(central);
    settings->setWidget(settingscolumn(settings));
    settings->setWidgetResizable(true);
    settings->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    settings->setFrameShape(QFrame::NoFrame);
    settings->setFixedWidth(settings->widget()->sizeHint().width() + 18);
    outer->addWidget(settings);
    picture1_ = new PictureView(*canvas_, central);
    picture1_->setObjectName("Picture1");
    picture1_->setToolTip("按住鼠标移动可拖动坐标轴");
    picture1_->setoverlay([this](QPainter& painter) { drawruler(painter); });
    connect(picture1_, &PictureView::pressed, this, &Form28Window::picturepressed);
    connect(picture1_, &PictureView::moved, this, [this](QPointF at, Qt::MouseButtons buttons) {
        if (!rulerdrag_ || !(buttons & Qt::LeftButton)) return;
        moveruler(st_, st_.zhu, at.x() - rulerfrom_);
        rulerfrom_ = at.x();
        picture1_->update();
    });
    connect(picture1_, &PictureView::released, this, [this] { rulerdrag_ = false; });
    layout->addWidget(picture1_, 1);
    popup_ = new QMenu(this);
    popup_->setObjectName("a13");
    for (const auto& [name, caption] :
         {std::pair{"aqd", "起点"}, std::pair{"azd", "终点"}, std::pair{"qcqzd", "清除起止点"}}) {
        QAction* entry = popup_->addAction(caption);
        entry->setObjectName(name);
        const std::string control = name;
        connect(entry, &QAction::triggered, this,
                [this, control] { act([this, control] { orvane::press(st_, control); }); });
        menuentries_[name] = entry;
    }

    // The transport under the picture: direction, hand steps, play, the position bar and its speed.
    auto* transport = new QHBoxLayout();
    transport->addWidget(button("Command26", "◀ 反向", "Command26"));
    transport->addWidget(button("Command27", "◀ 步退", "Command27"));
    transport->addWidget(button("Command3", "拼  孔", "Command3"));
    command8_ = button("Command8", "", "Command8");
    transport->addWidget(command8_);
    transport->addWidget(button("Command34", "步进 ▶", "Command34"));
    transport->addWidget(button("Command25", "正向 ▶", "Command25"));
    hscrolljd_ = new QScrollBar(Qt::Horizontal, central);
    hscrolljd_->setObjectName("HScrolljd");
    // Taking the focus stops a running replay; moves then go to the view.
    hscrolljd_->setFocusPolicy(Qt::StrongFocus);
    hscrolljd_->installEventFilter(this);
    connect(hscrolljd_, &QScrollBar::sliderMoved, this,
            [this](int value) { act([this, value] { orvane::scroll(st_, "HScrolljd", value); }); });
    connect(hscrolljd_, &QScrollBar::actionTriggered, this, [this](int) {
        if (!hscrolljd_->isSliderDown())
            act([this] { orvane::scroll(st_, "HScrolljd", hscrolljd_->sliderPosition()); });
    });
    connect(hscrolljd_, &QScrollBar::sliderReleased, this, [this] { focuspicture(); });
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
    label20_ = new QLabel("指定里程:", central);
    label20_->setObjectName("Label20");
    label20_->installEventFilter(this);
    transport->addWidget(label20_);
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
        // The colour of the channel: a click opens the colour dialog.
        auto* colour = new QLabel(central);
        const std::string lys = std::string("Lys") + static_cast<char>('a' + k);
        colour->setObjectName(QString::fromStdString(lys));
        colour->setFixedSize(14, 14);
        colour->setToolTip("点击选择通道颜色");
        colour->installEventFilter(this);
        colours_.push_back(colour);
        channels->addWidget(colour);
    }
    check8_ = new QCheckBox("全部", central);
    check8_->setObjectName("Check8");
    connect(check8_, &QCheckBox::clicked, this, [this] { act([this] { orvane::press(st_, "Check8"); }); });
    channels->addWidget(check8_);
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
    // As large as the screen allows up to 1600 by 900, so that 1366 by 768 fits whole.
    const QRect room = screen() ? screen()->availableGeometry() : QRect(0, 0, 1600, 900);
    resize(std::min(1600, room.width()), std::min(900, room.height()));
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
    // The colours: background, window, guide lines, and the two schemes.
    auto* colours = new QGroupBox("颜色设置", column);
    auto* colourrow = new QGridLayout(colours);
    const std::pair<const char*, const char*> colourbuttons[] = {{"Combjs", "背景色"},
                                                                 {"Comcc", "窗口色"},
                                                                 {"Command13", "辅助线"},
                                                                 {"Command40", "纯黑"},
                                                                 {"Command41", "浅黄"}};
    int at = 0;
    for (const auto& [name, caption] : colourbuttons) {
        colourrow->addWidget(button(name, caption, name), at / 3, at % 3);
        ++at;
    }
    box->addWidget(colours);
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
    connect(b, &QPushButton::clicked, this, [this, target] {
        act([this, target] { orvane::press(st_, target); });
        if (target == "Command3" && st_.alignment.open) openformpk2();
        // The replay keys hand the focus back to the picture.
        if (target == "Command8" || target == "Command34" || target == "Command27") focuspicture();
    });
    return b;
}

void Form28Window::openformpk2() {
    auto* dialog = new Formpk2Window(
        st_, [this](const std::function<void()>& h) { act(h); }, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::finished, this, [this] {
        refresh();
        focuspicture();
    });
    dialog->open();
    refresh(); // the timer ticks at a step of 0 while the window is open
}

void Form28Window::focuspicture() {
    if (picture1_->isEnabled() && picture1_->isVisible()) picture1_->setFocus();
}

void Form28Window::picturepressed(Qt::MouseButton button, QPointF at) {
    if (!st_.form.mainviewenabled) return;
    // A press on the ruler takes it along with the pointer.
    if (button == Qt::LeftButton && !st_.alignment.open && onruler(st_.zhu, at.x())) {
        rulerdrag_ = true;
        rulerfrom_ = at.x();
        return;
    }
    bool menu = false;
    const std::string which = button == Qt::LeftButton    ? "left"
                              : button == Qt::RightButton ? "right"
                                                          : "none";
    act([&] { menu = picturedown(st_, "Picture1", which, at.x()); });
    if (!menu) return;
    menuentries_["azd"]->setEnabled(st_.form.azdenabled);
    popup_->popup(picture1_->mapToGlobal(picture1_->towidget(at).toPoint()));
}

// The depth ruler over the picture, in the guide colour; hidden while the alignment is open.
void Form28Window::drawruler(QPainter& painter) {
    if (st_.alignment.open || !st_.form.mainviewenabled) return;
    const std::uint32_t c = st_.settings.color("biaochicolor");
    const QColor colour = qcolorof(c);
    for (const RulerLine& l : rulerlines(st_.zhu.rulerx0)) {
        painter.setPen(QPen(colour, l.width));
        painter.drawLine(picture1_->towidget({l.x1, l.y1}), picture1_->towidget({l.x2, l.y2}));
    }
    QFont font = painter.font();
    font.setPixelSize(11);
    painter.setFont(font);
    for (const RulerLabel& l : rulerlabels(st_.zhu.rulerx0)) {
        const QPointF at = picture1_->towidget({l.left, l.top});
        painter.drawText(QRectF(at.x() - 14, at.y(), 40, 14), Qt::AlignRight | Qt::AlignTop,
                         QString::fromStdString(l.text));
    }
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
    if (watched == hscrolljd_ && event->type() == QEvent::FocusIn && st_.T1 && !st_.alignment.open)
        act([this] { orvane::press(st_, "Command8"); }); // the bar takes the focus: replay stops
    if (watched->objectName().startsWith("Lys") && event->type() == QEvent::MouseButtonPress) {
        const std::string name = watched->objectName().toStdString();
        act([this, name] { orvane::press(st_, name); });
        return true;
    }
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
    showcaptions();
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
    for (int k = 0; k < 9; ++k) {
        checks_[k]->setChecked(st_.form.channelshown[k]);
        checks_[k]->setEnabled(st_.form.mainviewenabled);
        const QString sheet = QString("background-color: %1; border: 1px solid gray;")
                                  .arg(qcolorof(st_.settings.channelcolor[k]).name());
        if (colours_[k]->styleSheet() != sheet)
            colours_[k]->setStyleSheet(sheet); // restyled only on a change
    }
    check8_->setEnabled(st_.form.mainviewenabled);
    check8_->setChecked(st_.form.allchannelsshown());
    const std::uint32_t back = st_.settings.color("formbackcolor");
    if (centralWidget()->palette().color(QPalette::Window) != qcolorof(back)) {
        QPalette palette = centralWidget()->palette();
        palette.setColor(QPalette::Window, qcolorof(back));
        centralWidget()->setPalette(palette);
        centralWidget()->setAutoFillBackground(true);
    }
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

// Captions that carry state or language go to their controls when they change.
void Form28Window::showcaptions() {
    if (st_.form.captions == captionsshown_) return;
    captionsshown_ = st_.form.captions;
    for (const auto& [name, caption] : captionsshown_) {
        const QString text = QString::fromStdString(caption);
        QObject* control = findChild<QObject*>(QString::fromStdString(name));
        if (auto* b = qobject_cast<QAbstractButton*>(control))
            b->setText(text);
        else if (auto* l = qobject_cast<QLabel*>(control))
            l->setText(text);
        else if (auto* g = qobject_cast<QGroupBox*>(control))
            g->setTitle(text);
    }
    label20_->setToolTip(QString::fromStdString(st_.form.Label20hint));
}

void Form28Window::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (activationqueued_) return;
    activationqueued_ = true;
    // The walk starts once the window has painted, so that the bar is seen moving.
    QTimer::singleShot(0, this, &Form28Window::activate);
}

void Form28Window::activate() {
    if (activated_) return; // first activation runs once, whoever asks first
    activated_ = true;
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

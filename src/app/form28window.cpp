#include "app/form28window.h"

#include "amode/amode.h"
#include "app/curveview.h"
#include "app/curvewindow.h"
#include "app/desk.h"
#include "app/dialogwindow.h"
#include "app/masterwindow.h"
#include "app/overviewview.h"
#include "app/pictureview.h"
#include "app/startup.h"
#include "app/tips.h"
#include "bmode/bmode.h"
#include "bmode/formpk2window.h"
#include "curves/track.h"
#include "processing/form10window.h"
#include "render/rastercanvas.h"
#include "replay/bofang.h"
#include "replay/transport.h"
#include "replay/wholerun.h"
#include "station/controlview.h"
#include "station/station.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>

namespace orvane {

namespace {
// The B-mode canvas in pixels: 1200 view indices across, the rail's height below.
constexpr int picturewidth = 1200;
constexpr int pictureheight = 420;

template <class W> W* named(W* widget, const char* name) {
    widget->setObjectName(name);
    return widget;
}

// A list of the side panel whose row click goes to its place.
QTableWidget* rowlist(QWidget* parent, const char* name) {
    return gridwidget(parent, name, "点击一行跳到该处");
}
// A tab that holds one list. The list sits in a page of its own: the binder shows and hides the
// list by its state, and the tab control shows and hides its pages.
QWidget* listpage(QWidget* parent, const char* name, const char* tip) {
    auto* page = new QWidget(parent);
    auto* box = new QVBoxLayout(page);
    box->setContentsMargins(0, 0, 0, 0);
    QTableWidget* list = rowlist(page, name);
    list->setToolTip(tip);
    box->addWidget(list);
    return page;
}
} // namespace

// The caption a control is built with, so that the layout gives it room from the start.
QString Form28Window::caption(const char* name) const {
    return QString::fromStdString(controlcaption(st_, reach(st_, name)));
}

Form28Window::Form28Window(Station& st, DialogUi& ui, QWidget* parent)
    : QMainWindow(parent), st_(st), ui_(ui),
      canvas_(std::make_unique<RasterCanvas>(picturewidth, pictureheight)) {
    setObjectName("Form28");
    canvas_->spacelabels(picturewidth);
    canvas_->beginbackground(st_.settings.color("bxianbackcolor"));
    canvas_->storebackground();
    canvas_->clear();
    st_.picture1 = canvas_.get();

    canvas6_ = std::make_unique<RasterCanvas>(picturewidth, pictureheight);
    canvas6_->spacelabels(picturewidth);
    canvas6_->beginbackground(st_.settings.color("bxianbackcolor"));
    canvas6_->storebackground();
    canvas6_->clear();
    st_.picture6 = canvas6_.get();

    auto* central = new QWidget(this);
    setCentralWidget(central);
    auto* outer = new QHBoxLayout(central);
    auto* layout = new QVBoxLayout();
    outer->addLayout(layout, 1);
    canvas3_ = std::make_unique<RasterCanvas>(620, 430);
    st_.picture3 = canvas3_.get();
    outer->addWidget(sidepanel(central));
    picture1_ = sidepicture(central, true);
    layout->addWidget(picture1_, 1);
    // The A-mode panel floats over the picture's right end, the oldest stretch on screen; it can be
    // dragged aside like the other panels.
    picture5_ = amodepanel(central);
    canvas9_ = std::make_unique<RasterCanvas>(300, 410);
    st_.picture9 = canvas9_.get();
    enlargement_ = new QFrame(central);
    auto* zoom = new QVBoxLayout(enlargement_);
    zoom->setContentsMargins(2, 2, 2, 2);
    zoom->addWidget(named(new QLabel(enlargement_), "Label9"), 0, Qt::AlignRight);
    picture9_ = named(new PictureView(*canvas9_, enlargement_), "Picture9");
    zoom->addWidget(picture9_, 1);
    enlargement_->hide();
    popup_ = named(new QMenu(this), "a13");
    for (const char* name : {"aqd", "azd", "qcqzd", "axjd", "ax70", "asz", "bjdcz", "azyqx", "gpsqx",
                             "dcxssz", "adytx", "abctx", "ajt"})
        popup_->addAction(caption(name))->setObjectName(name);
    popup_->findChild<QAction*>("ax70")->setCheckable(true);
    popup_->addAction(caption("acc"))->setObjectName("acc");
    // The analyst's points at the view.
    QMenu* points = popup_->addMenu("分析标注");
    for (int i = 0; i < 8; ++i) {
        const std::string name = "f1to8(" + std::to_string(i) + ")";
        points->addAction(caption(name.c_str()))->setObjectName(QString::fromStdString(name));
    }
    // The same menu on the comparison's picture sets the markers of that side.
    popupdb_ = new QMenu(this);
    for (const char* name : {"aqddb", "azddb", "qjtdb"})
        popupdb_->addAction(caption(name))->setObjectName(name);

    // The transport under the picture: direction, hand steps, play; under them the position bar and
    // its speed.
    auto* buttons = new QHBoxLayout();
    QHBoxLayout* transport = buttons;
    for (const char* name : {"Command26", "Command27", "Command3", "Command8", "Command34", "Command25",
                             "Command21", "Command17"})
        transport->addWidget(button(name));
    // A right release on "放大" opens the magnifier.
    findChild<QPushButton*>("Command21")->installEventFilter(this);
    transport->addStretch(1);
    // The position bar across its own row, as wide as the picture allows.
    auto* bars = new QHBoxLayout();
    auto* hscrolljd = named(new QScrollBar(Qt::Horizontal, central), "HScrolljd");
    hscrolljd->setFocusPolicy(Qt::StrongFocus); // taking the focus stops a running replay
    connect(hscrolljd, &QScrollBar::sliderReleased, this, [this] { focuspicture(); });
    bars->addWidget(new QLabel("播放进度:", central));
    bars->addWidget(hscrolljd, 1);
    transport = bars;
    transport->addWidget(new QLabel("B显速度", central));
    auto* hscroll8 = named(new QScrollBar(Qt::Horizontal, central), "HScroll8");
    hscroll8->setMinimumWidth(90);
    connect(hscroll8, &QScrollBar::valueChanged, this, [this] { focuspicture(); });
    transport->addWidget(hscroll8);
    label20_ = named(new QLabel(central), "Label20");
    transport->addWidget(label20_);
    transport->addWidget(named(new QLabel(central), "Label10")); // the result of a measurement
    auto* text1 = named(new QLineEdit(central), "Text1");
    text1->setMaximumWidth(100);
    transport->addWidget(text1);
    layout->addLayout(buttons);
    layout->addLayout(bars);
    overview_ = new OverviewView(
        st_, [this](const std::function<void()>& h) { act(h); }, central);
    overview_->setToolTip("全程概览：点击或拖动跳到该处");
    layout->addWidget(overview_);
    comparison_ = comparisonhalf(central);
    layout->addWidget(comparison_, 1);

    // The channel boxes with their colours, the position and record labels.
    auto* channels = new QHBoxLayout();
    const char* boxes[] = {"Check1", "Check2", "Check3",  "Check4", "Check5",
                           "Check6", "Check7", "Check16", "Check17"};
    const char* colournames[] = {"Lysa", "Lysb", "Lysc", "Lysd", "Lyse", "Lysf", "Lysg", "Lysh", "Lysi"};
    for (int k = 0; k < 9; ++k) {
        channels->addWidget(named(new QCheckBox(caption(boxes[k]), central), boxes[k]));
        auto* colour = named(new QLabel(central), colournames[k]);
        colour->setFixedSize(14, 14);
        colour->setToolTip("点击选择通道颜色");
        colours_.push_back(colour);
        channels->addWidget(colour);
    }
    channels->addWidget(named(new QCheckBox(caption("Check8"), central), "Check8"));
    for (const char* name : {"Label1", "Ljls"}) channels->addWidget(named(new QLabel(central), name), 1);
    layout->addLayout(channels);

    // The panels: channels and gains, the job in force, the switches, and the job summary.
    auto* panels = new QHBoxLayout();
    for (const char* name : {"Grid1", "Grid2", "Grid3"}) {
        auto* t = named(new QTableWidget(central), name);
        t->setEditTriggers(QAbstractItemView::NoEditTriggers);
        t->verticalHeader()->hide();
        t->horizontalHeader()->hide();
        t->setMaximumHeight(130);
        panels->addWidget(t);
    }
    // The job's heading (a click writes the job overview), the speed, and the analysis index.
    auto* summary = new QVBoxLayout();
    auto* heading = named(new QLabel(central), "Lzygk");
    heading->setToolTip("点击生成作业概况表");
    heading->setCursor(Qt::PointingHandCursor);
    summary->addWidget(heading);
    summary->addWidget(named(new QLabel(central), "Label2_1"));
    auto* index = named(new QPushButton(caption("Command1"), central), "Command1");
    index->setToolTip("列出标记点、积分值和交接记录");
    auto* curves = new QHBoxLayout();
    curves->addWidget(index);
    auto* gain = named(new QPushButton(caption("Command16"), central), "Command16");
    gain->setToolTip("各通道灵敏度沿全程的变化，并可转到积分值曲线和速度曲线");
    curves->addWidget(gain);
    auto* track = named(new QPushButton(caption("Command22"), central), "Command22");
    track->setToolTip("按GPS值画出的推行轨迹");
    curves->addWidget(track);
    summary->addLayout(curves);
    auto* log = named(new QLabel(caption("Lyycs"), central), "Lyycs");
    log->setToolTip("谁回放过本文件，用了多长时间");
    log->setCursor(Qt::PointingHandCursor);
    summary->addWidget(log);
    summary->addStretch(1);
    panels->addLayout(summary);
    layout->addLayout(panels);

    trackpanel(central);

    t2_ = named(new QTimer(this), "T2");
    connect(t2_, &QTimer::timeout, this, [this] {
        act([this] {
            if (st_.T2) amodetick(st_);
        });
    });
    t1_ = named(new QTimer(this), "T1");
    connect(t1_, &QTimer::timeout, this, [this] {
        act([this] {
            if (st_.T1) replaytick(st_);
        });
    });

    auto* status = new QHBoxLayout();
    status->addWidget(named(new QLabel(central), "lts1"));
    pb1_ = named(new QProgressBar(central), "pb1");
    status->addWidget(pb1_, 1);
    layout->addLayout(status);

    statusbar();
    filemenu();
    setAcceptDrops(true);
    picture1_->installEventFilter(this);
    barvalues();
    controls_ = new ControlView(st_, this, "", [this](const std::function<void()>& h) { act(h); });
    applytips();
    ui_.setparent(this);
    ui_.setbar(pb1_);
    ui_.setbeforedialog([this] { refresh(); });
    setMinimumSize(1024, 640); // below it the buttons of the transport no longer show whole
    // As large as the screen allows up to 1600 by 900, so that 1366 by 768 fits whole.
    const QRect room = screen() ? screen()->availableGeometry() : QRect(0, 0, 1600, 900);
    resize(std::min(1600, room.width()), std::min(900, room.height()));
    refresh();
}

Form28Window::~Form28Window() {
    t1_->stop();
    t2_->stop();
    st_.picture1 = nullptr;
    st_.picture6 = nullptr;
    st_.picture3 = nullptr;
    st_.picture9 = nullptr;
    ui_.setbar(nullptr);
    ui_.setbeforedialog(nullptr);
    ui_.setparent(nullptr);
}

// The B-mode picture of a side with the pointer's read-out over it: Picture1 with Label14, or the
// comparison's Picture6 with Label14db.
PictureView* Form28Window::sidepicture(QWidget* parent, bool main) {
    RasterCanvas& canvas = main ? *canvas_ : *canvas6_;
    auto* view = named(new PictureView(canvas, parent), main ? "Picture1" : "Picture6");
    view->setToolTip("按住鼠标移动可拖动坐标轴");
    view->setoverlay(
        [this, view, main](QPainter& painter) { drawruler(painter, *view, main ? st_.zhu : st_.cong); });
    connect(view, &PictureView::pressed, this,
            [this, main](Qt::MouseButton b, QPointF at) { picturemouse("down", b, at, main); });
    connect(view, &PictureView::moved, this,
            [this, main](QPointF at, Qt::MouseButtons) { picturemouse("move", Qt::NoButton, at, main); });
    connect(view, &PictureView::released, this,
            [this, main](Qt::MouseButton b, QPointF at) { picturemouse("up", b, at, main); });
    auto* readout = named(new QLabel(view), main ? "Label14" : "Label14db");
    readout->setAttribute(Qt::WA_TransparentForMouseEvents);
    if (main) {
        // Over the reverse text: a click opens the stretch on screen as the comparison.
        auto* reversing = named(new QLabel(view), "Label6");
        reversing->setToolTip("点击对比查看倒车段");
        reversing->setCursor(Qt::PointingHandCursor);
        reversing->setFixedSize(160, 24);
    }
    return view;
}

// The lower half while a comparison is open: its heading, its picture of the same width as the main
// one, its own transport and seek, and the choice whether both sides move together.
QWidget* Form28Window::comparisonhalf(QWidget* parent) {
    auto* half = new QWidget(parent);
    auto* box = new QVBoxLayout(half);
    box->setContentsMargins(0, 4, 0, 0);
    box->addWidget(named(new QLabel(half), "Lzygkdb"));
    picture6_ = sidepicture(half, false);
    box->addWidget(picture6_, 1);
    auto* transport = new QHBoxLayout();
    for (const char* name : {"Command38", "Command37", "Command18", "Command20"})
        transport->addWidget(named(new QPushButton(caption(name), half), name));
    transport->addWidget(new QLabel("播放进度:", half));
    transport->addWidget(named(new QScrollBar(Qt::Horizontal, half), "HScrolljddb"), 1);
    transport->addWidget(named(new QLabel(half), "Label21"));
    auto* text2 = named(new QLineEdit(half), "Text2");
    text2->setMaximumWidth(100);
    transport->addWidget(text2);
    transport->addWidget(named(new QLabel(half), "Label16"));
    auto* mode = named(new QGroupBox(english(st_) ? "Mode" : "对比播放", half), "Frame11");
    auto* moderow = new QHBoxLayout(mode);
    for (const char* name : {"Option12", "Option13"})
        moderow->addWidget(named(new QRadioButton(caption(name), mode), name));
    transport->addWidget(mode);
    box->addLayout(transport);
    half->hide();
    return half;
}

// The side panel Frame3 with its tabs: the filter first, the display settings on "设置".
QWidget* Form28Window::sidepanel(QWidget* parent) {
    auto* frame = named(new QTabWidget(parent), "SSTab1");
    // The settings scroll on a small screen rather than push the window past it.
    auto* settings = new QScrollArea(frame);
    settings->setWidget(settingscolumn(settings));
    settings->setWidgetResizable(true);
    settings->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    settings->setFrameShape(QFrame::NoFrame);
    const char* titles[] = {"过滤", "标记点", "积分值", "交接", "设置", "概况", "标注"};
    for (int i = 0; i < 7; ++i) {
        QWidget* page = i == 0   ? filterpage(frame)
                        : i == 1 ? markspage(frame)
                        : i == 2 ? listpage(frame, "Grid1jf", "点击一行跳到该处，双击导出积分值表")
                        : i == 3 ? listpage(frame, "Grid1ry", "点击一行跳到该处")
                        : i == 4 ? settings
                        : i == 5 ? overviewpage(frame)
                                 : pointspage(frame);
        const auto english = st_.form.captions.find("SSTab1." + std::to_string(i));
        frame->addTab(page, english != st_.form.captions.end() ? QString::fromStdString(english->second)
                                                               : QString(titles[i]));
    }
    frame->setFixedWidth(settings->widget()->sizeHint().width() + 24);
    return frame;
}

// The marks: the list under its filter boxes, the mark overspeed, the search of a switch.
QWidget* Form28Window::markspage(QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* box = new QVBoxLayout(page);
    auto* boxes = new QGridLayout();
    for (int i = 0; i < 7; ++i) {
        const std::string name = "Checkts(" + std::to_string(i) + ")";
        auto* check = named(new QCheckBox(caption(name.c_str()), page), name.c_str());
        check->setToolTip("只列出勾选的标记");
        boxes->addWidget(check, i / 4, i % 4);
    }
    box->addLayout(boxes);
    auto* tools = new QHBoxLayout();
    auto* overspeed = named(new QPushButton(caption("Command19"), page), "Command19");
    overspeed->setToolTip("标记点中超出标准速度的列表");
    tools->addWidget(overspeed);
    auto* turnout = named(new QLineEdit(page), "Text3");
    turnout->setPlaceholderText("道岔号");
    turnout->setToolTip("输入道岔号后回车，跳到该道岔");
    tools->addWidget(turnout, 1);
    box->addLayout(tools);
    box->addWidget(rowlist(page, "Grid1ts"), 1);
    return page;
}

// The job overview: each value of the job summary under its name, and the quality summary.
QWidget* Form28Window::overviewpage(QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* form = new QFormLayout(page);
    const std::pair<const char*, const char*> rows[] = {
        {"作业日期", "Lzyrq"}, {"机号", "Ljqbh"},     {"上道时间", "Lqssj"}, {"下道时间", "Ljssj"},
        {"作业用时", "Lgzsj"}, {"起始里程", "Lqslc"}, {"结束里程", "Ljslc"}, {"工作里程", "Ltccd"}};
    for (const auto& [title, name] : rows) form->addRow(title, named(new QLabel(page), name));
    auto* quality = named(new QPushButton(caption("Command24"), page), "Command24");
    quality->setToolTip("作业质量汇总表，含超速详情");
    auto* daily = named(new QPushButton(caption("Commanddaily"), page), "Commanddaily");
    daily->setToolTip("日台数据分析报告：作业、仪器设置、超速、草状波和抑制核对");
    auto* reports = new QHBoxLayout();
    reports->addWidget(quality);
    reports->addWidget(daily);
    form->addRow(reports);
    return page;
}

// The analyst's name and points: the choice of the entry, the list, a click goes to a point.
QWidget* Form28Window::pointspage(QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* box = new QVBoxLayout(page);
    auto* head = new QHBoxLayout();
    head->addWidget(new QLabel("分析员", page));
    auto* name = named(new QLineEdit(page), "Tmc");
    name->setToolTip("分析员姓名，关闭窗口时保存分析记录");
    head->addWidget(name, 1);
    auto* choice = named(new QComboBox(page), "Combo3");
    for (const char* caption : f1to8) choice->addItem(QString::fromUtf8(caption).mid(3));
    choice->addItem("全部");
    head->addWidget(choice);
    box->addLayout(head);
    box->addWidget(rowlist(page, "grid1bz"), 1);
    return page;
}

// The filter: a threshold box for each channel behind its check box, the buttons, the hits.
QWidget* Form28Window::filterpage(QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* box = new QVBoxLayout(page);
    auto* channels = new QGridLayout();
    const char* checks[] = {"Check9",  "Check10", "Check11", "Check12", "Check13",
                            "Check14", "Check15", "Check18", "Check19"};
    const char* boxes[] = {"Ttda", "Ttdb", "Ttdc", "Ttdd", "Ttde", "Ttdf", "Ttdg", "Ttdh", "Ttdi"};
    for (int k = 0; k < 9; ++k) {
        auto* check = named(new QCheckBox(caption(checks[k]), page), checks[k]);
        check->setToolTip("不勾选的通道不过滤");
        auto* threshold = named(new QLineEdit(page), boxes[k]);
        threshold->setToolTip("连续长度不超过此值（点数）的回波被滤除");
        threshold->setMaximumWidth(70);
        channels->addWidget(check, k % 5, (k / 5) * 2);
        channels->addWidget(threshold, k % 5, (k / 5) * 2 + 1);
    }
    box->addLayout(channels);
    auto* buttons = new QHBoxLayout();
    for (const char* name : {"Command2", "Command14", "Command36"})
        buttons->addWidget(named(new QPushButton(caption(name), page), name));
    box->addLayout(buttons);
    box->addWidget(rowlist(page, "Grid1bj"), 1);
    return page;
}

// The display settings beside the picture: each option and bar writes its setting and redraws.
QWidget* Form28Window::settingscolumn(QWidget* parent) {
    struct Group {
        const char* title;
        std::vector<const char*> options;
    };
    static const Group groups[] = {
        {"B显模式", {"Option3", "Option4", "Option5"}}, {"水平显示模式", {"Option8", "Option9"}},
        {"播放模式", {"Option16", "Option17"}},         {"倒车显示模式设置", {"Option1", "Option2"}},
        {"标记显示位置", {"Option6", "Option7"}},       {"迟到波显示模式", {"Option14", "Option15"}},
        {"斜70度显示模式", {"Option18", "Option19"}},   {"积分栏显示模式", {"Option20", "Option21"}},
        {"辅助线", {"Option10", "Option11"}},
    };
    auto* column = new QWidget(parent);
    auto* box = new QVBoxLayout(column);
    // Tight frames, so that the options and the colours fit beside the picture at 1366 by 768.
    box->setSpacing(2);
    box->setContentsMargins(4, 2, 4, 2);
    for (const Group& g : groups) {
        auto* frame = new QGroupBox(g.title, column);
        auto* row = new QHBoxLayout(frame);
        row->setContentsMargins(6, 0, 6, 0);
        for (const char* name : g.options)
            row->addWidget(named(new QRadioButton(caption(name), frame), name));
        box->addWidget(frame);
    }
    // The colours: background, window, guide lines, and the two schemes.
    auto* colours = new QGroupBox("颜色设置", column);
    auto* colourrow = new QGridLayout(colours);
    int at = 0;
    for (const char* name : {"Combjs", "Comcc", "Command13", "Command40", "Command41", "Commandmr"}) {
        colourrow->addWidget(button(name), at / 3, at % 3);
        ++at;
    }
    box->addWidget(colours);
    // The defect note on the picture and the two bars that shift it.
    auto* note = new QGroupBox("伤损标注", column);
    auto* noterow = new QGridLayout(note);
    noterow->addWidget(named(new QLineEdit(note), "Textbz"), 0, 0, 1, 2);
    noterow->addWidget(named(new QScrollBar(Qt::Horizontal, note), "HScroll2"), 1, 0);
    noterow->addWidget(named(new QScrollBar(Qt::Horizontal, note), "VScroll1"), 1, 1);
    auto* defects = named(new QComboBox(note), "Combobz");
    defects->setToolTip("选择伤损名称作为标注");
    noterow->addWidget(defects, 2, 0);
    noterow->addWidget(tablebutton("Command35", "维护伤损列表", note), 2, 1);
    box->addWidget(note);
    box->addWidget(printgroup(column));
    // The tables of people and instruments.
    auto* tables = new QGroupBox("基础数据", column);
    auto* tablerow = new QHBoxLayout(tables);
    tablerow->addWidget(tablebutton("Command23", "维护工作人员表，导入导出人员表", tables));
    tablerow->addWidget(tablebutton("Command42", "维护仪器号与班组", tables));
    box->addWidget(tables);
    // The bars of the dot size, the hand step and the length of a reportable bottom-echo loss.
    for (const auto& [name, caption] :
         {std::pair{"HScroll7", "点大小设置"}, std::pair{"HScroll3", "手动步进值"},
          std::pair{"HScroll10", "失波长度："}}) {
        box->addWidget(new QLabel(caption, column));
        box->addWidget(named(new QScrollBar(Qt::Horizontal, column), name));
    }
    box->addStretch(1);
    column->setMaximumWidth(330);
    return column;
}

// The notice: its fields, the two print buttons (the right button prints the other kind), and the
// print panel Frame5 while a print stands.
QWidget* Form28Window::printgroup(QWidget* parent) {
    auto* group = new QGroupBox("打印通知单", parent);
    auto* grid = new QGridLayout(group);
    int row = 0;
    for (const auto& [title, name] : {std::pair{"工务段", "Tgwd"}, {"线别", "Txb"}, {"分析日", "Textdyrq"}}) {
        grid->addWidget(new QLabel(title, group), row, 0);
        grid->addWidget(named(new QLineEdit(group), name), row++, 1);
        if (std::string(name) != "Txb") continue;
        // The line box beside a choice of the lines table and the way to keep it.
        auto* lines = named(new QComboBox(group), "Comboxb");
        lines->setToolTip("选择线别名称填入线别");
        grid->addWidget(lines, row, 1);
        grid->addWidget(tablebutton("Commanddywh", "维护线别表，导入导出线别表", group), row++, 0);
    }
    auto* notice = named(new QPushButton(caption("Commanddydy"), group), "Commanddydy");
    notice->setToolTip("左键打印复核通知单,右键打印反馈通知单");
    auto* picture = named(new QPushButton(caption("Command15"), group), "Command15");
    picture->setToolTip("左键打印当前图像，右键打印白色背景（节省墨水）");
    for (QPushButton* b : {notice, picture}) b->installEventFilter(this);
    grid->addWidget(notice, row, 0);
    grid->addWidget(picture, row++, 1);
    auto* panel = named(new QFrame(group), "Frame5");
    auto* panelrow = new QHBoxLayout(panel);
    panelrow->addWidget(new QLabel("正在打印", panel));
    panelrow->addWidget(named(new QLabel(panel), "Label33"));
    grid->addWidget(panel, row, 0, 1, 2);
    return group;
}

void Form28Window::filemenu() {
    QMenu* file = menuBar()->addMenu(english(st_) ? "File" : "文件(&F)");
    QAction* open = file->addAction(caption("Commandopen"));
    open->setObjectName("Commandopen");
    open->setShortcut(QKeySequence::Open);
    QMenu* recent = file->addMenu(english(st_) ? "Recent" : "最近打开的记录");
    for (int i = 0; i < recentlimit; ++i)
        recent->addAction(QString())->setObjectName(QString("Menurecent(%1)").arg(i));
    file->addSeparator();
    connect(file->addAction(english(st_) ? "Quit" : "退出"), &QAction::triggered, this, &QWidget::close);
    QMenu* help = menuBar()->addMenu(english(st_) ? "Keys" : "按键(&K)");
    connect(help->addAction(english(st_) ? "Keys on the picture" : "图像上的按键与滚轮"), &QAction::triggered,
            this, [this] { ui_.message(keystip); });
}

void Form28Window::statusbar() {
    for (const char* name : {"Statuspointer", "Statusplace", "Statusspeed", "Statusfile"}) {
        auto* label = named(new QLabel(this), name);
        label->setMinimumWidth(std::string(name) == "Statuspointer" ? 360 : 110);
        statusBar()->addWidget(label, std::string(name) == "Statuspointer" ? 1 : 0);
    }
}

void Form28Window::applytips() {
    for (QObject* object : findChildren<QObject*>()) {
        const QString name = object->objectName();
        if (name.isEmpty()) continue;
        const QString tip = QString::fromStdString(controltip(st_, name.toStdString()));
        if (tip.isEmpty()) continue;
        if (auto* widget = qobject_cast<QWidget*>(object); widget && widget->toolTip().isEmpty())
            widget->setToolTip(tip);
        else if (auto* entry = qobject_cast<QAction*>(object); entry && entry->toolTip() == entry->text())
            entry->setToolTip(tip);
    }
}

void Form28Window::barvalues() {
    // Each value label beside its bar, in the bar's row or column.
    for (const char* name : {"HScroll8", "HScroll7", "HScroll3", "HScroll10", "HScroll1", "HScrolljd"}) {
        auto* bar = findChild<QScrollBar*>(name);
        auto* value = named(new QLabel(bar->parentWidget()), (std::string(name) + "value").c_str());
        value->setMinimumWidth(52);
        for (QBoxLayout* box : bar->parentWidget()->findChildren<QBoxLayout*>())
            if (box->indexOf(bar) >= 0) {
                box->insertWidget(box->indexOf(bar) + 1, value);
                break;
            }
    }
}

void Form28Window::openpath(const QString& path) {
    pb1_->show();
    act([this, path] { openrecording(st_, path.toStdString()); });
    focuspicture();
}

void Form28Window::dragEnterEvent(QDragEnterEvent* event) {
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile() && extensionok(url.toLocalFile().toStdString()))
            return event->acceptProposedAction();
}

void Form28Window::dropEvent(QDropEvent* event) {
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile()) {
            event->acceptProposedAction();
            return openpath(url.toLocalFile());
        }
}

bool Form28Window::picturekey(QEvent* event) {
    std::string key;
    if (event->type() == QEvent::Wheel) {
        auto* wheel = static_cast<QWheelEvent*>(event);
        const int turn = wheel->angleDelta().y() != 0 ? wheel->angleDelta().y() : wheel->angleDelta().x();
        if (turn == 0) return true;
        const Qt::KeyboardModifiers held = wheel->modifiers();
        key = std::string(held & Qt::ControlModifier ? "Ctrl+"
                          : held & Qt::ShiftModifier ? "Shift+"
                                                     : "") +
              (turn > 0 ? "WheelUp" : "WheelDown");
    } else {
        auto* press = static_cast<QKeyEvent*>(event);
        if (press->key() == Qt::Key_G && press->modifiers() & Qt::ControlModifier) {
            auto* seek = findChild<QLineEdit*>("Text1");
            seek->setFocus();
            seek->selectAll();
            return true;
        }
        static const std::pair<int, const char*> keys[] = {
            {Qt::Key_Left, "Left"},         {Qt::Key_Right, "Right"},  {Qt::Key_PageUp, "PageUp"},
            {Qt::Key_PageDown, "PageDown"}, {Qt::Key_Home, "Home"},    {Qt::Key_End, "End"},
            {Qt::Key_Space, "Space"},       {Qt::Key_Escape, "Escape"}};
        for (const auto& [code, name] : keys)
            if (press->key() == code) key = name;
        if (key.empty()) return false;
    }
    act([this, key] { keypress(st_, "Picture1", key); });
    return true;
}

QPushButton* Form28Window::button(const char* name) {
    auto* b = named(new QPushButton(caption(name), centralWidget()), name);
    const std::string control = name;
    // The replay keys hand the focus back to the picture; the binder runs the press first.
    if (control == "Command8" || control == "Command34" || control == "Command27")
        connect(b, &QPushButton::clicked, this, [this] { focuspicture(); });
    return b;
}

QPushButton* Form28Window::tablebutton(const char* name, const char* tip, QWidget* parent) {
    auto* b = named(new QPushButton(caption(name), parent), name);
    b->setToolTip(tip);
    return b;
}

void Form28Window::showmasterform() {
    if (st_.master.name.empty() || masterform_) return;
    masterform_ = new MasterWindow(
        st_, st_.master.name, [this](const std::function<void()>& h) { act(h); }, this);
    masterform_->setAttribute(Qt::WA_DeleteOnClose);
    masterform_->open();
}

void Form28Window::showformpk2() {
    if (!st_.alignment.open || formpk2_) return;
    formpk2_ = new Formpk2Window(
        st_, [this](const std::function<void()>& h) { act(h); }, this);
    formpk2_->setAttribute(Qt::WA_DeleteOnClose);
    connect(formpk2_, &QDialog::finished, this, [this] { focuspicture(); });
    formpk2_->open();
}

void Form28Window::focuspicture() {
    if (picture1_->isEnabled() && picture1_->isVisible()) picture1_->setFocus();
}

void Form28Window::picturemouse(const char* kind, Qt::MouseButton button, QPointF at, bool main) {
    const std::string which = button == Qt::LeftButton    ? "left"
                              : button == Qt::RightButton ? "right"
                                                          : "none";
    const std::string k = kind;
    Side& side = main ? st_.zhu : st_.cong;
    PictureView* view = main ? picture1_ : picture6_;
    // The grip and the labels of the cursor assembly: the mouse is the grip's, in its own x.
    if (k == "down" && !st_.alignment.open && onruler(side, at.x())) gripheld_ = true;
    if (gripheld_) {
        const double x = at.x() - side.rulerx0;
        act([&] { mouse(st_, main ? "Labelyz" : "Labelyzdb", {k, which, x, at.y()}); });
        if (k == "up") gripheld_ = false;
        return;
    }
    act([&] { mouse(st_, main ? "Picture1" : "Picture6", {k, which, at.x(), at.y()}); });
    if (st_.form.popup != "a13") return;
    st_.form.popup.clear();
    (main ? popup_ : popupdb_)->popup(view->mapToGlobal(view->towidget(at).toPoint()));
}

QWidget* Form28Window::amodepanel(QWidget* parent) {
    auto* panel = named(new QFrame(parent), "Picture5");
    panel->setFrameShape(QFrame::Panel);
    panel->setAutoFillBackground(true);
    panel->setToolTip("按住鼠标移动可拖动坐标轴");
    panel->installEventFilter(this);
    auto* box = new QVBoxLayout(panel);
    auto* head = new QHBoxLayout();
    head->addWidget(named(new QLabel(panel), "Labelaxxs"), 1);
    head->addWidget(named(new QLabel(panel), "Label32"));
    box->addLayout(head);
    picture3_ = named(new PictureView(*canvas3_, panel), "Picture3");
    picture3_->setToolTip("左键暂停；右键连续播放");
    picture3_->setFixedSize(434, 301);
    connect(picture3_, &PictureView::pressed, this, [this](Qt::MouseButton b, QPointF at) {
        const std::string which = b == Qt::LeftButton ? "left" : b == Qt::RightButton ? "right" : "none";
        act([&] { mouse(st_, "Picture3", {"down", which, at.x(), at.y()}); });
    });
    box->addWidget(picture3_);
    auto* channels = new QHBoxLayout();
    for (const char* name : {"Command4", "Command5", "Command6", "Command7", "Command9", "Command10",
                             "Command11", "Command32", "Command33", "Command39"}) {
        auto* b = named(new QPushButton(caption(name), panel), name);
        b->setFixedWidth(36);
        channels->addWidget(b);
    }
    box->addLayout(channels);
    auto* run = new QHBoxLayout();
    run->addWidget(named(new QPushButton(caption("Command12"), panel), "Command12"));
    run->addWidget(new QLabel("速度", panel));
    run->addWidget(named(new QScrollBar(Qt::Horizontal, panel), "HScroll1"), 1);
    box->addLayout(run);
    auto* column = named(new QScrollBar(Qt::Horizontal, panel), "HScroll9");
    column->setFocusPolicy(Qt::StrongFocus); // holding the bar holds the column
    box->addWidget(column);
    auto* sizes = new QHBoxLayout();
    for (const char* name : {"Ls", "Ll", "Lh"}) sizes->addWidget(named(new QLabel(panel), name));
    box->addLayout(sizes);
    panel->adjustSize();
    panel->hide();
    return panel;
}

// The cursor assembly over a side's picture in the guide colour, hidden while the alignment is open;
// the A-mode marker Lineyz(21) and the measuring line Lineyz(22).
void Form28Window::drawruler(QPainter& painter, const PictureView& view, const Side& side) {
    if (st_.alignment.open || !st_.form.mainviewenabled) return;
    for (const LineShape* l : {&side.amodemarker, &side.measuremark}) {
        if (!l->visible) continue;
        painter.setPen(QPen(qcolorof(l->color), 1));
        painter.drawLine(view.towidget({l->x1, l->y1}), view.towidget({l->x2, l->y2}));
    }
    const QColor colour = qcolorof(st_.settings.color("biaochicolor"));
    for (const RulerLine& l : rulerlines(side.rulerx0)) {
        painter.setPen(QPen(colour, l.width));
        painter.drawLine(view.towidget({l.x1, l.y1}), view.towidget({l.x2, l.y2}));
    }
    QFont font = painter.font();
    font.setPixelSize(11);
    painter.setFont(font);
    for (const RulerLabel& l : rulerlabels(side.rulerx0)) {
        const QPointF at = view.towidget({l.left, l.top});
        painter.drawText(QRectF(at.x() - 14, at.y(), 40, 14), Qt::AlignRight | Qt::AlignTop,
                         QString::fromStdString(l.text));
    }
}

void Form28Window::trackpanel(QWidget* central) {
    track_ = new CurveView(st_, "picturegj", central);
    track_->setToolTip("按住鼠标移动可拖动坐标轴");
    auto* corner = new QHBoxLayout(track_);
    corner->setContentsMargins(4, 4, 4, 4);
    corner->addStretch(1);
    for (const char* name : {"Command30", "Command29", "Command28"}) {
        auto* b = named(new QPushButton(caption(name), track_), name);
        b->setFixedSize(30, 24);
        corner->addWidget(b, 0, Qt::AlignTop);
    }
    track_->setoverlay([this](QPainter& p, const std::function<QPointF(QPointF)>& at) {
        const Station::Track& t = st_.track;
        // Shape6: the present place.
        p.setPen(QPen(Qt::blue, 2));
        p.drawEllipse(at({t.Shape6x, t.Shape6y}), 6, 6);
        const std::pair<QColor, const char*> legend[] = {
            {Qt::red, "推行轨迹(有GPS值)"}, {Qt::black, "推行轨迹(无GPS值)"}, {Qt::blue, "选中路段"}};
        int y = track_->height() - 52;
        for (const auto& [colour, text] : legend) {
            p.setPen(QPen(colour, 3));
            p.drawLine(10, y, 30, y);
            p.setPen(Qt::black);
            p.drawText(36, y + 5, text);
            y += 16;
        }
    });
    track_->hide();
    timer1_ = named(new QTimer(this), "Timer1");
    timer1_->setInterval(300);
    connect(timer1_, &QTimer::timeout, this, [this] {
        if (!st_.track.Timer1) return;
        followtrack(st_);
        track_->update();
    });
    timer1_->start();
}

void Form28Window::act(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const std::exception& e) {
        st_.ui->message(e.what());
    }
    refresh();
    showformpk2();
    showmasterform();
    showform10();
    showcurves();
}

void Form28Window::showcurves() {
    for (const char* form : {"Form29", "Form8", "Form9", "Form4"}) {
        QPointer<CurveWindow>& window = curvewindows_[form];
        if (window || !CurveWindow::isopen(st_, form)) continue;
        window = new CurveWindow(
            st_, form, [this](const std::function<void()>& h) { act(h); }, this);
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->show();
    }
}

// The track's canvas over the window, small at the lower left or as large as the window, with its
// three buttons in its corner; Shape6 and the legend drawn over it.
void Form28Window::placetrack() {
    const Station::Track& t = st_.track;
    track_->setVisible(t.visible);
    if (!t.visible) return;
    QWidget* central = centralWidget();
    track_->setGeometry(t.big ? QRect(7, 7, central->width() - 14, central->height() - 14)
                              : QRect(7, std::max(7, central->height() - 377), 620, 370));
    track_->raise();
    track_->update();
}

void Form28Window::showform10() {
    if (!st_.Form10open || form10_) return;
    form10_ = new Form10Window(
        st_, [this](const std::function<void()>& h) { act(h); }, this);
    form10_->setAttribute(Qt::WA_DeleteOnClose);
    form10_->show();
}

void Form28Window::refresh() {
    // The caption of the station, and beside it the recording open in it.
    const QString file = QString::fromStdString(st_.zhu.filepath).trimmed();
    setWindowTitle(QString::fromStdString(st_.form.caption) +
                   (file.isEmpty() ? QString() : "  —  " + QFileInfo(file).fileName()));
    canvas_->spacelabels(st_.zhu.rulerx0 - 16);
    canvas6_->spacelabels(st_.cong.rulerx0 - 16);
    updateoverview(st_);
    overview_->update();
    pb1_->setVisible(st_.form.pb1visible);
    controls_->refresh();
    if (formpk2_) formpk2_->refresh();
    if (masterform_) masterform_->refresh();
    if (form10_) form10_->refresh();
    for (auto& [form, window] : curvewindows_)
        if (window) window->refresh();
    placetrack();
    for (int k = 0; k < 9; ++k) {
        const QString sheet = QString("background-color: %1; border: 1px solid gray;")
                                  .arg(qcolorof(st_.settings.channelcolor[k]).name());
        if (colours_[k]->styleSheet() != sheet)
            colours_[k]->setStyleSheet(sheet); // restyled only on a change
    }
    const QColor back = qcolorof(st_.settings.color("formbackcolor"));
    if (centralWidget()->palette().color(QPalette::Window) != back) {
        QPalette palette = centralWidget()->palette();
        palette.setColor(QPalette::Window, back);
        centralWidget()->setPalette(palette);
        centralWidget()->setAutoFillBackground(true);
    }
    label20_->setToolTip(QString::fromStdString(st_.form.Label20hint));
    if (st_.Picture9visible && enlargement_->isHidden()) {
        // Over the left third of the picture, its bottom at the rail's foot.
        const QRect at = picture1_->geometry();
        const int bottom =
            at.top() + static_cast<int>(picture1_->towidget({0, double(st_.zhu.railfootrow)}).y());
        const int height = std::max(120, bottom - at.top());
        enlargement_->setGeometry(at.left(), bottom - height, at.width() / 3, height);
        enlargement_->raise();
    }
    enlargement_->setVisible(st_.Picture9visible);
    picture9_->update();
    if (st_.Picture5visible && picture5_->isHidden()) {
        // Away from the cursor, where the analyst looks: the other half of the picture.
        const QRect at = picture1_->geometry();
        const double cursor = picture1_->towidget({cursorline(st_.zhu), 0}).x();
        const int left = cursor > at.width() / 2 ? at.left() + 10 : at.right() - picture5_->width() - 10;
        picture5_->move(std::max(at.left(), left), at.top() + 30);
        picture5_->raise();
    }
    picture5_->setVisible(st_.Picture5visible);
    comparison_->setVisible(st_.form.comparisonvisible);
    // The panels give room to the comparison's picture while it shows.
    for (const char* name : {"Grid1", "Grid2", "Grid3"}) {
        auto* panel = findChild<QTableWidget*>(name);
        const int height = st_.form.comparisonvisible ? 100 : 130;
        if (panel->maximumHeight() != height) panel->setMaximumHeight(height);
    }
    placereadout(*picture1_, st_.zhu);
    picture1_->findChild<QLabel*>("Label6")->move(
        picture1_->towidget({st_.form.Label6.left, st_.form.Label6.top}).toPoint());
    placereadout(*picture6_, st_.cong);
    if (st_.T2 && (!t2_->isActive() || t2_->interval() != st_.T2interval))
        t2_->start(st_.T2interval);
    else if (!st_.T2 && t2_->isActive())
        t2_->stop();
    picture3_->update();
    // The replay timer runs while the logic says so, at the interval of the speed.
    if (st_.T1 && (!t1_->isActive() || t1_->interval() != st_.T1interval))
        t1_->start(st_.T1interval);
    else if (!st_.T1 && t1_->isActive())
        t1_->stop();
    picture1_->update();
    picture6_->update();
}

// The pointer's read-out of a side where the logic placed it, in the picture's colours: the guide
// colour on the background.
void Form28Window::placereadout(PictureView& view, const Side& side) {
    auto* label = view.findChild<QLabel*>(side.main ? "Label14" : "Label14db");
    label->move(view.towidget({side.Label14.left, side.Label14.top}).toPoint());
    const QString sheet = QString("color: %1; background-color: %2;")
                              .arg(qcolorof(st_.settings.color("biaochicolor")).name(),
                                   qcolorof(st_.settings.color("bxianbackcolor")).name());
    if (label->styleSheet() != sheet) label->setStyleSheet(sheet);
    label->adjustSize();
    label->raise();
}

// The A-mode panel follows the pointer while the left button holds it.
bool Form28Window::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (watched == picture1_ && (type == QEvent::KeyPress || type == QEvent::Wheel) && picturekey(event))
        return true;
    if (watched->objectName() == "Command21" && type == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::RightButton)
        act([this] { mouse(st_, "Command21", {"up", "right", 0, 0}); });
    // The print buttons take the right button too, which a push button's click never reports.
    const QString name = watched->objectName();
    if ((name == "Commanddydy" || name == "Command15") && type == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(event)->button() == Qt::RightButton) {
        const std::string control = name.toStdString();
        act([this, control] { mouse(st_, control, {"down", "right", 0, 0}); });
        return true;
    }
    if (watched == picture5_ && (type == QEvent::MouseButtonPress || type == QEvent::MouseMove ||
                                 type == QEvent::MouseButtonRelease)) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (type == QEvent::MouseButtonPress && mouse->button() == Qt::LeftButton) {
            panelgrip_ = mouse->position().toPoint();
            panelheld_ = true;
        } else if (type == QEvent::MouseMove && panelheld_) {
            picture5_->move(picture5_->pos() + mouse->position().toPoint() - panelgrip_);
        } else if (type == QEvent::MouseButtonRelease) {
            panelheld_ = false;
        }
    }
    return QMainWindow::eventFilter(watched, event);
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
    st_.T1 = st_.T2 = false; // closing during replay stops both timers first
    t1_->stop();
    t2_->stop();
    if (formpk2_) formpk2_->close();
    // A session that could not be saved keeps the window open, unless the user dropped it.
    if (!windowunload(st_)) {
        event->ignore();
        refresh();
        return;
    }
    event->accept();
}

} // namespace orvane

// The main window on the offscreen platform, its controls found by name.
#include "app/desk.h"
#include "app/dialogwindow.h"
#include "app/form28window.h"
#include "app/overviewview.h"
#include "app/startup.h"
#include "stationfixture.h"

#include "generator.h"

#include "app/pictureview.h"
#include "bmode/formpk2window.h"
#include "render/rastercanvas.h"
#include "replay/bofang.h"
#include "replay/transport.h"
#include "replay/wholerun.h"
#include "reports/workbook.h"
#include "station/controls.h"
#include "station/station.h"
#include "stores/settingsstore.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <QWheelEvent>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>

using namespace orvane;

namespace {

// The window tests answer message boxes through the scripted Ui, so that nothing waits for a click.
class Form28 : public testkit::StationTest {
  protected:
    void SetUp() override { start(); }
};

TEST_F(Form28, OpensOnAFileWithItsNamedControls) {
    std::string path = writefile("run.ktr", std::string(1024, '\0'));
    windowload(st, path);
    DialogUi dialogs;
    Form28Window window(st, dialogs);
    st.ui = &ui; // message boxes are collected, not shown
    EXPECT_EQ(window.objectName(), "Form28");
    EXPECT_NE(window.findChild<QWidget*>("Picture1"), nullptr);
    EXPECT_NE(window.findChild<QProgressBar*>("pb1"), nullptr);
    EXPECT_NE(window.findChild<QLabel*>("lts1"), nullptr);

    window.activate();
    EXPECT_EQ(window.windowTitle().toStdString(), "KRM-5T/11型 2017-11-16-v1.0版  —  run.ktr");
    EXPECT_EQ(ui.messages, std::vector<std::string>{"没有数据！"});
    EXPECT_FALSE(window.findChild<QProgressBar*>("pb1")->isVisibleTo(&window));
    EXPECT_FALSE(window.findChild<QLabel*>("lts1")->isVisibleTo(&window));
}

TEST_F(Form28, ShowingTheWindowRunsFirstActivationOnce) {
    windowload(st, writefile("run.ktr", ""));
    DialogUi dialogs;
    Form28Window window(st, dialogs);
    st.ui = &ui;
    QSignalSpy spy(&window, &Form28Window::activated);
    window.show();
    ASSERT_TRUE(spy.wait(5000));
    window.hide();
    window.show();
    QApplication::processEvents();
    EXPECT_EQ(spy.count(), 1);
    EXPECT_EQ(ui.messages.size(), 1u);
}

TEST_F(Form28, ASecondInstanceAnsweredNoClosesAtActivation) {
    st.countinstances = [] { return 2; };
    ui.answers = {"no"};
    windowload(st, writefile("run.ktr", ""));
    DialogUi dialogs;
    Form28Window window(st, dialogs);
    st.ui = &ui;
    window.show();
    window.activate();
    EXPECT_TRUE(st.process.ended);
    EXPECT_FALSE(window.isVisible());
}

} // namespace

namespace {

// The window on a small synthetic recording, loaded and shown.
class Form28Replay : public testkit::StationTest {
  protected:
    void SetUp() override {
        start();
        const ktrgen::Recording rec = ktrgen::generate(ktrgen::preset("small"), 2);
        std::string bytes(rec.bytes.begin(), rec.bytes.end());
        windowload(st, writefile("small.ktr", bytes));
        window = std::make_unique<Form28Window>(st, dialogs);
        st.ui = &ui;
        window->activate();
        ASSERT_TRUE(ui.messages.empty());
    }
    void TearDown() override { window.reset(); }
    template <class T> T* control(const char* name) { return window->findChild<T*>(name); }

    DialogUi dialogs;
    std::unique_ptr<Form28Window> window;
};

TEST_F(Form28Replay, PlayStartsTheTimerWhoseTicksMoveTheView) {
    auto* play = control<QPushButton>("Command8");
    ASSERT_NE(play, nullptr);
    EXPECT_EQ(play->text().toStdString(), "连续播放");
    play->click();
    EXPECT_EQ(play->text().toStdString(), "播放暂停");
    auto* timer = control<QTimer>("T1");
    ASSERT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 15); // speed 5 of the seeded settings
    QTRY_VERIFY_WITH_TIMEOUT(st.zhu.viewindex > 600, 2000);
    play->click();
    EXPECT_FALSE(timer->isActive());
}

TEST_F(Form28Replay, StepKeysAndTheBarMoveTheView) {
    control<QPushButton>("Command34")->click();
    EXPECT_EQ(st.zhu.viewindex, 600 + 500);
    control<QPushButton>("Command27")->click();
    EXPECT_EQ(st.zhu.viewindex, 600);
    auto* bar = control<QScrollBar>("HScrolljd");
    EXPECT_EQ(bar->maximum(), st.zhu.scrollmax);
    bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(st.zhu.viewindex, bar->value() * 300);
}

TEST_F(Form28Replay, CheckBoxHidesItsChannelAndPanelsShowTheRecords) {
    auto* g = control<QCheckBox>("Check7");
    ASSERT_TRUE(g->isChecked());
    g->click();
    EXPECT_FALSE(st.form.channelshown[6]);
    auto* all = control<QCheckBox>("Check8");
    EXPECT_FALSE(all->isChecked());
    all->click(); // not all shown: all are shown again
    EXPECT_TRUE(g->isChecked());
    EXPECT_TRUE(all->isChecked());
    all->click();
    for (bool on : st.form.channelshown) EXPECT_FALSE(on);
    auto* grid2 = control<QTableWidget>("Grid2");
    EXPECT_EQ(grid2->item(0, 1)->text().toStdString(), "执机人");
    EXPECT_EQ(grid2->item(1, 1)->text().toStdString(), "张伟");
    EXPECT_EQ(control<QLabel>("Lzygk")->text().toStdString(), "日期:26.11.22  机号:51207");
}

TEST_F(Form28Replay, TheIndexButtonFillsTheListsAndTheTabsFollowTheMenuEntries) {
    control<QPushButton>("Command1")->click();
    auto* marks = control<QTableWidget>("Grid1ts");
    ASSERT_NE(marks, nullptr);
    EXPECT_EQ(marks->rowCount(), 12); // the heads and the eleven marks of the small recording
    EXPECT_EQ(marks->item(2, 1)->text().toStdString(), "标记0");
    EXPECT_EQ(control<QTableWidget>("Grid1jf")->rowCount(), st.zhu.gpscount + 1);
    EXPECT_EQ(control<QTableWidget>("Grid1ry")->item(1, 0)->text().toStdString(), "执机：张伟");
    auto* tabs = control<QTabWidget>("SSTab1");
    EXPECT_EQ(tabs->currentIndex(), 0);
    window->findChild<QAction*>("bjdcz")->trigger();
    EXPECT_EQ(tabs->currentIndex(), 1);
    tabs->setCurrentIndex(3);
    EXPECT_EQ(st.form.SSTab1, 3);
    // A box of the mark filter lists the marks again.
    control<QCheckBox>("Checkts(0)")->click();
    EXPECT_EQ(marks->rowCount(), 11);
    // A click on a row goes to the mark, 300 positions before it.
    marks->cellClicked(3, 0);
    const std::int32_t there = st.zhu.viewindex;
    gotoposition(st, st.markrowpos[2] - 300);
    EXPECT_EQ(st.zhu.viewindex, there);
}

// Keeps the workbooks handed over, by the report's name.
class KeptReports : public Workbooks {
  public:
    std::vector<std::pair<std::string, std::string>> firstsheets;
    void show(const Workbook& book, const std::string& report) override {
        firstsheets.emplace_back(report, book.sheets().front().name);
    }
};

TEST_F(Form28Replay, TheDailyReportStandsBesideTheQualitySummaryOnTheOverviewTab) {
    KeptReports kept;
    st.workbooks = &kept;
    auto* daily = control<QPushButton>("Commanddaily");
    ASSERT_NE(daily, nullptr);
    EXPECT_EQ(daily->text().toStdString(), "日台报告");
    EXPECT_EQ(daily->parentWidget(), control<QPushButton>("Command24")->parentWidget());
    ui.answers = {"3"};
    daily->click();
    ASSERT_EQ(kept.firstsheets.size(), 1u);
    EXPECT_EQ(kept.firstsheets[0], (std::pair<std::string, std::string>{"daily", "日台数据分析报告"}));
    // The lists it reads were loaded first.
    EXPECT_EQ(control<QTableWidget>("Grid1jf")->rowCount(), st.zhu.gpscount + 1);
    st.workbooks = nullptr;
}

// Counts the notices printed, closing each as the preview's close would.
class CountedPrinter : public Printer {
  public:
    int pages = 0;
    bool print(const PrintedPage&) override {
        ++pages;
        return true;
    }
};

TEST_F(Form28Replay, ThePrintButtonsTakeEitherMouseButtonAndTheMenuSendsThePictureOut) {
    CountedPrinter printer;
    st.printer = &printer;
    for (const char* name : {"Tgwd", "Txb", "Textdyrq"}) EXPECT_NE(control<QLineEdit>(name), nullptr) << name;
    auto* notice = control<QPushButton>("Commanddydy");
    ASSERT_NE(notice, nullptr);
    EXPECT_EQ(notice->toolTip().toStdString(), "左键打印复核通知单,右键打印反馈通知单");
    EXPECT_EQ(control<QPushButton>("Command15")->toolTip().toStdString(),
              "左键打印当前图像，右键打印白色背景（节省墨水）");
    QTest::mouseClick(notice, Qt::RightButton);
    EXPECT_EQ(st.noticekind, "反馈");
    notice->click();
    EXPECT_EQ(st.noticekind, "复核");
    EXPECT_EQ(printer.pages, 2);
    EXPECT_FALSE(st.Form25open); // the preview was closed when print returned
    const std::uint32_t back = st.settings.color("bxianbackcolor");
    QTest::mouseClick(control<QPushButton>("Command15"), Qt::RightButton);
    EXPECT_EQ(printer.pages, 3);
    EXPECT_EQ(st.settings.color("bxianbackcolor"), back); // given back when the preview closed
    for (const char* entry : {"adytx", "abctx", "ajt", "dcxssz"})
        EXPECT_NE(window->findChild<QAction*>(entry), nullptr) << entry;
    EXPECT_NE(window->findChild<QAction*>("qjtdb"), nullptr);
    st.printer = nullptr;
}

TEST_F(Form28Replay, EnterInTheKilometreBoxSeeks) {
    auto* text1 = control<QLineEdit>("Text1");
    text1->setText("12.35");
    QTest::keyClick(text1, Qt::Key_Return);
    ASSERT_GE(st.seekcount, 1);
    EXPECT_EQ(st.zhu.viewindex, st.seekhits[0]);
}

TEST_F(Form28Replay, AnOptionWritesItsSettingAndRedraws) {
    auto* clip = control<QRadioButton>("Option16");
    ASSERT_NE(clip, nullptr);
    EXPECT_TRUE(control<QRadioButton>("Option17")->isChecked()); // the seeded whole-file replay
    const int frames = st.framecount;
    clip->click();
    EXPECT_EQ(st.settings.wholefile, 0);
    EXPECT_EQ(st.colordb->scalar("select fpy from color where weizhi='shoudbjz'").number(), 0);
    EXPECT_GT(st.framecount, frames);
    EXPECT_TRUE(clip->isChecked());
    EXPECT_FALSE(control<QRadioButton>("Option17")->isChecked());
    control<QRadioButton>("Option11")->click();
    EXPECT_TRUE(st.form.auxlines);
    control<QScrollBar>("HScroll7")->setValue(3);
    EXPECT_EQ(st.settings.diandx, 3);
    EXPECT_EQ(st.colordb->scalar("select shuzhi from color where weizhi='diandx'").number(), 3);
}

TEST_F(Form28Replay, ColourLabelOpensTheDialogAndRecoloursTheChannel) {
    ui.answers.push_back(std::to_string(rgb(255, 0, 0)));
    auto* lysa = control<QLabel>("Lysa");
    ASSERT_NE(lysa, nullptr);
    QTest::mouseClick(lysa, Qt::LeftButton);
    EXPECT_EQ(st.settings.channelcolor[0], rgb(255, 0, 0));
    EXPECT_NE(lysa->styleSheet().indexOf("#ff0000"), -1);
    EXPECT_EQ(st.colordb->scalar("select shuzhi from color where weizhi='acolor'").number(), 255);
}

TEST_F(Form28Replay, PresetButtonRepaintsThePicture) {
    control<QPushButton>("Command41")->click();
    const QImage shown = control<QWidget>("Picture1")->grab().toImage();
    EXPECT_EQ(shown.pixelColor(3, shown.height() / 2), QColor(255, 255, 192)); // the light yellow background
    EXPECT_EQ(st.settings.color("biaochicolor"), rgb(0, 0, 0));
}

TEST_F(Form28Replay, AlignmentWindowTunesTheWordsAndSavesThem) {
    const std::int16_t before = st.zhu.pinkongval[0];
    control<QPushButton>("Command3")->click();
    auto* formpk2 = window->findChild<Formpk2Window*>("Formpk2");
    ASSERT_NE(formpk2, nullptr);
    EXPECT_TRUE(formpk2->isModal());
    EXPECT_TRUE(st.alignment.open);
    EXPECT_TRUE(control<QTimer>("T1")->isActive()); // ticks of step 0 show each change
    auto* bar = formpk2->findChild<QScrollBar*>("HScroll1");
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->value(), 0);
    EXPECT_EQ(bar->minimum(), -200);
    bar->setValue(25);
    EXPECT_EQ(st.zhu.pinkongval[0], before + 25);
    EXPECT_EQ(st.zhu.viewindex, 600); // the view stays while the picture follows
    formpk2->findChild<QPushButton*>("Cmdbc")->click();
    EXPECT_EQ(st.gpsxdb->scalar("select apk from pinkong where jqbh=?", {st.machineno}).number(),
              before + 25);
    formpk2->reject(); // closing ends the alignment
    EXPECT_FALSE(st.alignment.open);
    EXPECT_FALSE(control<QTimer>("T1")->isActive());
    EXPECT_EQ(st.pinkonghit, 1);
    EXPECT_EQ(st.zhu.pinkongval[0], before + 25);
}

TEST_F(Form28Replay, ExactModeInTheAlignmentWindowClosesIt) {
    control<QPushButton>("Command3")->click();
    auto* formpk2 = window->findChild<Formpk2Window*>("Formpk2");
    ASSERT_NE(formpk2, nullptr);
    formpk2->findChild<QRadioButton*>("Option2")->click();
    EXPECT_FALSE(st.alignment.open);
    EXPECT_FALSE(formpk2->isVisible());
    for (auto w : st.zhu.pinkongval) EXPECT_EQ(w, 0);
}

TEST_F(Form28Replay, RightPressOnThePictureShowsTheMenuOfMarkers) {
    window->show();
    auto* picture = control<PictureView>("Picture1");
    const QPoint at(picture->width() / 4, picture->height() / 2);
    QTest::mouseClick(picture, Qt::RightButton, {}, at);
    auto* menu = window->findChild<QMenu*>("a13");
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(menu->isVisible());
    auto* azd = menu->findChild<QAction*>("azd");
    EXPECT_FALSE(azd->isEnabled()); // no start yet
    menu->findChild<QAction*>("aqd")->trigger();
    menu->hide();
    EXPECT_NEAR(st.zhu.startx, 300, 2); // a quarter of the 1200 units across
    EXPECT_TRUE(st.form.azdenabled);
    menu->findChild<QAction*>("qcqzd")->trigger();
    EXPECT_EQ(st.zhu.startx, 0);
}

TEST_F(Form28Replay, RulerIsDraggedAcrossThePicture) {
    window->show();
    auto* picture = control<PictureView>("Picture1");
    const QPointF ruler = picture->towidget({st.zhu.rulerx0 + 20, 100});
    const double start = st.zhu.rulerx0;
    QTest::mousePress(picture, Qt::LeftButton, {}, ruler.toPoint());
    QMouseEvent move(QEvent::MouseMove, ruler - QPointF(picture->width() / 4.0, 0),
                     picture->mapToGlobal(ruler), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(picture, &move);
    QTest::mouseRelease(picture, Qt::LeftButton, {}, (ruler - QPointF(picture->width() / 4.0, 0)).toPoint());
    EXPECT_NEAR(st.zhu.rulerx0, start - 300, 3);
    EXPECT_FALSE(st.T1); // a drag of the ruler is no press on the view
}

TEST_F(Form28Replay, ScrollBarTakingTheFocusStopsTheReplay) {
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    control<QPushButton>("Command8")->click();
    ASSERT_TRUE(st.T1);
    EXPECT_TRUE(control<QWidget>("Picture1")->hasFocus()); // the play button hands the focus back
    control<QScrollBar>("HScrolljd")->setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(st.T1);
    EXPECT_EQ(control<QPushButton>("Command8")->text().toStdString(), "连续播放");
}

TEST_F(Form28Replay, ClosingDuringReplayStopsTheTimerFirst) {
    window->show();
    control<QPushButton>("Command8")->click();
    ASSERT_TRUE(control<QTimer>("T1")->isActive());
    window->close();
    EXPECT_FALSE(st.T1);
    EXPECT_FALSE(control<QTimer>("T1")->isActive());
}

// Every named widget of the window and of the alignment window stands in the table of controls.
TEST_F(Form28Replay, EveryNamedWidgetHasItsEntryInTheTable) {
    auto check = [&](QWidget* form, const std::string& prefix) {
        int seen = 0;
        for (QObject* o : form->findChildren<QObject*>()) {
            const bool control = qobject_cast<QAbstractButton*>(o) || qobject_cast<QScrollBar*>(o) ||
                                 qobject_cast<QLineEdit*>(o) || qobject_cast<QLabel*>(o) ||
                                 qobject_cast<QTableWidget*>(o) || qobject_cast<QAction*>(o) ||
                                 qobject_cast<PictureView*>(o);
            // The scroll buttons of the side panel's tab bar and the menu bar's are Qt's own.
            if (!control || o->objectName().isEmpty() || qobject_cast<QTabBar*>(o->parent()) ||
                o->objectName().startsWith("qt_"))
                continue;
            EXPECT_NE(st.controls.find(prefix + o->objectName().toStdString()), nullptr)
                << prefix << o->objectName().toStdString();
            ++seen;
        }
        return seen;
    };
    EXPECT_GT(check(window.get(), ""), 60);
    control<QPushButton>("Command3")->click();
    auto* formpk2 = window->findChild<Formpk2Window*>("Formpk2");
    ASSERT_NE(formpk2, nullptr);
    EXPECT_EQ(check(formpk2, "Formpk2."), 8 + 8 + 2 + 2 + 2);
    formpk2->reject();
}

// Each control of the table once through the window: its widget where the window shows one, the
// table itself for the controls of views this window does not show yet. None is unknown.
TEST_F(Form28Replay, EveryControlTakesAnActThroughTheWindow) {
    window->show();
    // A comparison open, so that the controls of the lower half take their acts too.
    ui.answers = {st.zhu.filepath};
    control<QPushButton>("Command17")->click();
    ASSERT_TRUE(st.form.comparisonvisible);
    ui.messages.clear();
    int acted = 0;
    for (const Control& c : st.controls.all()) {
        if (ControlTable::formof(c.name) != "Form28" || c.name == "Command3" || c.kind == ControlKind::grid)
            continue;
        ++acted;
        QObject* widget = window->findChild<QObject*>(QString::fromStdString(c.name));
        if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
            if (button->isEnabled() && button->isVisible()) button->click();
        } else if (auto* bar = qobject_cast<QScrollBar*>(widget)) {
            bar->setValue(bar->minimum() == bar->value() ? bar->maximum() : bar->minimum());
            EXPECT_EQ(bar->value(), reach(st, c.name).value(st)) << c.name;
        } else if (auto* box = qobject_cast<QLineEdit*>(widget)) {
            box->setText("0.1");
            QTest::keyClick(box, Qt::Key_Return);
        } else if (auto* label = qobject_cast<QLabel*>(widget)) {
            QTest::mouseClick(label, Qt::LeftButton);
        } else if (auto* entry = qobject_cast<QAction*>(widget)) {
            entry->trigger();
        } else if (qobject_cast<PictureView*>(widget)) {
            QTest::mouseClick(static_cast<QWidget*>(widget), Qt::LeftButton, {}, QPoint(100, 100));
        } else if (c.kind == ControlKind::checkbox || c.kind == ControlKind::option) {
            setcontrol(st, c.name, "1");
        } else if (c.kind == ControlKind::textbox) {
            enter(st, c.name, "1");
        } else if (c.kind == ControlKind::scrollbar) {
            scroll(st, c.name, c.min);
        } else if (c.click) {
            press(st, c.name);
        }
        for (const std::string& m : ui.messages)
            EXPECT_EQ(m.find("没有这个控件"), std::string::npos) << c.name;
    }
    EXPECT_GT(acted, 90);
    window->hide();
}

TEST_F(Form28Replay, FilterOnItsTabListsHitsAndARowClickGoesThere) {
    window->show();
    auto* tabs = control<QTabWidget>("SSTab1");
    ASSERT_NE(tabs, nullptr);
    EXPECT_EQ(tabs->count(), 7);
    EXPECT_EQ(tabs->tabText(0), "过滤");
    EXPECT_EQ(tabs->tabText(4), "设置");
    EXPECT_EQ(control<QLineEdit>("Ttde")->text(), "1");
    control<QPushButton>("Command2")->click();
    auto* hits = control<QTableWidget>("Grid1bj");
    ASSERT_GT(hits->rowCount(), 1);
    EXPECT_EQ(hits->item(0, 1)->text(), "报警通道");
    EXPECT_TRUE(control<QPushButton>("Command14")->isEnabled());
    const int row = hits->rowCount() - 1;
    QTest::mouseClick(hits->viewport(), Qt::LeftButton, {},
                      hits->visualItemRect(hits->item(row, 0)).center());
    EXPECT_EQ(st.zhu.viewindex, std::max(600, st.hitpos[row - 1] - 800));
    control<QPushButton>("Command14")->click();
    EXPECT_FALSE(control<QPushButton>("Command14")->isEnabled());
    // Unticked, a channel's box reads 0 and rests.
    control<QCheckBox>("Check9")->click();
    EXPECT_EQ(control<QLineEdit>("Ttda")->text(), "0");
    EXPECT_FALSE(control<QLineEdit>("Ttda")->isEnabled());
}

TEST_F(Form28Replay, ComparisonOpensBelowWithTheSameWidthAndClosesAgain) {
    for (const QSize size : {QSize(1920, 1080), QSize(1366, 768)}) {
        window->resize(size);
        window->show();
        ui.answers = {st.zhu.filepath};
        control<QPushButton>("Command17")->click();
        QApplication::processEvents();
        auto* upper = control<PictureView>("Picture1");
        auto* lower = control<PictureView>("Picture6");
        ASSERT_TRUE(lower->isVisible());
        EXPECT_EQ(control<QPushButton>("Command17")->text(), "关闭对比");
        EXPECT_EQ(lower->width(), upper->width());
        EXPECT_GT(lower->mapTo(window.get(), QPoint(0, 0)).y(),
                  upper->mapTo(window.get(), QPoint(0, upper->height())).y());
        EXPECT_GE(upper->height(), size.height() / 6) << size.height();
        EXPECT_GE(lower->height(), size.height() / 6) << size.height();
        EXPECT_FALSE(control<QLabel>("Lzygkdb")->text().isEmpty());
        EXPECT_TRUE(control<QRadioButton>("Option12")->isVisible());
        EXPECT_FALSE(control<QRadioButton>("Option3")->isVisibleTo(window.get()));
        control<QPushButton>("Command17")->click();
        EXPECT_FALSE(lower->isVisible());
        EXPECT_EQ(control<QPushButton>("Command17")->text(), "打开对比");
    }
}

TEST_F(Form28Replay, AllChannelsBoxShowsWhileEveryChannelShows) {
    auto* all = control<QCheckBox>("Check8");
    EXPECT_TRUE(all->isChecked());
    control<QCheckBox>("Check2")->click();
    EXPECT_FALSE(all->isChecked());
    all->click(); // not all shown: every channel shown again
    EXPECT_TRUE(all->isChecked());
    EXPECT_TRUE(control<QCheckBox>("Check2")->isChecked());
}

// A click at an echo of channel B opens its A-scan beside the picture and runs it.
TEST_F(Form28Replay, ClickOnAnEchoOpensTheAModeOfTheNearestChannel) {
    window->show();
    auto* picture = control<PictureView>("Picture1");
    const double x = 500, y = 200;
    // The cursor line stands 50 units right of the click; its column's position.
    const std::int64_t cursor = st.settings.viewspan - static_cast<std::int64_t>(x + 50) + st.zhu.viewindex;
    for (std::int64_t c = cursor - 40; c <= cursor + 40; ++c)
        for (int k = 0; k < 9; ++k) st.zhu.samplegrid[st.zhu.mapat(st.zhu.pinkongval[k] + c)][k] = 0;
    const std::string& kind = st.zhu.channelkind[1];
    const double f = kind == "25" || kind == "26"                   ? 0.777
                     : kind == "45" || kind == "46" || kind == "47" ? st.cos70
                                                                    : 1.0;
    st.zhu.samplegrid[st.zhu.mapat(st.zhu.pinkongval[1] + cursor + 3)][1] =
        static_cast<std::int16_t>(std::lround((y - 12) / f));
    QTest::mouseClick(picture, Qt::LeftButton, {}, picture->towidget({x, y}).toPoint());
    EXPECT_TRUE(control<QWidget>("Picture5")->isVisible());
    EXPECT_TRUE(control<QTimer>("T2")->isActive());
    EXPECT_EQ(control<QLabel>("Labelaxxs")->text().toStdString(), "B通道A型显示");
    control<QLabel>("Label32")->setFocus();
    QTest::mouseClick(control<QLabel>("Label32"), Qt::LeftButton);
    EXPECT_FALSE(control<QWidget>("Picture5")->isVisible());
    EXPECT_FALSE(control<QTimer>("T2")->isActive());
}

TEST_F(Form28Replay, ClosingWhileTheAModeRunsStopsItsTimer) {
    window->show();
    auto* picture = control<PictureView>("Picture1");
    QTest::mouseClick(picture, Qt::LeftButton, {}, picture->towidget({400, 100}).toPoint());
    ASSERT_TRUE(control<QTimer>("T2")->isActive());
    window->close();
    EXPECT_FALSE(st.T2);
    EXPECT_FALSE(control<QTimer>("T2")->isActive());
}

TEST_F(Form28Replay, EnlargeShowsTheStripOverThePictureAndARightReleaseTheMagnifier) {
    window->show();
    auto* enlarge = control<QPushButton>("Command21");
    enlarge->click();
    EXPECT_TRUE(control<QWidget>("Picture9")->isVisible());
    QTest::mouseClick(control<QLabel>("Label9"), Qt::LeftButton);
    EXPECT_FALSE(control<QWidget>("Picture9")->isVisible());
    QTest::mouseRelease(enlarge, Qt::RightButton);
    auto* form10 = window->findChild<QDialog*>("Form10");
    ASSERT_NE(form10, nullptr);
    EXPECT_TRUE(form10->isVisible());
    EXPECT_TRUE(form10->windowFlags() & Qt::WindowStaysOnTopHint);
    form10->findChild<QRadioButton*>("Option1(3)")->click();
    EXPECT_EQ(st.magnifierfactor, 6.0);
    form10->reject();
    EXPECT_FALSE(st.Form10open);
}

// Moving the pointer over the picture shows the read-out beside it, in the guide colour.
TEST_F(Form28Replay, PointerMoveShowsTheReadOutBesideIt) {
    window->show();
    auto* picture = control<PictureView>("Picture1");
    const QPoint at = picture->towidget({300, 118}).toPoint();
    QMouseEvent move(QEvent::MouseMove, at, picture->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(picture, &move);
    auto* readout = control<QLabel>("Label14");
    EXPECT_TRUE(readout->isVisible());
    EXPECT_EQ(readout->text().toStdString(), st.zhu.Label14.text);
    EXPECT_EQ(readout->text().left(3).toStdString(), "水平：");
    EXPECT_TRUE(readout->styleSheet().contains(qcolorof(st.settings.color("biaochicolor")).name()));
}

TEST_F(Form28Replay, TinyWindowStillReplays) {
    window->show();
    window->resize(40, 30);
    QApplication::processEvents();
    control<QPushButton>("Command34")->click();
    control<QWidget>("Picture1")->repaint();
    EXPECT_EQ(st.zhu.viewindex, 1100);
    window->resize(1366, 768);
    QApplication::processEvents();
    EXPECT_FALSE(window->grab().isNull());
}

class Form28English : public testkit::StationTest {
  protected:
    void SetUp() override { start("english"); }
};

TEST_F(Form28English, CaptionsAndTheSeekHintReachTheirControls) {
    windowload(st, writefile("run.ktr", ""));
    DialogUi dialogs;
    Form28Window window(st, dialogs);
    EXPECT_EQ(window.findChild<QLabel*>("Label20")->text().toStdString(), "Trip");
    EXPECT_EQ(window.findChild<QPushButton*>("Command3")->text().toStdString(), "Shift");
    EXPECT_EQ(window.findChild<QPushButton*>("Combjs")->text().toStdString(), "Back");
    EXPECT_EQ(window.findChild<QRadioButton*>("Option5")->text().toStdString(), "g-center");
    EXPECT_EQ(window.findChild<QLabel*>("Label20")->toolTip().toStdString(),
              "如需查找里程相同点，请先点左键找到第一里程点，再点右键依次向后循环查找相同里程点");
}

TEST_F(Form28, ButtonsBeforeARecordingHasLoadedDoNothing) {
    windowload(st, writefile("run.ktr", ""));
    DialogUi dialogs;
    Form28Window window(st, dialogs);
    st.ui = &ui;
    window.activate(); // "没有数据！"
    for (const char* name : {"Command8", "Command34", "Command27", "Command25"})
        window.findChild<QPushButton*>(name)->click();
    window.findChild<QRadioButton*>("Option17")->click();
    EXPECT_FALSE(st.T1);
    EXPECT_EQ(st.zhu.viewindex, 600);
    EXPECT_EQ(ui.messages, std::vector<std::string>{"没有数据！"});
}

} // namespace

namespace {

TEST_F(Form28Replay, StaffWindowOpensFromItsButtonAndKeepsARowTypedIntoIt) {
    auto* opener = control<QPushButton>("Command23");
    ASSERT_NE(opener, nullptr);
    EXPECT_EQ(opener->text().toStdString(), "人员");
    opener->click();
    auto* form = control<QDialog>("Form5");
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->windowTitle().toStdString(), "工作人员表维护");
    EXPECT_TRUE(form->isModal());
    auto* grid = form->findChild<QTableWidget*>("Grid1");
    ASSERT_EQ(grid->rowCount(), 6);
    EXPECT_EQ(grid->item(0, 1)->text().toStdString(), "姓名");
    auto* number = form->findChild<QLineEdit*>("Tbh");
    auto* save = form->findChild<QPushButton*>("Command2");
    EXPECT_FALSE(number->isEnabled());
    EXPECT_FALSE(save->isEnabled());
    EXPECT_EQ(form->findChild<QPushButton*>("Command3")->toolTip().toStdString(),
              "软件升级时，用于从原有软件中将人员表恢复到新系统中来");
    form->findChild<QPushButton*>("CmdAdd")->click();
    ASSERT_TRUE(number->isEnabled());
    QTest::keyClicks(number, "31");
    QTest::keyClicks(form->findChild<QLineEdit*>("Txm"), "Zhou Ba");
    save->click();
    EXPECT_TRUE(ui.messages.empty());
    ASSERT_EQ(grid->rowCount(), 7);
    EXPECT_EQ(grid->item(6, 1)->text().toStdString(), "Zhou Ba");
    // A click on a row shows it in the boxes and selects it.
    grid->cellClicked(3, 0);
    EXPECT_EQ(form->findChild<QLineEdit*>("Txm")->text().toStdString(), "王强");
    EXPECT_EQ(grid->currentRow(), 3);
    form->findChild<QPushButton*>("CmdCancel")->click();
    EXPECT_TRUE(st.master.name.empty());
    QTRY_VERIFY(!form->isVisible());
}

TEST_F(Form28Replay, TheLineAndDefectChoicesFollowTheirTables) {
    auto* lines = control<QComboBox>("Comboxb");
    ASSERT_NE(lines, nullptr);
    EXPECT_EQ(lines->count(), 4);
    EXPECT_EQ(control<QPushButton>("Commanddywh")->text().toStdString(), "维护");
    EXPECT_EQ(control<QPushButton>("Command35")->text().toStdString(), "维护");
    EXPECT_EQ(control<QPushButton>("Command42")->text().toStdString(), "班组");
    control<QPushButton>("Commanddywh")->click();
    auto* form = control<QDialog>("Form6");
    ASSERT_NE(form, nullptr);
    form->findChild<QPushButton*>("CmdAdd")->click();
    QTest::keyClicks(form->findChild<QLineEdit*>("Tbh"), "9");
    QTest::keyClicks(form->findChild<QLineEdit*>("Tmc"), "Shenda");
    form->findChild<QPushButton*>("Command2")->click();
    form->reject();
    EXPECT_EQ(lines->count(), 5);
    lines->textActivated("Shenda");
    EXPECT_EQ(st.form.Txb, "Shenda");
    EXPECT_EQ(control<QLineEdit>("Txb")->text().toStdString(), "Shenda");
    control<QComboBox>("Combobz")->textActivated("轨底裂纹");
    EXPECT_EQ(st.Textbz, "轨底裂纹");
}

TEST_F(Form28Replay, ADoubleClickOnTheMarksOpensTheirTexts) {
    control<QTableWidget>("Grid1ts")->cellDoubleClicked(0, 0);
    auto* form = control<QDialog>("Form7");
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->findChild<QTableWidget*>("Grid1")->rowCount(), 6);
    EXPECT_EQ(form->findChild<QPushButton*>("CmdAdd"), nullptr);
    form->reject();
}

} // namespace

int main(int argc, char** argv) {
    // Window tests never need a screen; test discovery runs them without the test's environment.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

namespace {

// A key on the picture as the user presses it there.
void key(QWidget* picture, Qt::Key code, Qt::KeyboardModifiers held = Qt::NoModifier) {
    QTest::keyClick(picture, code, held);
}

// A turn of the wheel over the picture: up is back, down is on.
void wheel(QWidget* picture, int delta, Qt::KeyboardModifiers held = Qt::NoModifier) {
    const QPointF at(picture->width() / 2.0, picture->height() / 2.0);
    QWheelEvent turn(at, picture->mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton, held,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(picture, &turn);
}

TEST_F(Form28Replay, KeysOnThePictureMoveTheViewByTheirSteps) {
    QWidget* picture = control<QWidget>("Picture1");
    const int step = st.settings.manualstep, screen = st.settings.viewspan;
    key(picture, Qt::Key_Right);
    EXPECT_EQ(st.zhu.viewindex, 600 + step);
    key(picture, Qt::Key_Left);
    EXPECT_EQ(st.zhu.viewindex, 600);
    key(picture, Qt::Key_PageDown);
    EXPECT_EQ(st.zhu.viewindex, 600 + screen);
    key(picture, Qt::Key_PageUp);
    EXPECT_EQ(st.zhu.viewindex, 600);
    key(picture, Qt::Key_End);
    EXPECT_EQ(st.zhu.viewindex, st.zhu.scrollmax * 300);
    key(picture, Qt::Key_Home);
    EXPECT_EQ(st.zhu.viewindex, 600);
    key(picture, Qt::Key_Space);
    EXPECT_TRUE(control<QTimer>("T1")->isActive());
    key(picture, Qt::Key_Space);
    EXPECT_FALSE(control<QTimer>("T1")->isActive());
    EXPECT_EQ(control<QPushButton>("Command8")->text().toStdString(), "连续播放");
    key(picture, Qt::Key_G, Qt::ControlModifier);
    EXPECT_TRUE(control<QLineEdit>("Text1")->hasFocus() || !window->isActiveWindow());
    st.Picture5visible = true;
    window->refresh();
    key(picture, Qt::Key_Escape);
    EXPECT_FALSE(st.Picture5visible);
    EXPECT_FALSE(control<QWidget>("Picture5")->isVisibleTo(window.get()));
}

TEST_F(Form28Replay, TheWheelStepsShiftTurnsAScreenCtrlExpands) {
    QWidget* picture = control<QWidget>("Picture1");
    const int step = st.settings.manualstep, screen = st.settings.viewspan;
    wheel(picture, -120);
    EXPECT_EQ(st.zhu.viewindex, 600 + step);
    wheel(picture, 120);
    EXPECT_EQ(st.zhu.viewindex, 600);
    wheel(picture, 120);
    EXPECT_EQ(st.zhu.viewindex, 600);
    EXPECT_EQ(ui.messages, std::vector<std::string>{atstartmessage});
    wheel(picture, -120, Qt::ShiftModifier);
    EXPECT_EQ(st.zhu.viewindex, 600 + screen);
    wheel(picture, 120, Qt::ControlModifier);
    EXPECT_EQ(st.settings.viewspan, 600);
    EXPECT_TRUE(control<QRadioButton>("Option8")->isChecked());
    wheel(picture, -120, Qt::ControlModifier);
    EXPECT_EQ(st.settings.viewspan, 1200);
}

TEST_F(Form28Replay, AClickOnTheOverviewGoesThereAndTheStatusBarFollows) {
    window->resize(1366, 768);
    window->show();
    QApplication::processEvents();
    auto* strip = control<OverviewView>("Overview");
    ASSERT_NE(strip, nullptr);
    const QPoint at(strip->width() / 2, strip->height() / 2);
    QTest::mouseClick(strip, Qt::LeftButton, {}, at);
    EXPECT_NEAR(st.zhu.viewindex - st.settings.viewspan / 2, overviewindex(st, strip->tostrip(at.x())), 1);
    EXPECT_EQ(control<QLabel>("Statusplace")->text().toStdString(), statusplace(st));
    EXPECT_EQ(control<QLabel>("Statusfile")->text().toStdString().rfind("small.ktr  (", 0), 0u);
    EXPECT_EQ(control<QLabel>("HScrolljdvalue")->text().toStdString(),
              std::to_string(st.zhu.viewindex / 300) + "/" + std::to_string(st.zhu.scrollmax));
    EXPECT_EQ(control<QLabel>("HScroll8value")->text().toStdString(),
              std::to_string(st.settings.bofsd) + " 档");
    // The picture paints at the widget's own pixels.
    auto* picture = control<PictureView>("Picture1");
    EXPECT_EQ(static_cast<RasterCanvas*>(st.picture1)->image().width(),
              qRound(picture->width() * picture->devicePixelRatioF()));
    window->hide();
}

TEST_F(Form28Replay, TheOpenEntryAndADropLoadAnotherRecordingAfterSavingTheSession) {
    const ktrgen::Recording other = ktrgen::generate(ktrgen::preset("small"), 9);
    const std::string second = writefile("second.ktr", std::string(other.bytes.begin(), other.bytes.end()));
    st.form.Tmc = "李四";
    st.newpoints = 1; // a point of this session: the session is saved before the other opens
    ui.answers = {second};
    control<QAction>("Commandopen")->trigger();
    EXPECT_EQ(st.zhu.filepath, second);
    EXPECT_TRUE(std::any_of(st.written.begin(), st.written.end(),
                            [](const std::string& path) { return path.find("李四") != std::string::npos; }));
    EXPECT_TRUE(window->windowTitle().endsWith("second.ktr"));
    EXPECT_EQ(control<QAction>("Menurecent(0)")->text().toStdString(),
              std::filesystem::absolute(second).lexically_normal().string());

    // The first again, dropped onto the window.
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(temp.file("small.ktr")))});
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &drop);
    EXPECT_EQ(st.zhu.filepath, temp.file("small.ktr"));
    EXPECT_EQ(st.zhu.viewindex, 600);
}

} // namespace

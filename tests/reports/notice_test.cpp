// The printed notice and the pictures going out: the page in twips, the white print and its
// restore, the bitmap of what the user sees, the capture window's hook.
#include "../processing/recordingfixture.h"
#include "amode/amode.h"
#include "reports/notice.h"
#include "reports/printlayer.h"
#include "reports/printout.h"
#include "station/controls.h"

#include <gtest/gtest.h>

using namespace orvane;

namespace {

constexpr std::uint32_t white = rgb(255, 255, 255);

// Keeps every page printed; CLOSES says whether the preview was closed when print returns.
class KeptPrinter : public Printer {
  public:
    std::vector<PrintedPage> pages;
    bool closes = false;
    bool fails = false;
    bool print(const PrintedPage& page) override {
        if (fails) throw std::runtime_error("打印机不可用");
        pages.push_back(page);
        return closes;
    }
};

class FixedScreen : public Screen {
  public:
    std::string bitmap = "BM picture";
    std::string windowbitmap() override { return bitmap; }
};

class Notice : public testkit::RecordingTest {
  protected:
    RecordingCanvas picture3;
    KeptPrinter printer;
    FixedScreen screen;
    void SetUp() override {
        RecordingTest::SetUp();
        st.picture3 = &picture3;
        st.printer = &printer;
        st.screen = &screen;
    }
    const PrintedPage& lastpage() {
        EXPECT_FALSE(printer.pages.empty());
        return printer.pages.back();
    }
    // The text written at (X, Y), or "(none)".
    static std::string textat(const PrintedPage& page, double x, double y) {
        for (const PageOp& op : page.ops)
            if (op.kind == PageOp::Kind::text && op.x == x && op.y == y) return op.text;
        return "(none)";
    }
    static std::vector<const PageOp*> opsof(const PrintedPage& page, PageOp::Kind kind) {
        std::vector<const PageOp*> found;
        for (const PageOp& op : page.ops)
            if (op.kind == kind) found.push_back(&op);
        return found;
    }
    void openamodeatmiddle() {
        st.amodechannel = " ";
        st.pointerx = 600;
        st.clicky = 200;
        openamode(st);
    }
};

TEST_F(Notice, EmptyAnalysisSiteAndAnalystPrintTwelveBlanks) {
    press(st, "Commanddydy");
    const PrintedPage& page = lastpage();
    EXPECT_EQ(textat(page, 2200, 1100), std::string(12, ' '));
    EXPECT_EQ(textat(page, 11000, 1100), std::string(12, ' '));
    // The other values stand as they are, empty ones too.
    EXPECT_EQ(textat(page, 4300, 1100), "");
    EXPECT_EQ(textat(page, 12900, 1100), "");
}

TEST_F(Notice, RightPressAsksForFeedbackAndLeftForReview) {
    mouse(st, "Commanddydy", {"down", "right", 0, 0});
    EXPECT_EQ(st.noticekind, "反馈");
    EXPECT_EQ(textat(lastpage(), 6500, 400), "报警点反馈通知单");
    mouse(st, "Commanddydy", {"down", "left", 0, 0});
    EXPECT_EQ(st.noticekind, "复核");
    EXPECT_EQ(textat(lastpage(), 6500, 400), "报警点复核通知单");
    press(st, "Commanddydy", "right");
    EXPECT_EQ(textat(lastpage(), 6500, 400), "报警点反馈通知单");
}

TEST_F(Notice, TheFieldsStandWithTheirLabelsFontsAndSizes) {
    setcontrol(st, "Tgwd", "哈尔滨");
    setcontrol(st, "Txb", "京哈");
    setcontrol(st, "Tmc", "张三");
    setcontrol(st, "Textdyrq", "2026.11.23");
    press(st, "Commanddydy");
    const PrintedPage& page = lastpage();
    const std::vector<const PageOp*> texts = opsof(page, PageOp::Kind::text);
    struct Expected {
        double x, y, size;
        bool bold;
        std::string text;
    };
    const std::vector<Expected> expected = {
        {6500, 400, 24, false, "报警点复核通知单"},
        {1300, 1100, 12, true, "工务段："},
        {2200, 1100, 12, false, "哈尔滨"},
        {3400, 1100, 12, true, "线别："},
        {4300, 1100, 12, false, "京哈"},
        {5500, 1100, 12, true, "日期："},
        {6400, 1100, 12, false, st.form.labels["Lzyrq"]},
        {8100, 1100, 12, true, "机号："},
        {9000, 1100, 12, false, st.form.labels["Ljqbh"]},
        {10100, 1100, 12, true, "分析人："},
        {11000, 1100, 12, false, "张三"},
        {12000, 1100, 12, true, "分析日："},
        {12900, 1100, 12, false, "2026.11.23"},
        {1300, 1520, 10, false, "B型显示图"},
        {9900, 6950, 10, false, "A型显示"},
        {1300, 7250, 10, false, "探头状态"},
    };
    ASSERT_GE(texts.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(texts[i]->x, expected[i].x) << i;
        EXPECT_EQ(texts[i]->y, expected[i].y) << i;
        EXPECT_EQ(texts[i]->size, expected[i].size) << i;
        EXPECT_EQ(texts[i]->bold, expected[i].bold) << i;
        EXPECT_EQ(texts[i]->text, expected[i].text) << i;
        EXPECT_EQ(texts[i]->font, "Arial") << i;
    }
    EXPECT_FALSE(st.form.labels["Lzyrq"].empty());
}

TEST_F(Notice, PicturesStandInTheirBoxesFramedByFourLines) {
    openamodeatmiddle();
    const std::int32_t column = st.amodecolumn;
    press(st, "Commanddydy");
    const PrintedPage& page = lastpage();
    std::size_t at = 0;
    while (at < page.ops.size() && page.ops[at].kind != PageOp::Kind::picture) ++at;
    ASSERT_LT(at + 4, page.ops.size());
    const PageOp& bmode = page.ops[at];
    EXPECT_EQ(bmode.source, "Picture1");
    EXPECT_EQ(std::tuple(bmode.x, bmode.y, bmode.width, bmode.height),
              std::tuple(1300.0, 1810.0, 14000.0, 4900.0));
    // The picture is what the B-mode canvas shows: its dots, drawn anew for the page.
    int dots = 0;
    for (const DrawOp& op : bmode.picture.ops) dots += op.kind == DrawOp::Kind::pset;
    EXPECT_GT(dots, 0);
    const std::vector<std::array<double, 4>> frame = {{1300, 1810, 15300, 1810},
                                                      {15300, 1810, 15300, 6710},
                                                      {1300, 6710, 15300, 6710},
                                                      {1300, 1810, 1300, 6710}};
    for (std::size_t i = 0; i < 4; ++i) {
        const PageOp& line = page.ops[at + 1 + i];
        ASSERT_EQ(line.kind, PageOp::Kind::line);
        EXPECT_EQ((std::array{line.x, line.y, line.x2, line.y2}), frame[i]) << i;
    }
    const std::vector<const PageOp*> pictures = opsof(page, PageOp::Kind::picture);
    ASSERT_EQ(pictures.size(), 2u);
    const PageOp& amode = *pictures[1];
    EXPECT_EQ(amode.source, "Picture3");
    EXPECT_EQ(std::tuple(amode.x, amode.y, amode.width, amode.height),
              std::tuple(9900.0, 7250.0, 6510.0, 4515.0));
    EXPECT_FALSE(amode.picture.ops.empty());
    EXPECT_EQ(textat(page, 9900, 6950), st.form.captions["Labelaxxs"]);
    // Printing doesn't move the A-mode on.
    EXPECT_EQ(st.amodecolumn, column);
}

TEST_F(Notice, TheTablesHoldTheListsWithRowsOf330AndScaledWidths) {
    press(st, "Commanddydy");
    const PrintedPage& page = lastpage();
    const std::vector<const PageOp*> tables = opsof(page, PageOp::Kind::table);
    ASSERT_EQ(tables.size(), 3u);
    const Table* lists[] = {&st.zhu.Grid1, &st.zhu.Grid2, &st.zhu.Grid3};
    const char* headings[] = {"探头状态", "作业参数", "仪器设置"};
    double y = 7250;
    for (int t = 0; t < 3; ++t) {
        const PageOp& table = *tables[t];
        EXPECT_EQ(textat(page, 1300, y), headings[t]);
        EXPECT_EQ(table.x, 1300);
        EXPECT_EQ(table.y, y + 300);
        EXPECT_EQ(table.rowheight, 330);
        EXPECT_EQ(table.rows, *lists[t]);
        double width = 0;
        for (double w : table.widths) width += w;
        EXPECT_NEAR(width, 8400, 1e-6);
        ASSERT_EQ(table.widths.size(), (*lists[t])[0].size());
        y = table.y + 330 * static_cast<double>(lists[t]->size()) + tablegap;
    }
    // The foot follows the last table: the GPS labels and the speed.
    EXPECT_EQ(textat(page, 1300, y), "GPS数值： " + st.form.labels["Label2_9"] + " " +
                                         st.form.labels["Label2_8"] + "        " +
                                         st.form.labels["Label2_1"]);
}

TEST(NoticeTable, ColumnsShareTheTableByTheRoomTheirTextsNeed) {
    const std::vector<double> widths = listwidths({{"通道号", "增益值", "x"}, {"A前", "-30.0", ""}});
    EXPECT_EQ(widths, (std::vector<double>{8, 8, 3}));
}

TEST_F(Notice, EnglishPrintsReportWithoutTheChineseOnlyFields) {
    st.language = "english";
    press(st, "Commanddydy");
    const PrintedPage& page = lastpage();
    EXPECT_EQ(textat(page, 6500, 400), "Report");
    EXPECT_EQ(textat(page, 5500, 1100), "Date：");
    EXPECT_EQ(textat(page, 8100, 1100), "M/C：");
    EXPECT_EQ(textat(page, 1300, 1520), "B-mode shown");
    EXPECT_EQ(textat(page, 1300, 1100), "(none)");
    EXPECT_EQ(textat(page, 10100, 1100), "(none)");
    EXPECT_EQ(textat(page, 2200, 1100), std::string(12, ' ')); // the value stands without its label
    for (const PageOp& op : page.ops) EXPECT_EQ(op.text.rfind("GPS数值", 0), std::string::npos);
}

TEST_F(Notice, LongFieldsAreCutToTheirRoom) {
    setcontrol(st, "Txb", "滨洲线哈尔滨至满洲里段上行正线");
    setcontrol(st, "Textdyrq", std::string(200, '8'));
    press(st, "Commanddydy");
    const PrintedPage& page = lastpage();
    const std::string line = textat(page, 4300, 1100);
    EXPECT_EQ(line, "滨洲线哈"); // four characters of 240 twips in 1100
    EXPECT_LE(textwidth(line, 12), 1100);
    EXPECT_LE(textwidth(textat(page, 12900, 1100), 12), 15300 - 12900);
    EXPECT_EQ(cliptext("12", 12, 1000), "12");
}

TEST_F(Notice, BeforeAnyAmodeTheAmodeBoxIsEmpty) {
    press(st, "Commanddydy");
    const std::vector<const PageOp*> pictures = opsof(lastpage(), PageOp::Kind::picture);
    ASSERT_EQ(pictures.size(), 2u);
    EXPECT_TRUE(pictures[1]->picture.ops.empty());
    EXPECT_EQ(pictures[1]->picture.backgroundcolor, white);
    EXPECT_TRUE(st.Form25open);
    closeform(st, "Form25");
    EXPECT_FALSE(st.Form25open);
}

TEST_F(Notice, APreviewClosedByTheUserClosesTheNotice) {
    printer.closes = true;
    st.T1 = true;
    press(st, "Command15");
    EXPECT_FALSE(st.Form25open);
    EXPECT_FALSE(st.Frame5visible);
    EXPECT_TRUE(st.T1); // the timers come back with the close
}

TEST_F(Notice, APrinterThatFailsEndsThePrintWithItsReasonAndRestoresTheColours) {
    printer.fails = true;
    const std::uint32_t back = st.settings.color("bxianbackcolor");
    press(st, "Command15", "right");
    ASSERT_FALSE(ui.messages.empty());
    EXPECT_EQ(ui.messages.back(), "通知单未能打印：打印机不可用");
    EXPECT_FALSE(st.Form25open);
    EXPECT_EQ(st.settings.color("bxianbackcolor"), back);
}

TEST_F(Notice, RightPressPrintsWhiteAndTheCloseBringsTheColoursBack) {
    const std::uint32_t back = st.settings.color("bxianbackcolor"), grid = st.settings.color("biaochicolor");
    ASSERT_NE(back, white);
    st.T1 = true;
    st.T2 = false;
    mouse(st, "Command15", {"down", "right", 0, 0});
    EXPECT_FALSE(st.T1);
    EXPECT_EQ(st.settings.color("bxianbackcolor"), white);
    EXPECT_EQ(st.settings.color("biaochicolor"), 0u);
    EXPECT_TRUE(st.Frame5visible);
    EXPECT_TRUE(st.Form25open);
    ASSERT_EQ(printer.pages.size(), 1u);
    EXPECT_EQ(opsof(lastpage(), PageOp::Kind::picture)[0]->picture.backgroundcolor, white);
    EXPECT_EQ(picture1.backgroundcolor, white); // the screen's picture was recoloured too
    closeform(st, "Form25");
    EXPECT_EQ(st.settings.color("bxianbackcolor"), back);
    EXPECT_EQ(st.settings.color("biaochicolor"), grid);
    EXPECT_EQ(picture1.backgroundcolor, back);
    EXPECT_TRUE(st.T1);
    EXPECT_FALSE(st.Frame5visible);
    // The white print lives in memory only: the table keeps the user's colour.
    EXPECT_EQ(st.colordb->scalar("select shuzhi from color where weizhi='bxianbackcolor'").number(), back);
}

TEST_F(Notice, RightPressWithWhiteInForceDoesNothing) {
    st.settings.setcolor("bxianbackcolor", white);
    st.settings.setcolor("biaochicolor", rgb(1, 2, 3));
    st.T1 = true;
    mouse(st, "Command15", {"down", "right", 0, 0});
    EXPECT_TRUE(printer.pages.empty());
    EXPECT_FALSE(st.Form25open);
    EXPECT_FALSE(st.Frame5visible);
    EXPECT_EQ(st.settings.color("biaochicolor"), rgb(1, 2, 3));
    EXPECT_FALSE(st.savedcolors.has_value());
    EXPECT_FALSE(st.T1); // the timers stop on entry, and only Label33 gives them back
}

TEST_F(Notice, InEnglishARightPressPrintsInTheCurrentColours) {
    st.language = "english";
    const std::uint32_t back = st.settings.color("bxianbackcolor");
    mouse(st, "Command15", {"down", "right", 0, 0});
    ASSERT_EQ(printer.pages.size(), 1u);
    EXPECT_EQ(st.settings.color("bxianbackcolor"), back);
    EXPECT_EQ(opsof(lastpage(), PageOp::Kind::picture)[0]->picture.backgroundcolor, back);
}

TEST_F(Notice, ChannelIWhiteIsBlackInTheWhitePrintAndWhiteAgainAfterTheClose) {
    st.settings.setcolor("icolor", white);
    mouse(st, "Command15", {"down", "right", 0, 0});
    EXPECT_EQ(st.settings.channelcolor[8], 0u);
    EXPECT_EQ(st.settings.color("icolor"), 0u);
    press(st, "Label33");
    EXPECT_EQ(st.settings.channelcolor[8], white);
    EXPECT_FALSE(st.Frame5visible);
}

TEST_F(Notice, TheWhitePrintRebuildsTheAmodeBackgroundForOneAndForAllChannels) {
    openamodeatmiddle();
    const std::uint32_t back = st.settings.color("bxianbackcolor");
    mouse(st, "Command15", {"down", "right", 0, 0});
    EXPECT_EQ(picture3.backgroundcolor, white);
    press(st, "Label33");
    EXPECT_EQ(picture3.backgroundcolor, back);

    press(st, "Command8"); // the replay runs; the view of all channels pauses it
    openallchannels(st);
    const std::int32_t column = st.amodecolumn;
    mouse(st, "Command15", {"down", "right", 0, 0});
    EXPECT_EQ(picture3.backgroundcolor, white);
    bool blackgrid = false;
    for (const DrawOp& op : picture3.background) blackgrid |= op.kind == DrawOp::Kind::line && op.color == 0;
    EXPECT_TRUE(blackgrid); // the gate rows in the new biaochicolor
    EXPECT_EQ(st.amodecolumn, column);
    closeform(st, "Form25");
    EXPECT_EQ(picture3.backgroundcolor, back);
}

TEST_F(Notice, PrintOfThePictureShownRefusesDuringAReplay) {
    st.form.captions["Command8"] = "连续播放";
    press(st, "Command8");
    ASSERT_TRUE(st.T1);
    press(st, "adytx");
    EXPECT_EQ(ui.messages.back(), "请暂停播放B显和A显！");
    EXPECT_TRUE(printer.pages.empty());
    press(st, "Command8"); // paused
    press(st, "adytx");
    EXPECT_EQ(printer.pages.size(), 1u);
    EXPECT_TRUE(st.Form25open);
    EXPECT_TRUE(st.Frame5visible);
}

TEST_F(Notice, SavingWhatTheUserSeesWritesTheBitmapUnderTheNameGiven) {
    const std::string path = temp.file("seen.bmp");
    ui.answers = {path};
    press(st, "abctx");
    EXPECT_EQ(testkit::contents(path), "BM picture");
    EXPECT_EQ(st.written.back(), path);
    ui.answers = {""};
    press(st, "abctx");
    ui.answers = {" "};
    press(st, "abctx");
    EXPECT_EQ(st.written.size(), 1u);
    EXPECT_TRUE(ui.messages.empty());
    ui.answers = {temp.file("no/such/folder/seen.bmp")};
    press(st, "abctx");
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].rfind("无法保存图像：" + temp.file("no/such/folder/seen.bmp"), 0), 0u);
}

TEST_F(Notice, TheCaptureRedrawsTheSideWithoutItsReadoutAndOpensTheWindow) {
    int opened = 0;
    st.hooks.capture = [&opened](Station&) { ++opened; };
    st.zhu.Label14 = {true, 10, 10, "12.3km"};
    picture1.ops.clear();
    press(st, "ajt");
    EXPECT_EQ(opened, 1);
    EXPECT_FALSE(st.zhu.Label14.visible);
    EXPECT_EQ(st.zhu.Label14.text, "");
    EXPECT_FALSE(picture1.ops.empty());
}

TEST_F(Notice, TheReverseSettingsEntryOpensTheSettingsTabAndItsCloseHidesThePanel) {
    press(st, "dcxssz");
    EXPECT_TRUE(st.form.Frame3visible);
    EXPECT_EQ(st.form.SSTab1, 4);
    press(st, "Label41");
    EXPECT_FALSE(st.form.Frame3visible);
}

TEST(PrintLayer, AnOperationThatFailsLeavesThePageAsItWas) {
    PrintLayer p;
    EXPECT_THROW(p.text("before"), PrintError);
    p.startdoc();
    p.text("一");
    EXPECT_THROW(p.picture("Picture3", nullptr, 620, 430, 0, 0, 10, 10), PrintError);
    p.starttable();
    p.tablesize(2, 1);
    EXPECT_THROW(p.cell(1, 0, "x"), PrintError);
    EXPECT_THROW(p.columnwidth(2, 10), PrintError);
    p.cell(0, 1, "y");
    p.endtable();
    const PrintedPage& page = p.enddoc();
    ASSERT_EQ(page.ops.size(), 2u);
    EXPECT_EQ(page.ops[1].rows, (std::vector<std::vector<std::string>>{{"", "y"}}));
    EXPECT_THROW(p.endtable(), PrintError);
}

} // namespace

#pragma once
// The station: the two sides of the session, the shared scalars, the state of the main
// window Form28, the settings in force and the ports to the outside world.
#include "station/canvas.h"
#include "station/controls.h"
#include "station/grids.h"
#include "station/lists.h"
#include "station/ports.h"
#include "station/settings.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvane {

// The cells of a grid control of the window, row 0 holding the heads.
using Table = std::vector<std::vector<std::string>>;

// Writes a cell that the table has; a cell outside it is left, as a grid with fewer columns has none.
void setcell(Table& table, std::size_t row, std::size_t column, const std::string& text);

// A line shape laid over a picture, in the picture's own scale.
struct LineShape {
    bool visible = false;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    std::uint32_t color = 0;
};

// Everything that has a comparison twin. The station holds two: zhu (main) and cong (comparison).
// The comparison side's lists have the same bounds; its raw grid keeps only ten columns.
struct Side {
    explicit Side(bool main);

    bool main; // zhu, or else cong; fixed by the constructor (not const, so a station can start afresh)
    // The highest row the side's grids may have. The comparison side's grids are the comparison store,
    // whose bound the filter or the comparison sets, whichever makes the store first.
    std::int64_t gridlast;

    std::string filepath;
    std::int32_t segmentbase = 0;
    std::int32_t lastposition = 0;
    std::int16_t abortflag = 0;

    // Event lists with their counters; each ends with a sentinel behind its count after a load.
    EventList<std::string> gpstext;
    EventList<std::int32_t> gpspos;
    std::int32_t gpscount = 0;
    EventList<bool> suppressionon; // main side only
    EventList<std::string> jobrec;
    EventList<std::int32_t> jobpos;
    std::int32_t jobcount = 0;
    EventList<std::string> paramrec;
    EventList<std::int32_t> parampos;
    std::int32_t paramcount = 0;
    EventList<std::string> marktext;
    EventList<std::int32_t> markpos;
    std::int32_t markcount = 0;
    EventList<std::string> sampleclock;
    EventList<std::int32_t> samplepos;
    EventList<float> samplespeed;
    EventList<std::string> speedhex; // main side only
    std::int32_t samplecount = 0;
    EventList<std::int32_t> fepos;
    EventList<std::int16_t> feval;
    std::int32_t fecount = 0;
    EventList<std::int32_t> fdpos; // main side only
    EventList<std::int16_t> fdval;
    std::int32_t fdcount = 0;
    EventList<std::int32_t> stoplist;
    std::int32_t stopcount = 0;
    EventList<std::int32_t> quarterindex;
    std::int32_t quartercount = 0;
    std::int32_t quarterlast = 0;

    // Per channel, from the parameter record in force.
    std::array<std::string, 9> channelkind{};
    std::array<std::int16_t, 9> channelscale{};
    std::array<std::int16_t, 9> pinkongval{};
    // The words of channels A to H when the alignment window opened on this side.
    std::array<std::int16_t, 8> pinkongbase{};
    std::int16_t foldvalue = 0;
    // Rail weight text "43", "50", "60" or "75" of the parameter record in force.
    std::string railcode;

    // The panels of the side: channels and gains (Grid1), the job in force (Grid2), switches (Grid3).
    Table Grid1, Grid2, Grid3;

    // Result tables of the analysis, sized by the walk: 0..samplecount + jobcount and 0..10000.
    std::vector<std::int32_t> seglist;
    std::vector<std::int32_t> stopflag;

    // The range of the replay scroll bar HScrolljd: 0 to Int(lastposition / 300).
    std::int32_t scrollmax = 0;

    // Per position: the scaled value of columns 0..12, the raw value byte, the kilometre.
    static constexpr int gridcolumns = 13;
    Grid<std::int16_t, gridcolumns> samplegrid;
    Grid<std::uint8_t, gridcolumns> rawgrid; // the comparison side uses columns 0..9
    Grid<float, 1> mileage;
    // Positions of channel I where the bottom echo is lost longer than the loss limit; there the raw
    // value of column 8 reads as the loss sign.
    std::vector<bool> lossmark;

    // The raw value of a cell, with the loss sign in column 8 where it stands.
    std::int32_t rawvalue(std::int64_t position, int column) const {
        if (column == 8 && position < static_cast<std::int64_t>(lossmark.size()) && lossmark[position])
            return losssign;
        return rawgrid[position][column];
    }
    static constexpr std::int32_t losssign = 65531;

    // The replay's second axis: viewmap turns a view index into a position (viewmap twin: viewmapdb).
    std::vector<std::int32_t> viewmap;
    std::int32_t viewindex = 600; // view index at the right edge of the picture
    std::int32_t viewlength = 0;
    std::vector<std::uint8_t> markflags; // 1 where the clip map joined two stretches
    std::int32_t jobcursor = 0, paramcursor = 0, markcursor = 0, samplecursor = 0;
    // The start and end markers of a stretch, set on this side's picture: the x of the press, the
    // position at the view's edge then, and the position under the marker.
    std::int32_t startx = 0, startpos = 0, startdist = 0;
    std::int32_t endx = 0, endpos = 0, enddist = 0;
    // The rail rows of the picture and its user scale (layout).
    std::int32_t railheadrow = 96, railwebrow = 210, railfootrow = 370;
    double scaletop = 0, scaleheight = 410;
    // The left of the depth ruler Lineyz/Labelyz beside the picture; the user may drag it across.
    double rulerx0 = 1165;

    // The A-mode marker Lineyz(21) over this side's picture (Lineyzdb(21) on the comparison side), and
    // Lineyz(22), left where the first end of a measurement stands.
    LineShape amodemarker;
    LineShape measuremark;
    // The floating read-out of the pointer, Label14 (Label14db on the comparison side).
    struct Readout {
        bool visible = false;
        double left = 0, top = 0;
        std::string text;
        // Its values, for the status bar: the kilometre, the depth (-1: none) and the row under it.
        double km = 0, depth = -1;
        std::int32_t row = 0;
    } Label14;

    // Reads that may fall outside the map or the grid see the empty position and empty cells.
    std::int32_t mapat(std::int64_t k) const {
        return k >= 0 && k < static_cast<std::int64_t>(viewmap.size()) ? viewmap[k] : lastposition + 1;
    }
    std::int16_t cellat(std::int64_t position, int column) const {
        return position >= 0 && position < gridrows ? samplegrid[position][column] : 0;
    }
    float mileageat(std::int64_t position) const {
        return position >= 0 && position < gridrows ? mileage[position][0] : 0.0f;
    }
    std::uint8_t rawat(std::int64_t position, int column) const {
        return position >= 0 && position < gridrows ? rawgrid[position][column] : 0;
    }

    // Makes the grids reach POSITION; false when that is past the side's bound.
    bool reachgrids(std::int64_t position) {
        return position < gridrows && position >= 0 ? true : growgrids(position);
    }
    std::int64_t gridrows = 0; // rows the grids have now

  private:
    bool growgrids(std::int64_t position);

  public:
};

// The strip of the whole run under the picture: the main side's view indices in columns, each with
// the echoes of its three groups of channels and the events that fall in it.
struct Overview {
    enum Event : std::uint8_t {
        mark = 1,      // an operator's or a table mark, a mileage check
        turnout = 2,   // a turnout number
        restart = 4,   // a segment restart
        reversal = 8,  // a stop where the walk turned
        loss = 16,     // a loss of the bottom echo longer than the loss limit begins
        filterhit = 32 // a hit of the filter
    };
    std::int64_t length = 0; // view indices of the run
    int columns = 0;
    // Per column: echoes of the 0°, 37° and 70° channels, the events, the kilometre at its start.
    std::vector<std::array<std::uint32_t, 3>> echoes;
    std::vector<std::uint8_t> events;
    std::vector<float> km;
    std::uint64_t signature = 0; // of what it was built from; a change builds it again
    bool held = false;           // the left button holds the strip: a move goes there too
};

// The controls of Form28 whose values a rule reads or writes, under their control names.
struct Form28State {
    std::string caption;             // the window's caption
    std::int64_t filesize = -1;      // bytes of the open recording, for the status bar (-1: unknown)
    std::vector<std::string> recent; // the recordings opened last, newest first
    std::string Tmc;                 // the analyst's name box
    std::string Label20hint;         // the hint of the kilometre seek
    bool pb1visible = false;         // progress bar of the walk
    double pb1max = 0;
    long pb1value = 0;
    bool lts1visible = false; // the label beside the bar
    std::string lts1 = "正在导入，请稍候。。。";
    bool mainviewenabled = false; // replay buttons, channel check boxes and colour labels
    bool comparisonvisible = false;
    // The channel check boxes Check1..Check7, Check16, Check17 (channels A to I): ticked shows.
    std::array<bool, 9> channelshown{true, true, true, true, true, true, true, true, true};
    // Check8 "All" is ticked while every channel shows.
    bool allchannelsshown() const {
        for (bool on : channelshown)
            if (!on) return false;
        return true;
    }
    bool auxlines = false; // Option11 "显示" of the auxiliary lines; Option10 hides them
    // The reverse sign of the picture: the shape Shape1 and the label Label6 over the last reverse text.
    struct Placed {
        bool visible = false;
        double left = 0, top = 0;
    };
    Placed Shape1, Label6;
    bool azdenabled = false;   // the end marker once a start is set
    bool azddbenabled = false; // the same on the comparison picture
    bool accenabled = false;   // saving the stretch once both are set
    // The filter boxes Ttda..Ttdi (channels A..I) and their check boxes Check9..Check15, Check18, Check19.
    std::array<std::string, 9> filtertext{"256", "256", "256", "256", "1", "256", "256", "256", "256"};
    std::array<bool, 9> filterchecked{true, true, true, true, true, true, true, true, true};
    // A filter box is disabled while its check box is unticked.
    std::array<bool, 9> filterenabled{true, true, true, true, true, true, true, true, true};
    // The fields of the printed notice: 工务段, 线别, 分析日; the analyst's name stands in Tmc.
    std::string Tgwd, Txb, Textdyrq;
    // The box of the mark search on the list of marks, hidden once a recording has loaded.
    std::string Text3;
    bool Text3visible = true;
    // The popup menu that a press on a picture asks the window to show ("a13"), until it shows it.
    std::string popup;
    // Captions that carry state or language, by control name.
    std::map<std::string, std::string> captions;
    // Texts of the labels that show the job summary (Lzygk, Lzyrq, ...) and of the label array Label2,
    // whose elements stand as "Label2_1", "Label2_8", "Label2_9".
    std::map<std::string, std::string> labels;
    std::vector<std::string> lines;       // the combo box of lines
    std::vector<std::string> defects;     // the combo box of defects
    std::vector<std::string> filtercombo; // the combo box of the filter list
    // The list of hits of the filter, under its heads; "取消过滤" is enabled while a filter stands.
    Table Grid1bj{{"序号", "报警通道", "里程"}};
    bool Command14enabled = false;
    // "详细" of the comparison: shown once a comparison opened, disabled once it closed.
    bool Command20visible = false;
    bool Command20enabled = true;
    // The comparison's job heading over its picture.
    std::string Lzygkdb;
    // The list of the analyst's points under the choice of Combo3 (an entry of f1to8, or "全部").
    Table grid1bz{{"序号", "标注", "里程", "时间"}};
    std::string Combo3 = "全部";
    // The side panel Frame3 and the tab its SSTab1 shows: 0 过滤, 1 标记点, 2 积分值, 3 交接, 4 设置,
    // 5 概况, 6 标注.
    bool Frame3visible = false;
    int SSTab1 = 0;
    // The lists of the analysis index: marks, integral values, handovers.
    Table Grid1ts{{"序号", "标记属性", "里程", "速度"}};
    Table Grid1jf{{"里程(km)", "A", "B", "C", "D", "E", "F", "G", "H", "I"}};
    Table Grid1ry{{"执机人", "里程", "时间"}};
    // The mark filter boxes: 标记0 to 标记4, 道 岔, 公里校对.
    std::array<bool, 7> Checkts{true, true, true, true, true, true, true};
    // Counts up whenever a long list is rebuilt, so that a window redraws those lists only then.
    std::uint64_t listrevision = 0;
};

// How the process stands: the window may ask to end it; the program then exits with this status.
struct ProcessState {
    bool ended = false;
    int exitstatus = 0;
};

struct Station {
    // Fixed mode strings, set by entry.
    std::string language = "china";
    std::string displaymode = "zuhe";
    std::string buildvariant = "haerbin";
    std::string tarvikmode = "feitarvik";

    Side zhu{true};
    Side cong{false};
    std::string playside = "zhu";

    // Shared scalars of the window.
    std::string scratchpath = "deng";
    std::string railoverride = "75";
    std::int16_t markstate = 1;
    std::string sessionstart; // "hhmmss" when the window loaded
    int instancecount = 0;
    std::int32_t baseoffset = 800;
    std::int32_t restartcount = 0;
    std::int16_t analystcount = 0;
    std::int16_t pinkonghit = 0;
    std::string subwayflag = "feibeijingditie";
    std::string bureauflag = "feibjj";
    bool activated = false;       // first activation has run
    std::string previousrailcode; // rail code of the view before; a change redraws the rail

    // From the job records of the main recording.
    std::string trackside;      // "左手" or "右手"
    std::string countdirection; // "+" or "-"
    std::string resetmodetext;  // "复位模式:" and byte 121
    std::string machineno;      // instrument number, trimmed
    std::string jobcaption;     // "机号:" and the number
    std::string jobdatetext;    // yy.mm.dd.hh
    std::string meanspeed;      // mean walking speed text of the job summary
    std::string analystname;    // "分析员：" and the name of the 0x59 record, or empty

    // Earlier analysis found in the main recording: marks (0x44) and sessions (0x58).
    std::vector<std::string> analysislist = std::vector<std::string>(1001);
    std::vector<std::int32_t> analysispos = std::vector<std::int32_t>(1001);
    std::int16_t analysiscount = 0;
    std::int16_t newpoints = 0; // marks of the running session, behind analysiscount
    std::vector<std::string> analystlist = std::vector<std::string>(1001);

    // Constants of the picture, set when the window loads.
    std::array<double, 9> geometry{};
    double cos18 = 0, sin18 = 0, cos70 = 0, sin60 = 0, quarter = 0;
    // Bottom echo of rail codes 1 to 4 (element 0 unused), set at first activation.
    std::array<float, 5> railheight{};

    std::string folder; // the station folder

    Settings settings;
    Form28State form;
    ProcessState process;

    // The three open databases.
    std::unique_ptr<Db> gpsxdb;
    std::unique_ptr<Db> colordb;
    std::unique_ptr<Db> yqhbzdb;

    // Replay of the main view.
    std::int16_t direction = 1; // 1 forward, -1 back
    std::int32_t framecount = 0;
    bool T1 = false, T2 = false; // the replay timer and the A-mode timer
    int T1interval = 15;         // ms
    std::int16_t replaystep = 2; // view indices per tick
    bool asynchronous = false;   // Option13 "异步"; Option12 "同步" keeps both sides in step
    std::string Text1;           // the kilometre to seek on the main side
    std::string Text2;           // and on the comparison side
    std::vector<std::int32_t> seekhits = std::vector<std::int32_t>(101);
    std::int16_t seekcount = 0, seekat = 0;
    // The ends of the stretch to save, as the last markers set them, and the file it went to.
    std::int32_t clipstart = 0, clipend = 0;
    std::string cliptarget;
    // The analyst's last menu entry of f1to8 (1 to 8), and the points the list grid1bz shows.
    std::int16_t markcode = 0;
    std::vector<std::int32_t> pointlistpos;
    std::vector<std::string> pointlisttext;
    // The positions of the rows of Grid1ts and Grid1ry (row r at element r - 1); a rebuild overwrites
    // them in place and leaves their old tails.
    std::vector<std::int32_t> markrowpos = std::vector<std::int32_t>(10001);
    std::vector<std::int32_t> handoverrowpos = std::vector<std::int32_t>(10001);
    // The overspeed count of the last speed report.
    std::int32_t overspeedcount = 0;

    // The curve windows: the gain curve Form29, the doors from it to the integral curve Form8 and the
    // speed curve Form9, and the replay log Form4.
    struct Curves {
        bool Form29open = false, Form8open = false, Form9open = false, Form4open = false;
        double curveend = 0;    // lastposition, frozen when Form29 opens
        double curvemargin = 0; // 8 % of it, split on both sides of the run
        std::int16_t curvechannel = 0;
        std::uint32_t curvecolor = 0;
        // Label14 of each curve window: the read-out under the pointer.
        Side::Readout gainreadout, integralreadout, speedreadout;
        std::string Text1; // Form8: the value below which 筛选 lists the places
        // Form9: the first sample of the page (HScrolljd), the page's margin, the mileages of its first
        // and last sample (Label2, Label3) and the colours of the marks 0 to 4.
        std::int32_t speedfirst = 0;
        double speedmargin = 0;
        std::string speedfrom, speedto;
        std::array<std::uint32_t, 5> markcolor{};
        Table replaylog{{"日期", "开始时间", "结束时间", "分析时长"}}; // Form4.Grid1ts
    } curves;
    // The GPS track on picturegj: per element of gpstext the fix in a linear unit, its running number
    // (0 without fix), its position and its place on the canvas; one element more than trackcount,
    // which stays 0.
    struct Track {
        std::vector<double> tracklon, tracklat, trackfix, trackpos, trackx, tracky;
        std::int32_t trackcount = 0, trackvalid = 0, trackcursor = 0;
        bool visible = false;            // picturegj shown
        bool big = false;                // the big canvas (Command30) or the small one
        bool Timer1 = false;             // Shape6 follows the replay
        double Shape6x = 0, Shape6y = 0; // the present place on the canvas
    } track;
    // Every file the station wrote, in order.
    std::vector<std::string> written;
    std::string markerkind;
    double pointerx = 0; // x of the last press on the picture
    // The pointer on a picture: a release acts only after a press that found the replay paused.
    std::int32_t dragarmed = 0;
    std::int32_t pressx = 0;
    std::int16_t oblique70 = 0; // the menu entry ax70 "斜70度坐标" ticked
    // The distance measurement with the cursor assembly: the first end (-1 while none is open), the
    // second end, and the grip while it is dragged.
    std::int32_t measurestart = -1, measureend = 0;
    std::int16_t measuregrip = 0;
    std::int32_t gripx = 0, gripy = 0;

    // The A-mode picture Picture3 on the panel Picture5: the channel ("A".."I", or " " for the choice by
    // the pointer) and the side it shows, the scan column and its limits, the cursor when it opened.
    std::string amodechannel = " ";
    std::string amodeside = "zhu";
    std::int16_t allchannelview = 0; // -1 while the view of all channels runs
    std::int32_t amodecolumn = 0, amodefirst = 0, amodelast = 0;
    std::int32_t cursorx = 0, cursorcolumn = 0, cursorposition = 0;
    std::int32_t paramindex = 0;
    std::array<std::int16_t, 6> gatevalues{}; // gate 1, 2, 3 start and end on the time base
    std::array<std::int16_t, 841> tracebuffer{};
    std::int32_t echox = 0, latex = 0; // the echo and the late echo of the last frame
    std::int32_t scrollheld = 0;       // 1 while HScroll9 holds the focus
    std::int32_t clicky = 0;           // y of the last plain click on a picture
    std::int16_t amodespeed = 6;       // HScroll1, 1 to 9
    int T2interval = 30;               // ms
    bool Picture5visible = false;
    // The enlarged view Picture9 over the picture, the defect note typed into Textbz with its offsets,
    // and the magnifier Form10 with its factor.
    bool Picture9visible = false;
    std::string Textbz;
    std::int32_t HScroll2 = 0, VScroll1 = 0;
    bool Form10open = false;
    double magnifierfactor = 1.5;
    std::string Form10caption = "放大镜";
    // The pictures going out. noticekind names the notice ("复核" or "反馈"); the print panel Frame5 and
    // the notice Form25 stand open between a print and Label33; the colours and timers in force before
    // a print are kept until Label33 gives them back (nothing is kept before the first print).
    std::string noticekind;
    bool Frame5visible = false;
    bool Form25open = false;
    struct SavedColors {
        std::uint32_t back = 0, grid = 0, channel8 = 0;
    };
    std::optional<SavedColors> savedcolors;
    std::optional<std::pair<bool, bool>> savedtimers; // T1, T2
    // Label10, the result of a measurement, and the seek controls it stands over.
    bool Label10visible = false;
    bool seekshown = true; // Label20 and Text1

    // The alignment window Formpk2, while it is open on one side (Command3 main, Command18 comparison).
    struct Alignment {
        bool open = false;
        bool comparison = false;    // opened by Command18 for the comparison side
        std::int16_t savedstep = 0; // replaystep before the opening
    } alignment;
    std::array<std::int16_t, 9> pinkongkeep{}; // the words put aside by the mode "精确"

    // The maintenance window of a table that stands open over Form28 (Form5 staff, Form6 lines, Form11
    // defects, Form2 instruments, Form7 mark texts); at most one, as each is modal. Grid1 holds the heads
    // and the rows of the table; row is the row under the cursor (0: none); adding is set by 增加 until
    // the new row is saved, and only then can the number be typed.
    struct MasterForm {
        std::string name;
        Table Grid1;
        int row = 0;
        std::map<std::string, std::string> boxes;
        bool adding = false;
        std::uint64_t revision = 0;
    } master;

    // The filter: whether its backup in the comparison store is valid, the store itself ("no" until
    // the filter or a comparison makes it), the events of long runs and the hits they cluster into.
    std::int16_t filteractive = 0;
    std::string comparisonstore = "no";
    std::vector<std::int16_t> eventchannel;
    std::vector<std::int32_t> eventpos;
    std::int32_t eventcount = 0;
    std::array<std::int16_t, 9> channelcount{};
    std::vector<std::string> hitchannel;
    std::vector<std::int32_t> hitpos;
    std::int32_t hitcount = 0;
    // The comparison: set at every press of its button; the display mode before it opened.
    std::int16_t layoutchanged = 0;
    std::string savedmode;
    Overview overview;

    // Ports.
    Ui* ui = nullptr;
    Canvas* picture1 = nullptr; // the B-mode picture of the main side
    Canvas* picture6 = nullptr; // the B-mode picture of the comparison side
    Canvas* picture9 = nullptr; // the enlargement
    Canvas* picture3 = nullptr; // the A-mode picture
    // The canvases of the other windows by their qualified names ("Form29.Picture1", "picturegj").
    std::map<std::string, Canvas*> canvases;
    Clock* clock = nullptr;
    Workbooks* workbooks = nullptr; // none: a report is made and handed to nobody
    Printer* printer = nullptr;     // none: a notice is made and printed nowhere
    Screen* screen = nullptr;       // none: nothing of the screen can be saved

    // How many processes run this program; the second-instance check asks it.
    std::function<int()> countinstances;
    // Every control of every window, registered by the subsystem that owns it.
    ControlTable controls;
    // Routines of an upper subsystem that a lower one calls, filled by the upper one when the station
    // is assembled, so that includes run only downward.
    struct Hooks {
        std::function<void(Station&, Side&)> rebuildmap; // the view map of a side after its walk
        std::function<void(Station&, Side&)> bofang;     // a side drawn anew at its view
        std::function<void(Station&)> redrawrail;        // scale and rail anew for a new rail code
        std::function<void(Station&)> zoom;              // the enlarged view anew while it shows
        std::function<void(Station&)> capture;           // the capture window over the screen, modal
    } hooks;
};

// Whether the station speaks its English text set.
inline bool english(const Station& st) {
    return st.language == "english";
}

// Whether a comparison is open: the button that opens it then reads "关闭对比" ("Single").
inline bool comparisonopen(const Station& st) {
    const auto it = st.form.captions.find("Command17");
    return it != st.form.captions.end() && (it->second == "关闭对比" || it->second == "Single");
}

// A text box whose text is the field FIELD of the window's state.
Control formtext(const std::string& name, std::string Form28State::*field);

// The maximum of the replay scroll bar for LENGTH view indices: 300 view indices a step.
inline int scrollmaximum(std::int64_t length) {
    return static_cast<int>(length / 300);
}

// The B-mode picture of a side: Picture1 of the main side, Picture6 of the comparison.
inline Canvas* pictureof(Station& st, const Side& side) {
    return side.main ? st.picture1 : st.picture6;
}

} // namespace orvane

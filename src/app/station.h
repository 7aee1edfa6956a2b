#pragma once
// The station: the two sides of the session, the shared scalars, the state of the main
// window Form28, the settings in force and the ports to the outside world.
#include "app/grids.h"
#include "app/ports.h"
#include "app/settings.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace orvane {

// Everything that has a comparison twin. The station holds two: zhu (main) and cong (comparison).
// The comparison side's lists have the same bounds; its raw grid keeps only ten columns.
struct Side {
    explicit Side(bool main);

    const bool main;       // zhu, or else cong
    std::int64_t gridlast; // the highest row the side's grids may have

    std::string filepath;
    std::int32_t segmentbase = 0;
    std::int32_t lastposition = 0;
    std::int16_t abortflag = 0;

    // Event lists with their counters; each ends with a sentinel behind its count after a load.
    std::vector<std::string> gpstext;
    std::vector<std::int32_t> gpspos;
    std::int32_t gpscount = 0;
    std::vector<bool> suppressionon; // main side only
    std::vector<std::string> jobrec;
    std::vector<std::int32_t> jobpos;
    std::int32_t jobcount = 0;
    std::vector<std::string> paramrec;
    std::vector<std::int32_t> parampos;
    std::int32_t paramcount = 0;
    std::vector<std::string> marktext;
    std::vector<std::int32_t> markpos;
    std::int32_t markcount = 0;
    std::vector<std::string> sampleclock;
    std::vector<std::int32_t> samplepos;
    std::vector<float> samplespeed;
    std::vector<std::string> speedhex; // main side only
    std::int32_t samplecount = 0;
    std::vector<std::int32_t> fepos;
    std::vector<std::int16_t> feval;
    std::int32_t fecount = 0;
    std::vector<std::int32_t> fdpos; // main side only
    std::vector<std::int16_t> fdval;
    std::int32_t fdcount = 0;
    std::vector<std::int32_t> stoplist;
    std::int32_t stopcount = 0;
    std::vector<std::int32_t> quarterindex;
    std::int32_t quartercount = 0;
    std::int32_t quarterlast = 0;

    // Per channel, from the parameter record in force.
    std::array<std::string, 9> channelkind{};
    std::array<std::int16_t, 9> channelscale{};
    std::array<std::int16_t, 9> pinkongval{};
    std::int16_t foldvalue = 0;

    // The range of the replay scroll bar HScrolljd: 0 to Int(lastposition / 300).
    std::int32_t scrollmax = 0;

    // Per position: the scaled value of columns 0..12, the raw value byte, the kilometre.
    Grid<std::int16_t, 13> samplegrid;
    Grid<std::uint8_t, 13> rawgrid; // the comparison side uses columns 0..9
    Grid<float, 1> mileage;

    // Makes the grids reach POSITION; false when that is past the side's bound.
    bool reachgrids(std::int64_t position) {
        return position < gridrows && position >= 0 ? true : growgrids(position);
    }
    std::int64_t gridrows = 0; // rows the grids have now

  private:
    bool growgrids(std::int64_t position);

  public:
};

// The controls of Form28 whose values a rule reads or writes, under their control names.
struct Form28State {
    std::string caption;     // the window's caption
    std::string Tmc;         // the analyst's name box
    std::string Label20hint; // the hint of the kilometre seek
    bool pb1visible = false; // progress bar of the walk
    double pb1max = 0;
    long pb1value = 0;
    bool lts1visible = false; // the label beside the bar
    std::string lts1 = "正在导入，请稍候。。。";
    bool mainviewenabled = false; // replay buttons, channel check boxes and colour labels
    bool comparisonvisible = false;
    // The filter boxes Ttda..Ttdi (channels A..I) and their check boxes Check9..Check15, Check18, Check19.
    std::array<std::string, 9> filtertext{"256", "256", "256", "256", "1", "256", "256", "256", "256"};
    std::array<bool, 9> filterchecked{};
    // Captions that carry state or language, by control name.
    std::map<std::string, std::string> captions;
    std::vector<std::string> lines;       // the combo box of lines
    std::vector<std::string> defects;     // the combo box of defects
    std::vector<std::string> filtercombo; // the combo box of the filter list
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
    bool activated = false; // first activation has run

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

    // Ports.
    Ui* ui = nullptr;
    Clock* clock = nullptr;

    // How many processes run this program; the second-instance check asks it.
    std::function<int()> countinstances;
};

} // namespace orvane

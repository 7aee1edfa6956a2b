#pragma once
// What a synthetic recording shall hold: the rail walked, the defects on it, the work of the
// operator. A scenario starts from a preset and is changed by options or a scenario file.
#include <cstdint>
#include <string>
#include <vector>

namespace ktrgen {

// A stretch of rail of one weight, from a distance in metres from the start.
struct RailStretch {
    double from = 0;
    int weight = 60; // 43, 50, 60 or 75
};

// A defect at a distance in metres from the start: "head" (head transverse crack), "bolthole"
// (crack from a bolt hole, placed at the nearest joint) or "web" (web split).
struct Defect {
    std::string kind;
    double at = 0;
};

struct Scenario {
    std::string preset = "demo";
    double lengthkm = 2.0;
    double startkm = 12.3;
    bool countup = true;      // kilometres grow along the walk
    double jointspacing = 25; // metres between joints: 12.5 or 25
    double weldspacing = 180; // mean metres between welds
    std::vector<RailStretch> rails{{0, 60}};
    std::vector<Defect> defects;
    int restarts = 1;
    int reversals = 2;
    double minspeed = 2.0; // km/h
    double maxspeed = 4.0;
    int starthour = 8, startminute = 30;
    std::string instrument = "51207";
    int year = 26, month = 11, day = 22;
    bool details = true; // marks, turnouts, suppression stretch, GPS gap: the demo's whole feature set
};

// The preset of that name; throws std::invalid_argument for an unknown one.
Scenario preset(const std::string& name);

// Changes one field by its option name ("length-km", "start-km", "count", "joint", "rail", "defect",
// "restarts", "reversals", "speed", "instrument"); throws std::invalid_argument with the reason.
void setoption(Scenario& s, const std::string& name, const std::string& value);

// Reads "name = value" lines of a scenario file ("#" starts a comment) into S.
void readscenario(Scenario& s, const std::string& path);

// Throws std::invalid_argument when the scenario cannot make a recording the station can load.
void validate(const Scenario& s);

// Positions of one wheel step: 3.5 mm.
inline constexpr double metresperposition = 0.0035;

} // namespace ktrgen

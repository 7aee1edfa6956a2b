#include "scenario.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <stdexcept>

namespace ktrgen {

namespace {

double number(const std::string& name, const std::string& text) {
    double v = 0;
    const char* end = text.data() + text.size();
    auto [ptr, ec] = std::from_chars(text.data(), end, v);
    if (ec != std::errc() || ptr != end) throw std::invalid_argument(name + ": not a number: " + text);
    return v;
}

std::string trim(const std::string& s) {
    const auto a = s.find_first_not_of(" \t\r");
    if (a == std::string::npos) return {};
    return s.substr(a, s.find_last_not_of(" \t\r") - a + 1);
}

} // namespace

Scenario preset(const std::string& name) {
    Scenario s;
    s.preset = name;
    if (name == "demo") {
        s.rails = {{0, 60}, {1400, 50}};
        s.defects = {{"head", 430}, {"bolthole", 760}, {"web", 1210}, {"head", 1650}};
    } else if (name == "small") {
        s.lengthkm = 0.2;
        s.restarts = 1;
        s.reversals = 1;
        s.defects = {{"head", 80}, {"bolthole", 150}};
    } else if (name == "large") {
        // About 6.3 million positions: 22 km of 3.5 mm steps, below the station's limit.
        s.lengthkm = 22.0;
        s.startkm = 208.0;
        s.countup = false;
        s.restarts = 2;
        s.reversals = 6;
        s.rails = {{0, 60}, {7000, 75}, {15000, 50}};
        for (int k = 0; k < 22; ++k)
            s.defects.push_back({k % 3 == 0 ? "head" : k % 3 == 1 ? "bolthole" : "web", 700.0 + 1000.0 * k});
    } else {
        throw std::invalid_argument("unknown preset: " + name + " (demo, small or large)");
    }
    return s;
}

void setoption(Scenario& s, const std::string& name, const std::string& value) {
    if (name == "length-km") {
        s.lengthkm = number(name, value);
    } else if (name == "start-km") {
        s.startkm = number(name, value);
    } else if (name == "count") {
        if (value != "up" && value != "down") throw std::invalid_argument("count: up or down, not " + value);
        s.countup = value == "up";
    } else if (name == "joint") {
        s.jointspacing = number(name, value);
    } else if (name == "rail") {
        // FROM:WEIGHT,FROM:WEIGHT,... with FROM in metres
        s.rails.clear();
        std::size_t at = 0;
        while (at <= value.size()) {
            const std::size_t comma = std::min(value.find(',', at), value.size());
            const std::string item = value.substr(at, comma - at);
            const std::size_t colon = item.find(':');
            if (colon == std::string::npos)
                throw std::invalid_argument("rail: FROM:WEIGHT expected, not " + item);
            s.rails.push_back({number(name, item.substr(0, colon)),
                               static_cast<int>(number(name, item.substr(colon + 1)))});
            at = comma + 1;
        }
    } else if (name == "defect") {
        // KIND@METRES
        const std::size_t a = value.find('@');
        if (a == std::string::npos) throw std::invalid_argument("defect: KIND@METRES expected, not " + value);
        s.defects.push_back({value.substr(0, a), number(name, value.substr(a + 1))});
    } else if (name == "restarts") {
        s.restarts = static_cast<int>(number(name, value));
    } else if (name == "reversals") {
        s.reversals = static_cast<int>(number(name, value));
    } else if (name == "speed") {
        const std::size_t colon = value.find(':');
        if (colon == std::string::npos) throw std::invalid_argument("speed: MIN:MAX expected, not " + value);
        s.minspeed = number(name, value.substr(0, colon));
        s.maxspeed = number(name, value.substr(colon + 1));
    } else if (name == "instrument") {
        s.instrument = value;
    } else {
        throw std::invalid_argument("unknown option: " + name);
    }
}

void readscenario(Scenario& s, const std::string& path) {
    std::ifstream in(path);
    if (!in) throw std::invalid_argument("cannot read scenario file: " + path);
    std::string line;
    int n = 0;
    while (std::getline(in, line)) {
        ++n;
        line = trim(line.substr(0, line.find('#')));
        if (line.empty()) continue;
        const std::size_t eq = line.find('=');
        if (eq == std::string::npos)
            throw std::invalid_argument(path + ":" + std::to_string(n) + ": name = value expected");
        const std::string name = trim(line.substr(0, eq)), value = trim(line.substr(eq + 1));
        if (name == "preset") {
            s = preset(value);
        } else {
            try {
                setoption(s, name, value);
            } catch (const std::invalid_argument& e) {
                throw std::invalid_argument(path + ":" + std::to_string(n) + ": " + e.what());
            }
        }
    }
}

void validate(const Scenario& s) {
    auto fail = [](const std::string& why) { throw std::invalid_argument(why); };
    const double positions = s.lengthkm * 1000 / metresperposition;
    // The restarts leave gaps of about 1400 positions; the station loads up to position 6395000.
    const double last = 800 + positions + 400 + 2000.0 * s.restarts;
    if (!(s.lengthkm >= 0.05)) fail("length-km must be at least 0.05");
    if (last > 6395000)
        fail("length-km " + std::to_string(s.lengthkm) + " passes the position limit 6395000");
    if (!(s.startkm >= 0 && s.startkm <= 9000)) fail("start-km must lie between 0 and 9000");
    if (!s.countup && s.startkm < s.lengthkm + 1) fail("start-km too small to count down over the length");
    if (s.jointspacing != 12.5 && s.jointspacing != 25) fail("joint must be 12.5 or 25");
    if (!(s.minspeed > 0.5 && s.maxspeed >= s.minspeed && s.maxspeed < 9.9))
        fail("speed must be MIN:MAX with 0.5 < MIN <= MAX < 9.9 km/h");
    if (s.restarts < 0 || s.restarts > 20) fail("restarts must be 0 to 20");
    if (s.reversals < 0 || s.reversals > 200) fail("reversals must be 0 to 200");
    if (s.rails.empty() || s.rails.front().from != 0) fail("rail must start at 0 m");
    for (const RailStretch& r : s.rails)
        if (r.weight != 43 && r.weight != 50 && r.weight != 60 && r.weight != 75)
            fail("rail weight must be 43, 50, 60 or 75, not " + std::to_string(r.weight));
    for (const Defect& d : s.defects) {
        if (d.kind != "head" && d.kind != "bolthole" && d.kind != "web")
            fail("defect kind must be head, bolthole or web, not " + d.kind);
        if (!(d.at >= 20 && d.at <= s.lengthkm * 1000 - 20)) fail("defect outside the rail: " + d.kind);
    }
    if (s.instrument.size() != 5) fail("instrument must have five characters");
}

} // namespace ktrgen

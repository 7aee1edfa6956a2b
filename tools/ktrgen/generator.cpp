#include "generator.h"

#include "json.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <stdexcept>

namespace ktrgen {

namespace {

using Record = std::array<std::uint8_t, 256>;
using Entry11 = std::array<std::uint8_t, 11>;

// Channel codes of the KRM-5T layout: A..F the 70 degree probes, G and H the 37 degree probes,
// I the 0 degree probe. Front probes look ahead of the trolley.
constexpr std::array<std::uint8_t, 9> kinds = {0x47, 0x46, 0x49, 0x48, 0x4B, 0x4A, 0x25, 0x26, 0x00};
constexpr std::array<std::uint8_t, 9> scales = {40, 40, 40, 40, 40, 40, 40, 40, 24};
enum Code : std::uint8_t { A = 1, B, C, D, E, F, G, H, I, lateG = 0x0B, lateH = 0x0C, lateI = 0x0D };
constexpr std::uint8_t fb = 0xFB, fc = 0xFC, fe = 0xFE, ff = 0xFF;

// Depths are in the station's units of half a millimetre below the running surface.
double footdepth(int weight) {
    switch (weight) {
    case 43:
        return 280;
    case 50:
        return 304;
    case 75:
        return 384;
    default:
        return 352;
    }
}
int railcode(int weight) {
    switch (weight) {
    case 43:
        return 1;
    case 50:
        return 2;
    case 75:
        return 4;
    default:
        return 3;
    }
}

// The value byte of an echo at DEPTH for a channel: sound path over the depth factor of its angle.
std::uint8_t valueat(int code, double depth) {
    const int k = (code >= lateG ? code - lateG + 6 : code - 1);
    const double speed = k == 8 ? 0.0593 : 0.0323;
    const double cosine = k == 8 ? 1.0 : k >= 6 ? 0.777 : 0.3426;
    const double v = depth / cosine / (speed * scales[k]);
    return static_cast<std::uint8_t>(std::clamp(std::lround(v), 1L, 255L));
}

std::uint8_t bcd(int v) {
    return static_cast<std::uint8_t>((v / 10 % 10) * 16 + v % 10);
}

void put24(std::uint8_t* at, std::int32_t v) {
    at[0] = static_cast<std::uint8_t>(v >> 16);
    at[1] = static_cast<std::uint8_t>(v >> 8);
    at[2] = static_cast<std::uint8_t>(v);
}

// One thing to write: a detection entry, or a whole record written at a position.
struct Item {
    std::int32_t position;
    int order; // records before entries at the same position, then in the order made
    std::uint8_t code = 0, value = 0;
    Record record{};
    bool whole = false;
};

class Generator {
  public:
    Generator(const Scenario& s, std::uint32_t seed) : sc(s), rng(seed) {
        truth.preset = s.preset;
        truth.seed = seed;
        length = s.lengthkm * 1000;
    }

    Recording run() {
        makespeeds();
        // The restarts divide the walk into segments, each with its own step counter.
        std::vector<double> cuts{0};
        for (int i = 1; i <= sc.restarts; ++i) cuts.push_back(length * i / (sc.restarts + 1));
        cuts.push_back(length);
        for (std::size_t k = 0; k + 1 < cuts.size(); ++k) segment(static_cast<int>(k), cuts[k], cuts[k + 1]);
        truth.lastposition = std::max({lastdetection, lastsample + 400, lastjob + 400});
        // The station lists marks in file order: by position, and as made where two share one.
        std::stable_sort(truth.marks.begin(), truth.marks.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        Recording r;
        r.bytes = std::move(bytes);
        r.truth = std::move(truth);
        return r;
    }

  private:
    const Scenario& sc;
    std::mt19937 rng;
    Truth truth;
    double length = 0;
    std::vector<double> speeds; // km/h per metre
    std::vector<std::uint8_t> bytes;
    // The walk as the station will make it, to know where the next segment starts.
    std::int32_t lastdetection = 0, lastsample = 0, lastgps = 0, lastjob = 0;
    bool anysample = false, anygps = false;
    double clock = 0; // seconds since the start of the job
    // The segment being made.
    std::vector<Item> items;
    std::int32_t base = 800;
    double segstart = 0;
    int order = 0;

    double uniform(double a, double b) { return std::uniform_real_distribution<double>(a, b)(rng); }
    int integer(int a, int b) { return std::uniform_int_distribution<int>(a, b)(rng); }

    std::int32_t at(double metre) const {
        return base + static_cast<std::int32_t>(std::lround((metre - segstart) / metresperposition));
    }

    void entry(std::int32_t p, std::uint8_t code, std::uint8_t value) {
        Item it;
        it.position = p;
        it.order = ++order;
        it.code = code;
        it.value = value;
        items.push_back(it);
    }
    void whole(std::int32_t p, const Record& r) {
        Item it;
        it.position = p;
        it.order = ++order - (1 << 30); // before the entries at the same position
        it.record = r;
        it.whole = true;
        items.push_back(it);
    }
    void mark(std::int32_t p, std::uint8_t code, std::uint8_t value, const std::string& text) {
        entry(p, code, value);
        if (!text.empty()) truth.marks.push_back({p, text});
    }

    // A run of echoes of one channel: N positions from P, the value going from V0 to V1.
    void run(int code, std::int32_t p, int n, double v0, double v1) {
        for (int i = 0; i < n; ++i) {
            const double v = n > 1 ? v0 + (v1 - v0) * i / (n - 1) : v0;
            entry(p + i, static_cast<std::uint8_t>(code),
                  static_cast<std::uint8_t>(std::clamp(std::lround(v), 1L, 255L)));
        }
    }
    void bottomlost(std::int32_t end, int n) {
        entry(end, fe, static_cast<std::uint8_t>(n));
        truth.bottomloss.push_back(end);
    }

    int weightat(double metre) const {
        int w = sc.rails.front().weight;
        for (const RailStretch& r : sc.rails)
            if (metre >= r.from) w = r.weight;
        return w;
    }

    // Speeds in stretches of 40 to 160 m; every fourth stretch is walked too fast.
    void makespeeds() {
        const int metres = static_cast<int>(length) + 2;
        int n = 0;
        while (static_cast<int>(speeds.size()) < metres) {
            const int stretch = integer(40, 160);
            double v = uniform(sc.minspeed, std::min(sc.maxspeed, 3.0));
            if (++n % 4 == 0 && sc.maxspeed > 3.1) v = uniform(3.2, std::min(3.8, sc.maxspeed));
            for (int i = 0; i < stretch; ++i) speeds.push_back(v);
        }
        speeds.resize(metres);
    }

    Record paramrecord(std::int32_t step, double metre) const {
        Record r{};
        r[0] = 0x43;
        // Gains change a few times along the walk; suppression is on over one stretch.
        const int gainstep = metre < length * 0.25   ? 0
                             : metre < length * 0.6  ? 4
                             : metre < length * 0.85 ? 2
                                                     : 6;
        static const std::array<std::int16_t, 9> words = {3, -3, 2, -2, 4, -4, 1, -1, 0};
        for (int k = 0; k < 9; ++k) {
            r[1 + k] = scales[k];
            for (int g = 0; g < 3; ++g) r[37 + 9 * g * 2 + k] = static_cast<std::uint8_t>(10 + 20 * g);
            const auto w = static_cast<std::uint16_t>(words[k]);
            r[91 + 2 * k] = static_cast<std::uint8_t>(w & 0xFF);
            r[92 + 2 * k] = static_cast<std::uint8_t>(w >> 8);
            r[118 + k] =
                static_cast<std::uint8_t>((k < 6 ? 100 : 90) + gainstep); // 30 to 35 dB of sensitivity
            r[165 + k] = kinds[k];
        }
        r[10] = suppressedat(metre) ? 1 : 0;
        r[141] = metre < length * 0.5 ? 0x03 : 0x01; // reflection and transmission alarms, then one off
        r[174] = 150;
        r[175] = static_cast<std::uint8_t>(railcode(weightat(metre)));
        put24(&r[253], step);
        return r;
    }

    Record jobrecord(std::uint8_t type, std::int32_t step, int operatorno) const {
        Record r{};
        r[0] = type;
        const int seconds = static_cast<int>(clock) % 86400;
        const int hour = (sc.starthour * 3600 + sc.startminute * 60 + seconds) / 3600 % 24;
        const int minute = (sc.startminute * 60 + seconds) / 60 % 60;
        auto digits = [&](int offset, int v) {
            r[offset] = static_cast<std::uint8_t>('0' + v % 10);
            r[offset + 1] = static_cast<std::uint8_t>('0' + v / 10 % 10);
        };
        digits(12, seconds % 60);
        digits(14, minute);
        digits(16, hour);
        digits(18, sc.day);
        digits(20, sc.month);
        digits(22, sc.year);
        for (int i = 0; i < 5; ++i) r[47 + i] = static_cast<std::uint8_t>(sc.instrument[i]);
        const std::string op = "00" + std::to_string(operatorno);
        for (int i = 0; i < 3; ++i) r[55 + i] = static_cast<std::uint8_t>(op[op.size() - 3 + i]);
        r[58] = 0;   // up line
        r[59] = 'R'; // right rail
        r[62] = 'R'; // right hand
        r[63] = sc.countup ? 'I' : 'D';
        const char line[] = "01003012002"; // line code, track, iron, line name
        for (int i = 0; i < 11; ++i) r[104 + i] = static_cast<std::uint8_t>(line[i]);
        r[120] = type == 0x53 ? 1 : 0;
        r[138] = 100;
        put24(&r[253], step);
        return r;
    }

    // Samples every metre; a GPS fix every fifth sample, except over a stretch without a fix.
    void samples(double from, double to) {
        const double correction = length * 0.7;
        for (double m = std::ceil(from); m < to; m += 1) {
            const std::int32_t p = at(m);
            const double v = speeds[static_cast<std::size_t>(m)];
            clock += 3.6 / v;
            const int seconds = static_cast<int>(clock);
            const int total = sc.starthour * 3600 + sc.startminute * 60 + seconds;
            // The operator corrects the kilometre once, by 500 m, and marks the check.
            const double shown = m + (sc.details && m >= correction ? 500 : 0);
            const double km = sc.startkm + (sc.countup ? shown : -shown) / 1000;
            const long metres = std::lround(km * 1000);
            Entry11 e{};
            e[0] = bcd(total / 3600 % 24);
            e[1] = bcd(total / 60 % 60);
            e[2] = bcd(total % 60);
            e[3] = bcd(static_cast<int>(metres / 1000 / 100));
            e[4] = bcd(static_cast<int>(metres / 1000 % 100));
            e[5] = bcd(static_cast<int>(metres % 1000 / 10));
            e[6] = static_cast<std::uint8_t>((metres % 10) << 4);
            const int tenths = static_cast<int>(std::lround(v * 10));
            e[7] = bcd(tenths);
            put24(&e[8], p - base);
            std::vector<Entry11> list{e};
            ++truth.samples;
            if (tenths > 30) {
                if (!truth.overspeed.empty() && truth.overspeed.back().second == lastsampleplan)
                    truth.overspeed.back().second = p;
                else
                    truth.overspeed.push_back({p, p});
            }
            lastsampleplan = p;
            const bool nofix = sc.details && m >= length * 0.45 && m < length * 0.5;
            if (truth.samples % 5 == 0 && !nofix) {
                list.push_back(gpsfirst(m));
                list.push_back(gpssecond(m));
                ++truth.gps;
                if (lowintegral(m)) truth.lowintegral.push_back(p);
                if (highintegral(m)) truth.highintegral.push_back(p);
            }
            Record r{};
            r[0] = 0x4D;
            for (std::size_t i = 0; i < list.size(); ++i)
                std::copy(list[i].begin(), list[i].end(), &r[1 + 11 * i]);
            whole(p, r);
        }
    }
    std::int32_t lastsampleplan = -1;

    bool suppressedat(double m) const { return sc.details && m >= length * 0.3 && m < length * 0.4; }
    bool lowintegral(double m) const { return sc.details && m >= length * 0.32 && m < length * 0.35; }
    bool highintegral(double m) const { return sc.details && m >= length * 0.36 && m < length * 0.39; }

    Entry11 gpsfirst(double m) const {
        Entry11 e{};
        e[0] = 0x47;
        const int lat = 1234 + static_cast<int>(m * 0.35) % 8000,
                  lon = 1234 + static_cast<int>(m * 0.5) % 8000;
        e[2] = bcd(45);
        e[3] = bcd(46);
        e[4] = bcd(lat / 100);
        e[5] = bcd(lat % 100);
        e[6] = 0x01; // hundreds of the longitude degrees
        e[7] = bcd(26);
        e[8] = bcd(38);
        e[9] = bcd(lon / 100);
        e[10] = bcd(lon % 100);
        return e;
    }
    // The integral values lie inside the grass-wave limits (below 120 or above 220, for G and H below
    // 57.5 or above 160, is out of them), except over a low and then a high stretch while suppression
    // is on.
    Entry11 gpssecond(double m) {
        Entry11 e{};
        e[0] = 0x4A;
        const bool low = lowintegral(m), high = highintegral(m);
        for (int k = 0; k < 9; ++k) {
            const bool inclined = k == 6 || k == 7;
            const int d = integer(-20, 20);
            const int v = low    ? (inclined ? 45 : 95) + d / 2
                          : high ? (inclined ? 180 : 240) + d / 2
                                 : (inclined ? 100 : 160) + d;
            e[1 + k] = static_cast<std::uint8_t>(std::clamp(v, 0, 255));
        }
        const int volts = 8 - static_cast<int>(3 * m / std::max(length, 1.0));
        e[10] = static_cast<std::uint8_t>(volts << 4);
        return e;
    }

    // A bolt hole seen by the 0 degree probe and, inclined, by the two 37 degree probes.
    void bolthole(std::int32_t h, double foot, bool cracked) {
        const double depth = foot * 0.58;
        const double vi = valueat(I, depth);
        // The hole's echo is wider than the shadow it casts on the foot, so its edges stay in view
        // where the station clears the foot line over the loss.
        for (int i = -7; i <= 7; ++i) entry(h + i, I, static_cast<std::uint8_t>(vi + (i == 0 ? 1 : 0)));
        entry(h, lateI, valueat(lateI, depth + 40));
        bottomlost(h + 3, 7);
        const int off = static_cast<int>(std::lround(depth * 0.7536 / 7));
        const double v = valueat(G, depth);
        run(G, h - off - 7, 14, v + 6, v - 6);
        run(H, h + off - 6, 14, v - 6, v + 6);
        entry(h - off, lateG, valueat(lateG, depth + 60));
        if (cracked) {
            // The crack runs up from the hole: a longer line in the front probe, a longer loss below.
            run(G, h - off - 30, 24, v - 14, v - 2);
            run(I, h + 4, 8, vi - 8, vi - 12);
            bottomlost(h + 12, 8);
        }
    }

    void joint(std::int32_t j, double foot, bool cracked) {
        truth.joints.push_back(j);
        for (int s : {-1, 1})
            for (int d : {20, 51, 83}) bolthole(j + s * d, foot, cracked && s == 1 && d == 20);
        bottomlost(j + 6, 12);
    }

    void headcrack(std::int32_t d) {
        const double depth = 40;
        const double v = valueat(A, depth);
        const int off = static_cast<int>(std::lround(depth * 2.747 / 7));
        run(A, d - off - 12, 24, v + 10, v - 10);
        run(B, d + off - 12, 24, v - 10, v + 10);
        run(E, d - off - 8, 16, v + 6, v - 6);
        run(F, d + off - 8, 16, v - 6, v + 6);
    }

    void websplit(std::int32_t d, double foot) {
        run(I, d, 70, valueat(I, foot * 0.55), valueat(I, foot * 0.5));
        bottomlost(d + 69, 70);
    }

    // Short echoes of one to three positions that a filter removes.
    void noise(std::int32_t from, std::int32_t to) {
        for (std::int32_t p = from + integer(200, 900); p < to; p += integer(300, 1400))
            run(integer(A, I), p, integer(1, 3), integer(30, 220), integer(30, 220));
    }

    void segment(int k, double from, double to) {
        items.clear();
        segstart = from;
        if (k > 0) {
            // The base the station gives a restart: behind the last sample, the detection data, the GPS.
            base = anysample ? lastsample + 1000 : 800;
            if (base < lastdetection) base = lastdetection;
            if (anygps && base < lastgps) base = lastgps;
        }
        const std::int32_t first = at(from), last = at(to) - 1;
        whole(first, jobrecord(k == 0 ? 0x45 : 0x53, 0, k == 0 ? 1 : 2));
        if (k > 0) truth.restarts.push_back(first);
        whole(first, paramrecord(0, from));

        // Setting changes: rail weight, gains, suppression.
        std::vector<double> changes;
        for (const RailStretch& r : sc.rails) changes.push_back(r.from);
        for (double f : {0.25, 0.6, 0.85}) changes.push_back(length * f);
        if (sc.details) changes.insert(changes.end(), {length * 0.3, length * 0.4});
        for (double c : changes)
            if (c > from && c < to) whole(at(c), paramrecord(at(c) - base, c));
        // The operators hand over a little before half way.
        const double handover = length * 0.45;
        if (handover > from && handover < to) whole(at(handover), jobrecord(0x57, at(handover) - base, 2));

        samples(from, to);
        rail(from, to);
        events(from, to);
        noise(first, last);
        write();
    }

    void rail(double from, double to) {
        for (double j = std::ceil(from / sc.jointspacing) * sc.jointspacing; j < to; j += sc.jointspacing) {
            if (j - from < 2 || to - j < 2) continue;
            bool cracked = false;
            for (const Defect& d : sc.defects)
                if (d.kind == "bolthole" && std::fabs(d.at - j) < sc.jointspacing / 2) {
                    cracked = true;
                    truth.defects.push_back({d.kind, at(j) + 20});
                    mark(at(j) + 140, ff, 0x0E, "4");
                }
            joint(at(j), footdepth(weightat(j)), cracked);
        }
        // Welds between the joints, each marked by the operator as a thermite weld.
        for (double w = from + uniform(20, sc.weldspacing); w < to - 5;
             w += uniform(0.5, 1.5) * sc.weldspacing) {
            const double nearest = std::round(w / sc.jointspacing) * sc.jointspacing;
            if (std::fabs(w - nearest) < 2) continue;
            const std::int32_t p = at(w);
            truth.welds.push_back(p);
            run(H, p - 3, 6, 150, 154);
            mark(p, fb, 7, "107");
        }
        for (const Defect& d : sc.defects) {
            if (d.at < from || d.at >= to) continue;
            if (d.kind == "head") {
                headcrack(at(d.at));
                truth.defects.push_back({d.kind, at(d.at)});
                mark(at(d.at) + 90, ff, 0x0D, "3");
            } else if (d.kind == "web") {
                websplit(at(d.at), footdepth(weightat(d.at)));
                truth.defects.push_back({d.kind, at(d.at)});
                mark(at(d.at) + 100, ff, 0x0C, "2");
            }
        }
    }

    // The operator's events: posts, checks, marks, turnouts and reversals.
    void events(double from, double to) {
        auto inside = [&](double m) { return m >= from + 3 && m < to - 3; };
        for (double km = std::ceil(from / 1000) * 1000; km < to; km += 1000)
            if (inside(km + 7)) mark(at(km + 7), fb, 5, "105");
        for (int i = 0; i < sc.reversals; ++i) {
            const double m = length * (i + 0.5) / std::max(sc.reversals, 1) + 3.3;
            if (!inside(m)) continue;
            entry(at(m), ff, 0x01);
            entry(at(m) + 1, fc, 40);
            truth.stops.push_back(at(m));
        }
        if (!sc.details) return;
        const std::pair<double, std::array<std::uint8_t, 2>> marks[] = {
            {0.05, {ff, 0x0F}}, {0.12, {ff, 0x0A}}, {0.15, {ff, 101}},  {0.33, {fb, 1}},
            {0.42, {ff, 0x0B}}, {0.55, {fb, 3}},    {0.62, {0xF1, 23}}, {0.8, {0x96, 7}}};
        for (const auto& [f, cv] : marks) {
            const double m = length * f + 1.7;
            if (!inside(m)) continue;
            mark(at(m), cv[0], cv[1], marktext(cv[0], cv[1]));
        }
        const double correction = length * 0.7;
        if (inside(correction)) mark(at(correction), ff, 0x02, "12345");
    }

    static std::string marktext(std::uint8_t code, std::uint8_t value) {
        if (code == fb) return std::to_string(value + 100);
        if (code == ff && value >= 0x0A && value <= 0x0E) return std::to_string(value - 0x0A);
        if (code == ff && value >= 50) return std::to_string(value + 1950);
        if (code >= 0xF0 && code <= 0xF4) return std::to_string(200 * (code - 0xF0) + value - 50 + 2000);
        if (code >= 0x95 && code <= 0xC5) return std::to_string(200 * (code - 0x90) + value + 1950);
        return ""; // the integral-mode mark is not listed
    }

    // Writes the segment in position order: a record at its position, the entries packed 51 a record.
    void write() {
        std::stable_sort(items.begin(), items.end(), [](const Item& a, const Item& b) {
            return a.position != b.position ? a.position < b.position : a.order < b.order;
        });
        Record det{};
        int n = 0;
        auto flush = [&] {
            if (n == 0) return;
            append(det);
            det = Record{};
            n = 0;
        };
        for (const Item& it : items) {
            if (it.whole) {
                flush();
                append(it.record);
                continue;
            }
            if (it.position < base) continue; // nothing lies before the segment's first step
            if (n == 0) det[0] = 0x42;
            std::uint8_t* e = &det[1 + 5 * n];
            put24(e, it.position - base);
            e[3] = it.code;
            e[4] = it.value;
            lastentry = it.position;
            if (++n == 51) flush();
        }
        flush();
    }
    std::int32_t lastentry = 0;

    void append(const Record& r) {
        bytes.insert(bytes.end(), r.begin(), r.end());
        ++truth.records;
        const std::int32_t tail = base + ((r[253] << 16) | (r[254] << 8) | r[255]);
        switch (r[0]) {
        case 0x42:
            lastdetection = lastentry;
            break;
        case 0x43:
            ++truth.params;
            break;
        case 0x45:
        case 0x53:
        case 0x57:
            ++truth.jobs;
            lastjob = tail;
            break;
        case 0x4D:
            for (int i = 0; i < 23 && r[1 + 11 * i] != 0; ++i) {
                const std::uint8_t* e = &r[1 + 11 * i];
                if (e[0] >> 4 != 4) {
                    lastsample = base + ((e[8] << 16) | (e[9] << 8) | e[10]);
                    anysample = true;
                } else if (e[0] == 0x47) {
                    lastgps = lastsample;
                    anygps = true;
                }
            }
            break;
        default:
            break;
        }
    }
};

} // namespace

Recording generate(const Scenario& s, std::uint32_t seed) {
    return Generator(s, seed).run();
}

std::string truthjson(const Truth& t) {
    orvane::cli::Json j;
    auto positions = [&](const char* name, const std::vector<std::int32_t>& list) {
        j.key(name).beginarray();
        for (auto p : list) j.value(static_cast<std::int64_t>(p));
        j.endarray();
    };
    j.beginobject();
    j.key("preset").value(t.preset);
    j.key("seed").value(static_cast<std::int64_t>(t.seed));
    j.key("lastposition").value(static_cast<std::int64_t>(t.lastposition));
    j.key("records").value(static_cast<std::int64_t>(t.records));
    j.key("samples").value(static_cast<std::int64_t>(t.samples));
    j.key("gps").value(static_cast<std::int64_t>(t.gps));
    j.key("params").value(static_cast<std::int64_t>(t.params));
    j.key("jobs").value(static_cast<std::int64_t>(t.jobs));
    j.key("marks").beginarray();
    for (const auto& [p, text] : t.marks)
        j.beginarray().value(static_cast<std::int64_t>(p)).value(text).endarray();
    j.endarray();
    positions("lowintegral", t.lowintegral);
    positions("highintegral", t.highintegral);
    positions("restarts", t.restarts);
    positions("stops", t.stops);
    positions("joints", t.joints);
    positions("welds", t.welds);
    positions("bottomloss", t.bottomloss);
    j.key("defects").beginarray();
    for (const auto& [kind, p] : t.defects)
        j.beginobject()
            .key("kind")
            .value(kind)
            .key("position")
            .value(static_cast<std::int64_t>(p))
            .endobject();
    j.endarray();
    j.key("overspeed").beginarray();
    for (const auto& [a, b] : t.overspeed)
        j.beginarray().value(static_cast<std::int64_t>(a)).value(static_cast<std::int64_t>(b)).endarray();
    j.endarray();
    j.endobject();
    return j.text();
}

void writefile(const std::string& path, const char* data, std::size_t size) {
    const std::string partial = path + ".partial";
    {
        std::ofstream out(partial, std::ios::binary | std::ios::trunc);
        out.write(data, static_cast<std::streamsize>(size));
        if (!out) {
            std::filesystem::remove(partial);
            throw std::runtime_error("cannot write " + path);
        }
    }
    std::filesystem::rename(partial, path);
}

void writefile(const std::string& path, const Recording& r) {
    writefile(path, reinterpret_cast<const char*>(r.bytes.data()), r.bytes.size());
}

} // namespace ktrgen

#pragma once
// Builds recordings byte by byte for the tests: one 256-byte record per call, in file order.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace orvane::testkit {

using Record = std::array<std::uint8_t, 256>;

// One entry of a detection record: step, code, value.
struct Hit {
    std::int32_t step;
    std::uint8_t code;
    std::uint8_t value;
};

// One sample: clock, kilometre and metres (BCD), speed digits and step.
struct Sample {
    int hour = 8, minute = 30, second = 0;
    int km = 123, metres = 456;
    std::uint8_t speed = 0x25; // BCD tenths of km/h: 2.5 km/h
    std::int32_t step = 0;
};

// The KRM-5T layout of channel kinds A to I.
inline constexpr std::array<std::uint8_t, 9> krmkinds = {0x47, 0x46, 0x49, 0x48, 0x4B,
                                                         0x4A, 0x25, 0x26, 0x00};

struct Param {
    std::int32_t step = 0;
    std::array<std::uint8_t, 9> kinds = krmkinds;
    std::array<std::uint8_t, 9> scales = {1, 1, 1, 1, 1, 1, 1, 1, 1};
    std::array<std::uint16_t, 9> words = {};
    std::uint8_t suppression = 0;
    std::uint8_t fold = 0;
    std::uint8_t rail = 3;
    std::array<std::uint8_t, 9> gains = {160, 160, 160, 160, 160, 160, 160, 160, 160};
    std::uint8_t alarms = 0; // byte 141: bit 0 reflection, bit 1 transmission
};

// A job record: date and clock, instrument, operator, line, rail and hand; digits as ASCII.
struct Job {
    std::uint8_t type = 0x45;
    std::int32_t step = 0;
    int year = 26, month = 11, day = 22, hour = 9, minute = 5, second = 7;
    std::string instrument = "12345";
    std::string operatorno = "007";
    std::uint8_t direction = 0;
    std::uint8_t rail = 'R';  // 'L' the left rail
    std::uint8_t hand = 'R';  // 'L' the left hand
    std::uint8_t count = 'I'; // 'I' counts up
    std::string linecode = "01";
    std::string track = "003";
    std::string iron = "012";
    std::string linename = "002";
    std::uint8_t section = 0;   // byte 120
    std::uint8_t resetmode = 0; // byte 121
    std::uint8_t wheel = 100;
};

// One mark of an earlier analysis (0x44 entry).
struct AnalysisMark {
    std::int32_t position;
    std::uint8_t code;
    std::string date = "20261122";
    std::string time = "101500";
};

class KtrBuilder {
  public:
    KtrBuilder& param(const Param& p = {});
    KtrBuilder& detection(const std::vector<Hit>& hits);
    // Samples and GPS halves in one 0x4D record, in order.
    KtrBuilder& samples(const std::vector<Sample>& samples);
    // A 0x4D record with raw 11-byte entries.
    KtrBuilder& sampleentries(const std::vector<std::array<std::uint8_t, 11>>& entries);
    // A job record of TYPE (0x45, 0x57 or 0x53) written at STEP; byte 121 as given.
    KtrBuilder& job(std::uint8_t type, std::int32_t step, std::uint8_t byte121 = 0);
    KtrBuilder& job(const Job& j);
    // Records of an earlier analysis: marks (0x44), a session (0x58), the analyst's name (0x59) as
    // 16-bit units of the system's code page.
    KtrBuilder& analysis(const std::vector<AnalysisMark>& marks);
    KtrBuilder& analyst(std::int32_t position, const std::string& date, const std::string& start,
                        const std::string& end);
    KtrBuilder& analystname(const std::vector<std::uint16_t>& units);
    KtrBuilder& zeros(int records = 1);
    KtrBuilder& record(const Record& r);

    std::string bytes() const;
    void write(const std::string& path) const;
    const std::vector<Record>& records() const { return records_; }

    static std::array<std::uint8_t, 11> sampleentry(const Sample& s);
    static std::array<std::uint8_t, 11> gpsfirst(const std::string& eighteenhex);
    static std::array<std::uint8_t, 11> gpssecond(const std::string& twentyhex);

  private:
    std::vector<Record> records_;
};

std::uint8_t bcd(int value);

} // namespace orvane::testkit

#include "ktrbuilder.h"

#include <fstream>
#include <stdexcept>

namespace orvane::testkit {

namespace {

void put24(std::uint8_t* at, std::int32_t v) {
    at[0] = static_cast<std::uint8_t>(v >> 16);
    at[1] = static_cast<std::uint8_t>(v >> 8);
    at[2] = static_cast<std::uint8_t>(v);
}

std::vector<std::uint8_t> fromhex(const std::string& hex) {
    std::vector<std::uint8_t> out;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        out.push_back(static_cast<std::uint8_t>(std::stoi(hex.substr(i, 2), nullptr, 16)));
    return out;
}

} // namespace

std::uint8_t bcd(int value) {
    return static_cast<std::uint8_t>((value / 10 % 10) * 16 + value % 10);
}

KtrBuilder& KtrBuilder::param(const Param& p) {
    Record r{};
    r[0] = 0x43;
    for (int k = 0; k < 9; ++k) {
        r[1 + k] = p.scales[k];
        r[91 + 2 * k] = static_cast<std::uint8_t>(p.words[k] & 0xFF);
        r[92 + 2 * k] = static_cast<std::uint8_t>(p.words[k] >> 8);
        r[118 + k] = p.gains[k];
        r[165 + k] = p.kinds[k];
    }
    r[10] = p.suppression;
    r[174] = p.fold;
    r[175] = p.rail;
    r[141] = p.alarms;
    put24(&r[253], p.step);
    return record(r);
}

KtrBuilder& KtrBuilder::detection(const std::vector<Hit>& hits) {
    if (hits.size() > 51) throw std::invalid_argument("a detection record holds 51 entries");
    Record r{};
    r[0] = 0x42;
    for (std::size_t i = 0; i < hits.size(); ++i) {
        std::uint8_t* e = &r[1 + 5 * i];
        put24(e, hits[i].step);
        e[3] = hits[i].code;
        e[4] = hits[i].value;
    }
    return record(r);
}

std::array<std::uint8_t, 11> KtrBuilder::sampleentry(const Sample& s) {
    std::array<std::uint8_t, 11> e{};
    e[0] = bcd(s.hour);
    e[1] = bcd(s.minute);
    e[2] = bcd(s.second);
    e[3] = bcd(s.km / 100);
    e[4] = bcd(s.km % 100);
    e[5] = bcd(s.metres / 10);
    e[6] = static_cast<std::uint8_t>((s.metres % 10) << 4);
    e[7] = s.speed;
    put24(&e[8], s.step);
    return e;
}

std::array<std::uint8_t, 11> KtrBuilder::gpsfirst(const std::string& eighteenhex) {
    std::array<std::uint8_t, 11> e{};
    e[0] = 0x47;
    auto bytes = fromhex(eighteenhex);
    for (std::size_t i = 0; i < bytes.size() && i < 9; ++i) e[2 + i] = bytes[i];
    return e;
}

std::array<std::uint8_t, 11> KtrBuilder::gpssecond(const std::string& twentyhex) {
    std::array<std::uint8_t, 11> e{};
    e[0] = 0x4A;
    auto bytes = fromhex(twentyhex);
    for (std::size_t i = 0; i < bytes.size() && i < 10; ++i) e[1 + i] = bytes[i];
    return e;
}

KtrBuilder& KtrBuilder::samples(const std::vector<Sample>& list) {
    std::vector<std::array<std::uint8_t, 11>> entries;
    for (const Sample& s : list) entries.push_back(sampleentry(s));
    return sampleentries(entries);
}

KtrBuilder& KtrBuilder::sampleentries(const std::vector<std::array<std::uint8_t, 11>>& entries) {
    if (entries.size() > 23) throw std::invalid_argument("a sample record holds 23 entries");
    Record r{};
    r[0] = 0x4D;
    for (std::size_t i = 0; i < entries.size(); ++i)
        for (int b = 0; b < 11; ++b) r[1 + 11 * i + b] = entries[i][b];
    return record(r);
}

KtrBuilder& KtrBuilder::job(std::uint8_t type, std::int32_t step, std::uint8_t byte121) {
    return job(Job{.type = type, .step = step, .resetmode = byte121});
}

namespace {

// Two decimal digits as ASCII, the ones at OFFSET and the tens behind them.
void putonesthentens(Record& r, int offset, int value) {
    r[offset] = static_cast<std::uint8_t>('0' + value % 10);
    r[offset + 1] = static_cast<std::uint8_t>('0' + value / 10 % 10);
}

void puttext(Record& r, int offset, const std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) r[offset + i] = static_cast<std::uint8_t>(text[i]);
}

// BCD digits of a text of decimal digits, two a byte.
void putbcd(std::uint8_t* at, const std::string& digits) {
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        at[i / 2] = static_cast<std::uint8_t>((digits[i] - '0') * 16 + (digits[i + 1] - '0'));
}

} // namespace

KtrBuilder& KtrBuilder::job(const Job& j) {
    Record r{};
    r[0] = j.type;
    putonesthentens(r, 12, j.second);
    putonesthentens(r, 14, j.minute);
    putonesthentens(r, 16, j.hour);
    putonesthentens(r, 18, j.day);
    putonesthentens(r, 20, j.month);
    putonesthentens(r, 22, j.year);
    puttext(r, 47, j.instrument);
    puttext(r, 55, j.operatorno);
    r[58] = j.direction;
    r[59] = j.rail;
    r[62] = j.hand;
    r[63] = j.count;
    puttext(r, 104, j.linecode);
    puttext(r, 106, j.track);
    puttext(r, 109, j.iron);
    puttext(r, 112, j.linename);
    r[120] = j.section;
    r[121] = j.resetmode;
    r[138] = j.wheel;
    put24(&r[253], j.step);
    return record(r);
}

KtrBuilder& KtrBuilder::analysis(const std::vector<AnalysisMark>& marks) {
    if (marks.size() > 20) throw std::invalid_argument("an analysis record holds 20 entries");
    Record r{};
    r[0] = 0x44;
    for (std::size_t i = 0; i < marks.size(); ++i) {
        std::uint8_t* e = &r[1 + 11 * i];
        put24(e, marks[i].position);
        e[3] = marks[i].code;
        putbcd(e + 4, marks[i].date);
        putbcd(e + 8, marks[i].time);
    }
    return record(r);
}

KtrBuilder& KtrBuilder::analyst(std::int32_t position, const std::string& date, const std::string& start,
                                const std::string& end) {
    Record r{};
    r[0] = 0x58;
    put24(&r[1], position);
    putbcd(&r[4], date);
    putbcd(&r[8], start);
    putbcd(&r[11], end);
    return record(r);
}

KtrBuilder& KtrBuilder::analystname(const std::vector<std::uint16_t>& units) {
    if (units.size() > 127) throw std::invalid_argument("an analyst record holds 127 units");
    Record r{};
    r[0] = 0x59;
    for (std::size_t i = 0; i < units.size(); ++i) {
        r[1 + 2 * i] = static_cast<std::uint8_t>(units[i] >> 8);
        r[2 + 2 * i] = static_cast<std::uint8_t>(units[i] & 0xFF);
    }
    return record(r);
}

KtrBuilder& KtrBuilder::zeros(int n) {
    for (int i = 0; i < n; ++i) records_.push_back(Record{});
    return *this;
}

KtrBuilder& KtrBuilder::record(const Record& r) {
    records_.push_back(r);
    return *this;
}

std::string KtrBuilder::bytes() const {
    std::string out;
    for (const Record& r : records_) out.append(reinterpret_cast<const char*>(r.data()), r.size());
    return out;
}

void KtrBuilder::write(const std::string& path) const {
    std::ofstream(path, std::ios::binary) << bytes();
}

} // namespace orvane::testkit

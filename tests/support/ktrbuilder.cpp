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
        r[118 + k] = 160;
        r[165 + k] = p.kinds[k];
    }
    r[10] = p.suppression;
    r[174] = p.fold;
    r[175] = p.rail;
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
    Record r{};
    r[0] = type;
    r[121] = byte121;
    put24(&r[253], step);
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

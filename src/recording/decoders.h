#pragma once
// The decoders of the record families. Each works on the record's 256 bytes and writes one side;
// the comparison side's twin is the same routine called with that side.
#include <cstdint>

namespace orvane {

struct Station;
struct Side;

// The text of the position-limit message.
inline constexpr const char* toolargemessage = "数据量过于庞大或数据有误!无法完整显示!";
// The highest position that the main side loads.
inline constexpr std::int32_t positionlimit = 6395000;

// 0x42: hits into the grids, events into the lists.
void decodedetection(Station& st, Side& side, const std::uint8_t* record);
// 0x4D: samples of clock, mileage and speed; GPS entries.
void decodesample(Station& st, Side& side, const std::uint8_t* record);
// 0x43: the record kept whole, and the fields the walk applies at once.
void storeparam(Station& st, Side& side, const std::uint8_t* record);
// 0x45 and 0x57: the job record kept whole.
void storejob(Station& st, Side& side, const std::uint8_t* record);
// 0x53: a restart of the instrument's step counter.
void restartsegment(Station& st, Side& side, const std::uint8_t* record);

// Records of an earlier analysis, main side only: 0x44 marks, 0x58 a session, 0x59 the analyst.
void decodeanalysis(Station& st, const std::uint8_t* record);
void decodeanalyst(Station& st, const std::uint8_t* record);
void decodeanalystname(Station& st, const std::uint8_t* record);

// Makes the side's grids reach POSITION; otherwise ends the walk with a message naming the file.
bool reachposition(Station& st, Side& side, std::int64_t position);

} // namespace orvane

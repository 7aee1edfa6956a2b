#pragma once
// The walk of a recording: record by record into the session model of one side.
namespace orvane {

struct Station;
struct Side;

// Walks the recording of SIDE. Until the record decoders exist it reads nothing: the side is reset
// and stays empty, so every recording shows "没有数据！".
void walkfile(Station& st, Side& side);

} // namespace orvane

#pragma once
// The controls of the reports: the fields of the printed notice and the box of the mark search.

namespace orvane {

struct Station;

void registerreports(Station& st);

} // namespace orvane

#pragma once
// The analysis index on the side panel: the list of marks Grid1ts with its filter boxes, the list of
// integral values Grid1jf and the handover list Grid1ry, rebuilt on demand from the event lists. The
// reports read these lists.
#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

namespace orvane {

struct Station;
struct Side;

// Element I of a list, or the empty value past its end: the lists end with a sentinel, and a read
// past it sees nothing rather than memory that isn't the list's.
template <class List> auto element(const List& list, std::int64_t i) {
    using T = std::decay_t<decltype(list[0])>;
    return i >= 0 && i < static_cast<std::int64_t>(list.size()) ? T(list[static_cast<std::size_t>(i)]) : T{};
}

// The speed at position P: the slower of the two samples around it. K is the running index of a pass
// through positions in order; it never goes back, and ends at samplecount when no window holds P.
float speedatmark(const Side& side, std::int32_t p, std::int32_t& k);
// The index of the sample in force at P by the same running search.
std::int32_t sampleinforce(const Side& side, std::int32_t p, std::int32_t& k);

// The numeric value of a mark text, rounded to a whole number as the lists round it.
double markvalue(const std::string& text);
// The text of a mark code in the list of marks: "标记3", "里程校对", "积分模式", a name of the
// attribute table, "道岔" and the switch number, or empty.
std::string marktypetext(const Station& st, const std::string& text);

// The time "hh:mm:ss" and the kilometre in metres of a sample's clock text.
std::string sampletime(const std::string& sampleclock);
std::int64_t clockmetres(const std::string& sampleclock);

// The operator number (three characters) and the track number of a job record's image.
std::string operatortext(const std::string& jobimage);
std::string tracknumber(const std::string& jobimage);
// The name of an operator number in the staff table, or the number itself when nobody has it.
std::string operatorname(const Station& st, const std::string& number);
// The job record in force at position P on the main side: the first j with P between jobpos[j]
// and jobpos[j + 1]; jobcount when none is.
std::int32_t jobinforce(const Side& side, std::int32_t p);
// The name of the operator of the job record in force at P on the main side.
std::string operatorat(const Station& st, std::int32_t p);

// Rebuilds the three lists and the row positions, shows the panel on its first tab.
void indexload(Station& st);
// Lists the marks again under the filter boxes Checkts.
void markfilter(Station& st);

// A click on row ROW of a list moves the replay to its place; the heads do nothing.
void gotomarkrow(Station& st, int row);
void gotointegralrow(Station& st, int row);
void gotohandoverrow(Station& st, int row);
// The switch number typed into Text3: the replay goes to the first switch mark of that number.
void turnoutsearch(Station& st, const std::string& text);

} // namespace orvane

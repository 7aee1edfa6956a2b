#pragma once
// The printed notice of a suspect place (Form25): who, where, when, the B-mode and the A-mode
// pictures and the instrument's state on one page, laid out in twips and handed to the printer.
#include "station/page.h"
#include "station/station.h"

#include <string>
#include <vector>

namespace orvane {

// Commanddydy pressed with BUTTON ("left", "right", ...): the right one asks for the "反馈" notice,
// any other for the "复核" one; then the notice opens.
void pressnotice(Station& st, const std::string& button);
// Form25 opens: its page is made and handed to the printer. When the printer's window was closed
// before it returned (the program's preview), the notice closes at once.
void opennotice(Station& st);
// Form25 closed: the display goes back to the replay by the routine of Label33.
void closenotice(Station& st);

// The page of the notice as the print layer makes it, with the pictures as they stand now.
PrintedPage noticepage(Station& st);

// The width of TEXT at SIZE points in twips, as the page's font sets it at most.
double textwidth(const std::string& text, double size);
// TEXT cut to the characters that fit ROOM twips at SIZE points.
std::string cliptext(const std::string& text, double size, double room);
// The widths of the columns of a list in characters, as its cells need them (two for a wide one).
std::vector<double> listwidths(const Table& list);

} // namespace orvane

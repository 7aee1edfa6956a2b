#pragma once
// Saving a clip: the stretch between the two markers rebuilt from the decoded store as a recording
// of its own, positions from 0, with a margin of 200 on both sides. The reversing panel saves the
// stretch on screen as a scratch recording and opens it as the comparison.
#include <string>

namespace orvane {

struct Station;

// "存储": the stretch between clipstart and clipend to cliptarget (a file chosen, or scratchpath);
// an existing file is extended.
void saveclip(Station& st);
// The records of the clip of the main side from A to B (margins applied), as the file holds them.
std::string cliprecords(const Station& st, std::int32_t a, std::int32_t b);
// A click on Label6: the stretch on screen saved as "hhmmss" + "daoche.ktr" in the station folder
// and opened as the comparison, which deletes it again when it closes.
void reversingclip(Station& st);

} // namespace orvane

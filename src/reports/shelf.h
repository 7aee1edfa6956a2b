#pragma once
// How a finished report reaches the user: through the station's Workbooks port; in the program it
// is kept under the station folder's reports/ and opened there.
#include <optional>
#include <string>

namespace orvane {

struct Station;
class Workbook;

// Hands BOOK, the report REPORT ("quality", "markspeed", ...), to the user.
void handover(Station& st, const Workbook& book, const std::string& report);

// Where the program keeps a report: reports/<recording's base name>-<report>-<yyyymmdd-hhmmss>.xlsx
// in the station folder, at the station's clock.
std::string reportpath(const Station& st, const std::string& report);
// Writes BOOK there (the folder made when missing); the path, or the reason it could not be written.
struct Shelved {
    std::string path;
    std::optional<std::string> failed;
};
Shelved shelve(const Station& st, const Workbook& book, const std::string& report);

// Asks for a speed standard in km/h with an input box of TITLE and PROMPT, default 3. nullopt when
// the user gives nothing or cancels (silently) or types what is not a number (after the message).
std::optional<float> askspeedstandard(Station& st, const std::string& title, const std::string& prompt);

} // namespace orvane

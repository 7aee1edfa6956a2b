#pragma once
// The files the station writes (analysis files, clips, the session log) are never left half
// written: each is made whole in a temporary file beside its target, synced, then renamed into
// place, so that a crash, a kill or a full disk leaves the target as it was or complete.
#include <optional>
#include <string>

namespace orvane {

// Behind the name of a temporary file that a save has not yet renamed.
inline constexpr const char* partialsuffix = ".orvane-partial";

// Writes TARGET as the bytes of the file BASE (none when empty) followed by TAIL. BASE may be
// TARGET itself: an append. nullopt when done, else the reason, and TARGET is as it was.
std::optional<std::string> commitfile(const std::string& target, const std::string& base,
                                      const std::string& tail);

// The temporary file beside TARGET that a save writes before renaming it into place.
std::string partialof(const std::string& target);
// Syncs the finished temporary file PARTIAL and renames it to TARGET. nullopt when done, else the
// reason, and PARTIAL is gone.
std::optional<std::string> commitpartial(const std::string& partial, const std::string& target);

// Removes the temporary files in FOLDER that a save of a process no longer running left behind.
void sweeppartials(const std::string& folder);

} // namespace orvane

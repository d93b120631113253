// What rows of several groups share: why a command cannot be done now, and the row that opens a window.
#pragma once

#include "commands/commands.h"
#include "commands/windows.h"

namespace pistaro {

/// Empty where the condition holds that the name tells, else what its user has to do first.
std::string OneTrackChosen(const Session& session);
std::string TrackHasElements(const Session& session);
std::string ElementSelected(const Session& session);
std::string HasWindows(const Session& session);
std::string NoJobRuns(const Session& session);

/// Words of the user's as a menu shows them, where "&" marks a key.
std::string MenuText(const std::string& words);

/// A row that opens a window.
Command WindowRow(const char* id, const char* control, const char* caption, const char* tip, const char* key,
                  void (Windows::*show)());

} // namespace pistaro

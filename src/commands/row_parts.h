// What rows of several groups share: why a command cannot be done now, what laying is called, and the rows of the
// window.
#pragma once

#include "commands/commands.h"
#include "commands/windows.h"
#include "model/looks.h"

namespace pistaro {

/// Empty where the condition holds that the name tells, else what its user has to do first.
std::string OneTrackChosen(const Session& session);
std::string TrackHasElements(const Session& session);
std::string ElementSelected(const Session& session);
std::string HasWindows(const Session& session);
std::string NoJobRuns(const Session& session);

/// Words of the user's as a menu shows them, where "&" marks a key.
std::string MenuText(const std::string& words);

/// What laying a product is called, as often as the next press does it: "Add C160", "Insert 4 C160".
std::string StepOfLaying(const Session& session, const std::string& product);

/// The same where it is put before the selected element in either mode.
std::string StepOfInserting(const Session& session, const std::string& product);

/// What a row of the window alone is there for.
struct WindowWork {
    WindowWork(void (Windows::*show)()); ///< opens a window
    WindowWork(Panel panel);             ///< shows a panel, or hides it
    WindowWork(bool Looks::*look);       ///< turns one of the window's looks on or off

    std::function<void(Session&)> Run;
    std::function<bool(const Session&)> IsOn;
};

/// A row that a script cannot give.
Command WindowRow(const char* id, const char* control, const char* caption, const char* tip, const char* key,
                  WindowWork work);

} // namespace pistaro

// Pressing a control: its row of the command table is run in a session, as the window and the script run it.
#pragma once

#include "model/project.h"
#include "model/prompts.h"

#include <filesystem>
#include <string>

namespace pistaro {

/// Runs the command of this id as often as said. A command that the window would not offer, or that asks something, is
/// an error of the test.
void Press(Project& project, const std::string& id, int times = 1);

/// The same for a command that asks, and may write the settings file.
void Press(Project& project, const std::string& id, Prompts& prompts, const std::filesystem::path& settingsPath = {});

/// Why the window does not offer a command now; empty when it does.
std::string WhyNot(const Project& project, const std::string& id);

/// Presses the buttons of all these pieces, parted by blanks.
void Add(Project& project, const std::string& codes);

/// All that a command may change, as one text: of two projects that are alike the texts are equal.
std::string Snapshot(const Project& project);

} // namespace pistaro

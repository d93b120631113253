// Pages shown in the program that the system has for web pages.
#pragma once

#include "model/preferences.h"

#include <filesystem>
#include <string>
#include <vector>

namespace pistaro {

/// Starts the viewer on a page without waiting. Whether the page is there is the viewer's affair. Fault when the viewer
/// cannot be started.
void OpenInViewer(const std::string& page);

/// The manual that OpenManual shows: beside the user's circuits, "manual/help.html" in the working directory, or where
/// the first of `elsewhere` stands. Fault when none is there.
std::string FindManual(const Preferences& preferences, const std::vector<std::filesystem::path>& elsewhere);

/// The manual beside the user's circuits, else the installed one, else that of the checkout the program was built in.
void OpenManual(const Preferences& preferences);

} // namespace pistaro

// Pages shown in the program that the system has for web pages.
#pragma once

#include "model/project.h"

#include <string>

namespace pistaro {

/// Starts the viewer on a page without waiting. Whether the page is there is the viewer's affair. Fault when the viewer
/// cannot be started.
void OpenInViewer(const std::string& page);

/// The manual is looked for beside the user's circuits: "manual/help.html" in the working directory.
void OpenManual(const Project& project);

} // namespace pistaro

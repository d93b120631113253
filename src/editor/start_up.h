// What the designer starts with: the settings, put in place on a first run.
#pragma once

#include "model/project.h"

#include <vector>

namespace pistaro {

struct DesignerStart {
    Project Design;
    std::vector<Message> Messages; ///< to be told before the user begins
};

/// Reads the settings file; where none stands an initial one is put there first, with its folder and the working
/// directory. A file that cannot be read or made is told: the program then goes on with the initial settings and leaves
/// the file alone.
DesignerStart StartDesigner(const std::filesystem::path& settingsPath);

} // namespace pistaro

// Where the program writes what it is not asked a name for: the shopping list, the guide, the saved drawing.
#pragma once

#include "model/preferences.h"

#include <string>

namespace pistaro {

/// The path of a file of that name in the working directory. Fault when there is no working directory.
std::string InWorkingDirectory(const Preferences& preferences, const std::string& name);

} // namespace pistaro

// The state of the program as a script sees it.
#pragma once

#include "cli/json.h"
#include "model/project.h"

namespace pistaro {

/// Recounts the used pieces on the way.
Json StateJson(Project& project);

} // namespace pistaro

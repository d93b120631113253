// The state of the program as a script sees it.
#pragma once

#include "exchange/json.h"
#include "model/project.h"

namespace pistaro {

Json StateJson(const Catalogue& catalogue, const Project& project);

} // namespace pistaro

// The statistics as JSON and as a table for a person.
#pragma once

#include "cli/json.h"
#include "model/project.h"
#include "stats/detail.h"

#include <string>

namespace pistaro {

/// The frames' texts, the design checks and this detail.
Json StatsJson(const Catalogue& catalogue, const Project& project, const Detail& detail);

/// The same in columns, the messages last.
std::string StatsTable(const Catalogue& catalogue, const Project& project, const Detail& detail);

} // namespace pistaro

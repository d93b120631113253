// The statistics as JSON and as a table for a person.
#pragma once

#include "exchange/json.h"
#include "model/project.h"
#include "stats/detail.h"

#include <string>

namespace pistaro {

/// The frames' texts, each with its lanes as built, the design checks and this detail.
Json StatsJson(const Catalogue& catalogue, const Project& project, const Detail& detail);

/// The same in columns, then the messages, and the lanes of each track as built.
std::string StatsTable(const Catalogue& catalogue, const Project& project, const Detail& detail);

} // namespace pistaro

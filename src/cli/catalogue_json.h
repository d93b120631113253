// The catalogue as JSON and as a table for a person.
#pragma once

#include "cli/json.h"

#include <string>

namespace pistaro {

/// {"rows":[...]}: all rows in use, lane lengths in cm.
Json CatalogueJson();

/// One line a row: code, system, lane lengths in cm, long name.
std::string CatalogueTable();

} // namespace pistaro

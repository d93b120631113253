// The catalogue as JSON and as a table for a person.
#pragma once

#include "catalogue/catalogue.h"
#include "exchange/json.h"

#include <string>

namespace pistaro {

/// {"rows":[...]}: all rows, lane lengths in cm.
Json CatalogueJson(const Catalogue& catalogue);

/// One line a row: code, system, lane lengths in cm, long name.
std::string CatalogueTable(const Catalogue& catalogue);

} // namespace pistaro

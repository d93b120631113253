// The catalogue as JSON and as a table for a person.
#pragma once

#include "cli/json.h"

#include <string>

namespace pistaro {

Json CatalogueJson();
std::string CatalogueTable();

} // namespace pistaro

// The settings as JSON and as a table for a person.
#pragma once

#include "exchange/json.h"
#include "model/project.h"

#include <string>
#include <vector>

namespace pistaro {

/// The values as they stand in the program, with the warnings that reading the file gave.
Json SettingsJson(const Catalogue& catalogue, const Project& project, const std::string& path,
                  const std::vector<Message>& messages);

/// One line a value of that document, its name with its groups' names before it: "view.midX".
std::string SettingsTable(const Json& settings);

} // namespace pistaro

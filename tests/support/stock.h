// What the user of a test owns and pays.
#pragma once

#include "model/project.h"

#include <string_view>

namespace pistaro {

/// Sets the owned count and the price of the catalogue row of that code ("C151L", "C160").
void SetStock(Project& project, std::string_view code, int owned, float price = 0);

} // namespace pistaro

// Which closed circuits are the same one: turned, mirrored, run backwards, started elsewhere.
#pragma once

#include "catalogue/catalogue.h"

#include <vector>

namespace pistaro {

/// The same for two closed circuits of these rows exactly where they are alike. A special piece counts as the basic one
/// whose shape it has.
std::vector<int> CircuitKey(const Catalogue& catalogue, const std::vector<int>& rows);

} // namespace pistaro

// Which elements the user's own pieces cover, counted along tracks 1, 2 and 3 in that order.
#pragma once

#include "model/project.h"

#include <array>
#include <vector>

namespace pistaro {

/// For each element of each track: whether it is covered by the owned stock. Unknown codes count as covered.
using StockColours = std::array<std::vector<bool>, TrackCount>;

/// Recounts the used pieces of every product and tells which elements are within the owned stock.
StockColours AssignStockColours(Project& project);

} // namespace pistaro

// What of a circuit is not as in another one.
#pragma once

#include "catalogue/catalogue.h"

#include <vector>

namespace pistaro {

/// The places in a circuit, both given by rows of the catalogue, of pieces that are others than in the other one: all
/// but those that both have in runs of six pieces or more of the same shapes, anywhere around a lap. -1 is a piece of
/// no row.
std::vector<int> PiecesUnlike(const Catalogue& catalogue, const std::vector<int>& circuit,
                              const std::vector<int>& other);

} // namespace pistaro

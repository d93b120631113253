// What of a circuit is not as in another one.
#pragma once

#include <vector>

namespace pistaro {

/// The places in a circuit, both given by rows of the catalogue, whose pieces lie in no run that the other one has too:
/// runs of six pieces or more, anywhere around a lap.
std::vector<int> PiecesUnlike(const std::vector<int>& circuit, const std::vector<int>& other);

} // namespace pistaro

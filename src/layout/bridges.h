// Which pieces of a circuit pass over others.
#pragma once

#include "catalogue/catalogue.h"
#include "model/circuit.h"

#include <set>

namespace pistaro {

/// Of two pieces that cover the same ground, the one that is made to be passed under, else the one drawn later, as the
/// chosen track is. What only follows on another in its track, from the last piece to the first, too, is no bridge.
std::set<PieceAddress> BridgesOf(const Catalogue& catalogue, const Circuit& circuit, int currentTrack);

} // namespace pistaro

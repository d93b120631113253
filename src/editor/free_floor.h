// Where a whole track finds free floor.
#pragma once

#include "catalogue/catalogue.h"
#include "model/design.h"

namespace pistaro {

/// A start at which none of a track's pieces lies over another track's: its own where that is so, else one from which
/// it lies beside all other tracks, turned as it is. Within the room as far as one of their four sides has the place.
BuildCursor FreeStart(const Catalogue& catalogue, const Design& design, int track);

} // namespace pistaro

// What is wrong with a whole track as it lies among the others.
#pragma once

#include "catalogue/catalogue.h"
#include "layout/ground_grid.h"
#include "layout/room_fit.h"
#include "model/design.h"

#include <vector>

namespace pistaro {

struct TrackFaults {
    bool Overlaps = false;  ///< two pieces that are no neighbours, of which one at least is the track's
    bool IsOutside = false; ///< a piece leaves the room
};

class TrackChecks {
public:
    /// The other tracks and the room of a design.
    TrackChecks(const Catalogue& catalogue, const Design& design, int track);

    /// Of a closed track in the place of the design's own.
    TrackFaults FaultsOf(const Track& track) const;

private:
    const Catalogue& catalogue_;
    RoomFit room_;
    std::vector<const CatalogueEntry*> otherPieces_;
    GroundGrid others_;
};

} // namespace pistaro

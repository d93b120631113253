// What lies around the pieces that are to be laid: other pieces, and the room's walls.
#pragma once

#include "catalogue/catalogue.h"
#include "layout/ground_grid.h"
#include "layout/room_fit.h"
#include "model/design.h"
#include "search/closing.h"

#include <vector>

namespace pistaro {

/// What is wrong with a new piece where it lies.
struct Contact {
    bool Overlaps = false;      ///< a piece that is none of its neighbours at either end of the gap
    bool OverlapsLast = false;  ///< the piece before the gap
    bool OverlapsFirst = false; ///< the piece behind it
    bool IsOutside = false;     ///< of the room

    /// Whether it overlaps what it may not, as the first or the last of the new pieces or neither.
    bool IsFault(bool isFirst, bool isLast) const {
        return Overlaps || (OverlapsLast && !isFirst) || (OverlapsFirst && !isLast);
    }
};

class Site {
public:
    /// The pieces of all tracks as they lie, but those in the gap. Before a track's first element lies its last one.
    Site(const Catalogue& catalogue, const Design& design, const TrackPlace& gap);

    Contact ContactOf(const CatalogueEntry& piece, const Ground& ground) const;

private:
    bool IsFreeBridge(int index) const;

    std::vector<const CatalogueEntry*> pieces_;
    GroundGrid grid_;
    RoomFit room_;
    int first_ = -1, last_ = -1; ///< the pieces at the gap
    std::vector<bool> isBridgeTaken_;
};

} // namespace pistaro

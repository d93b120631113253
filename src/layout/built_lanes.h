// The two lanes of a track followed from its first piece to its last, through every change-over, as they are drawn.
#pragma once

#include "catalogue/catalogue.h"
#include "layout/shapes.h"
#include "model/circuit.h"

#include <array>
#include <vector>

namespace pistaro {

/// The lanes through one piece: [0] is the lane that begins the track on the left, [1] that on the right.
struct BuiltPiece {
    std::array<double, 2> Lengths{}; ///< cm; 0 for an unknown code
    bool Swapped = false;            ///< lane [0] enters the piece on the right
};

struct BuiltLanes {
    std::vector<BuiltPiece> Pieces;  ///< by element
    std::array<double, 2> Lengths{}; ///< of one lap, cm
    bool Joined =
        false; ///< an odd number of change-overs: each lane goes on as the other, and meets itself after two laps

    /// After how many laps a car is on the lane that it began on.
    int Laps() const { return Joined ? 2 : 1; }
};

/// The lengths of the lanes' drawn lines and arcs. The catalogue's lengths, which the statistics add, differ for some
/// pieces.
BuiltLanes LanesAsBuilt(const Catalogue& catalogue, const Track& track);

/// The lines and arcs of both lanes round the track, of the same two lanes.
std::array<std::vector<Segment>, 2> LanePaths(const Catalogue& catalogue, const Track& track);

} // namespace pistaro

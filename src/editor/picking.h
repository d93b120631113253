// Which piece lies under a point of the drawing.
#pragma once

#include "catalogue/catalogue.h"
#include "layout/ground_grid.h"
#include "layout/shapes.h"
#include "model/circuit.h"

#include <optional>
#include <vector>

namespace pistaro {

/// The pieces of a circuit by the ground that they cover. It is of the circuit that it was made of: another one takes a
/// new map.
class PickMap {
public:
    PickMap() = default;
    PickMap(const Catalogue& catalogue, const Circuit& circuit);

    /// All pieces whose ground holds the point, edges included, in the order of tracks and elements.
    std::vector<PieceAddress> PiecesAt(WorldPoint point) const;

    /// The piece whose ground alone holds the point.
    std::optional<PieceAddress> OnlyPieceAt(WorldPoint point) const;

private:
    GroundGrid grounds_;
    std::vector<PieceAddress> pieces_; ///< by the index of their ground
};

/// Where a piece of the circuit lies; nothing for one of an unknown code, and where there is none.
std::optional<PiecePlacement> PlacementOf(const Catalogue& catalogue, const Circuit& circuit,
                                          const PieceAddress& piece);

} // namespace pistaro

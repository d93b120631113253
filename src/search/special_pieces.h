// Special pieces in the places of plain ones of their shape.
#pragma once

#include "search/laying_steps.h"
#include "search/piece_box.h"

#include <optional>

namespace pistaro {

/// How many pieces of each shape a circuit can be laid from: the plain ones, and of the special ones those that may
/// stand in a circuit: change-overs and chicanes in pairs, one lap counter, one start. Extensions of chicanes come on
/// top where there is a place for them.
ShapeCounts ShapesOf(const Catalogue& catalogue, const PieceBox& box);

/// A closed circuit of basic pieces, by rows, with as many special ones of the box in their places as it has places
/// for: chicanes complete, change-overs in pairs and where they leave the lanes' lengths least apart. Nothing where
/// plain ones that the box has not got would be left. The first `kept` pieces stay as they are, special or plain; a
/// change-over that is alone among them gets its partner.
std::optional<std::vector<int>> WithSpecialPieces(const Catalogue& catalogue, const PieceBox& box,
                                                  std::vector<int> rows, std::size_t kept = 0);

} // namespace pistaro

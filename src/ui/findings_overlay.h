// How findings show in the drawing, and severities in a list.
#pragma once

#include "checks/finding.h"
#include "imaging/overlay.h"

#include <QIcon>

#include <vector>

namespace pistaro {

/// To be told from the lanes' colours and the stock's blue, on light and dark grounds.
Colour ColourOf(Severity severity);

constexpr int MarkSide = 12; ///< pixels: no higher than a line of text

/// A round, triangular or square mark, so that it needs no colour to be told by.
QIcon IconOf(Severity severity);

/// The pieces that a finding is about, where it was told of a whole track those that make the difference: of lanes that
/// differ its curves. Its first comes first.
std::vector<PieceAddress> PiecesOf(const Catalogue& catalogue, const Circuit& circuit, const Finding& finding);

/// Marks of all findings: the ground that two pieces share hatched, a dashed line across the gap of a track that does
/// not close, a red edge round pieces outside the room; all on a pale casing, since pieces to be bought are red, too.
/// The pieces of the chosen findings are tinted and edged, one like the other.
Overlay FindingsOverlay(const Catalogue& catalogue, const Circuit& circuit, const std::vector<Finding>& findings,
                        const std::vector<const Finding*>& chosen);

} // namespace pistaro

// How findings and lanes show in the drawing.
#pragma once

#include "checks/finding.h"
#include "imaging/overlay.h"

#include <vector>

namespace pistaro {

/// Marks of all findings: the ground that two pieces share hatched, a dashed line across the gap of a track that does
/// not close, a red edge round pieces outside the room. The pieces of the chosen finding, if one is, are tinted.
Overlay FindingsOverlay(const Catalogue& catalogue, const Circuit& circuit, const std::vector<Finding>& findings,
                        const Finding* chosen);

/// Both lanes of each track in colours of their own, round the whole track through every change-over; in one colour
/// where an odd number of change-overs makes them one.
Overlay LanesOverlay(const Catalogue& catalogue, const Circuit& circuit);

} // namespace pistaro

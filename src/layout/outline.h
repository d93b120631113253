// The ground that a piece covers.
#pragma once

#include "layout/placement.h"

#include <vector>

namespace pistaro {

/// The outline of a piece's track bed as a polygon that is not closed by a repeated point: along the reference edge
/// from entry to exit, back along the other one. Arcs become chords of which none strays further than `tolerance` (cm,
/// above 0) from its arc. Marks such as the lap counter's box do not count.
std::vector<WorldPoint> OutlinePolygon(const PiecePlacement& placement, double tolerance);

} // namespace pistaro

// Where a placed piece's middle is, and which way leads across it: by these numbers and marks are placed.
#pragma once

#include "layout/placement.h"

namespace pistaro {

WorldPoint PointBy(double x, double y);
WorldPoint Between(WorldPoint one, WorldPoint other);
double Distance(WorldPoint from, WorldPoint to);

WorldPoint MiddleOfPiece(const PiecePlacement& placement);

/// A unit vector.
struct Way {
    double X = 1, Y = 0;
};

/// From the reference edge to the other one.
Way AcrossEntry(const Corners& corners);
/// Across a piece in its middle.
Way AcrossMiddle(const Corners& corners);

} // namespace pistaro

// How near a placed piece stands to walls and to other track. Curves are followed by chords that stray a few tenths of
// a millimetre at most.
#pragma once

#include "layout/room_fit.h"

#include <optional>

namespace pistaro {

double DistanceFrom(GroundPoint point, const Wall& wall);

/// The distance of a piece from a wall, cm; nothing where that is `reach` or more.
std::optional<double> WallClearance(const Ground& ground, const Wall& wall, double reach);

/// The way that a car which slides straight out of a curve has before it meets the edge of another piece, cm; nothing
/// where that is `reach` or more, and where the two pieces overlap.
std::optional<double> SlideClearance(const Ground& curve, const Ground& other, double reach);

} // namespace pistaro

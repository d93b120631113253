// How near a placed piece stands to walls and to other track. Curves are followed by chords that stray a few tenths of
// a millimetre at most.
#pragma once

#include "layout/room_fit.h"

#include <optional>
#include <vector>

namespace pistaro {

double DistanceFrom(GroundPoint point, const Wall& wall);

/// The distance of a piece from a wall, cm; nothing where that is `reach` or more.
std::optional<double> WallClearance(const Ground& ground, const Wall& wall, double reach);

/// A straight part of a piece's outline.
struct Edge {
    GroundPoint From, To;
};

/// The outline of a piece, arcs as chords.
std::vector<Edge> EdgesOf(const Ground& ground);

/// The way that a car which slides straight out of a curve has before it meets the edge of another piece, cm; nothing
/// where that is `reach` or more, and where the two pieces overlap. The other piece is told by its box and its edges.
std::optional<double> SlideClearance(const Ground& curve, const GroundBox& box, const std::vector<Edge>& edges,
                                     double reach);

} // namespace pistaro

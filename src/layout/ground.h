// The ground that a placed piece covers, in the form that checks and searches compare by the million. It is the track
// bed alone: marks such as the lap counter's box do not count. Lengths in cm, y upwards.
#pragma once

#include "layout/placement.h"

#include <algorithm>
#include <array>
#include <vector>

namespace pistaro {

/// A point in double precision.
struct GroundPoint {
    double X = 0, Y = 0;
};

struct GroundBox {
    double Left = 0, Right = 0, Bottom = 0, Top = 0;

    /// Whether the two share a point.
    bool Meets(const GroundBox& other) const {
        return Left <= other.Right && other.Left <= Right && Bottom <= other.Top && other.Bottom <= Top;
    }

    /// The smallest around both.
    GroundBox Joined(const GroundBox& other) const {
        return {std::min(Left, other.Left), std::max(Right, other.Right), std::min(Bottom, other.Bottom),
                std::max(Top, other.Top)};
    }

    /// The same with `margin` more on each side.
    GroundBox Grown(double margin) const { return {Left - margin, Right + margin, Bottom - margin, Top + margin}; }
};

/// A quadrangle, or a curve's sector of a ring.
struct Ground {
    GroundBox Box;
    std::array<GroundPoint, 4>
        Corners; ///< anticlockwise: entry and exit on the other edge between those on the reference edge
    bool IsCurved = false;
    GroundPoint Centre; ///< from here on of a curve
    double InnerRadius = 0, OuterRadius = 0;
    double Turn = 0;                ///< radians, below pi
    Direction From{1, 0}, To{1, 0}; ///< from the centre to the sector's two ends, anticlockwise
};

/// The ground of a placed piece.
Ground GroundOf(const PiecePlacement& placement);

/// The grounds of a track's pieces, in their order.
std::vector<Ground> GroundsOf(const Catalogue& catalogue, const Track& track);

/// The grounds of the pieces of all tracks but this one.
std::vector<Ground> GroundsBeside(const Catalogue& catalogue, const Circuit& circuit, int track);

/// A point in its midst.
GroundPoint MiddleOf(const Ground& ground);

/// Whether a point lies on the ground, edges included.
bool Covers(const Ground& ground, GroundPoint point);

} // namespace pistaro

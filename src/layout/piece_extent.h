// How far a piece reaches on each side: what its picture must show.
#pragma once

#include "layout/placement.h"

namespace pistaro {

/// The box around a piece, cm, y upwards.
struct PieceExtent {
    float Left, Right, Bottom, Top;

    WorldPoint Middle() const { return {(Left + Right) / 2, (Bottom + Top) / 2}; }
};

/// The box around the end points of a placed piece's lines and arcs. That is the whole piece where it is entered along
/// an axis, as pictures show it: no arc passes an axis then, and ellipses are marks inside the outline.
PieceExtent ExtentOf(const PiecePlacement& placement);

} // namespace pistaro

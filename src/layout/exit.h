// Where a piece leads to, and nothing else: what a search asks millions of times, and therefore in line. Computed in
// double; what is named is rounded to single, and what follows from a named value follows from the rounded one.
#pragma once

#include "catalogue/piece_kind.h"
#include "layout/angles.h"
#include "layout/direction.h"
#include "model/circuit.h"

namespace pistaro {

/// A cursor with the direction of its heading, which is the costly part of laying the next piece.
struct Pose : BuildCursor {
    Pose(const BuildCursor& cursor = {}) : Pose(cursor, Towards(cursor.CursorHeading)) {}
    Pose(const BuildCursor& cursor, Direction across) : BuildCursor(cursor), Across(across) {}

    Direction Across; ///< the heading as a vector: from the reference edge to the other
};

/// How a curve lies: around its centre, which is not rounded to single as that would add its error to the chain's at
/// every piece.
struct CurveFrame {
    double CentreX, CentreY;
    double Side;            ///< 1 to the left, -1 to the right: the centre's side, and the way the heading turns
    double ReferenceRadius; ///< of the reference edge: a right-hand curve's outer one, a left-hand curve's inner one
    double OtherRadius;
};

inline CurveFrame CurveFrameOf(const PieceKind& curve, const Pose& entry) {
    const bool right = curve.Shape == PieceShape::RightCurve;
    const double side = right ? -1 : 1;
    const double reference = right ? curve.OuterRadius : curve.InnerRadius;
    const double other = right ? curve.InnerRadius : curve.OuterRadius;
    return {entry.CursorX - side * reference * entry.Across.X, entry.CursorY - side * reference * entry.Across.Y, side,
            reference, other};
}

/// The pose after a piece of this kind, whatever stands before it: to the bit the exit that PlacePiece gives.
inline Pose ExitOf(const PieceKind& kind, const Pose& entry) {
    if (kind.Shape == PieceShape::Straight) {
        return {{static_cast<float>(entry.CursorX - kind.Length * entry.Across.Y),
                 static_cast<float>(entry.CursorY + kind.Length * entry.Across.X), entry.CursorHeading},
                entry.Across};
    }
    const CurveFrame frame = CurveFrameOf(kind, entry);
    const float heading = NormaliseAngle(static_cast<float>(double{entry.CursorHeading} + frame.Side * kind.Turn));
    const Direction across = Towards(heading);
    return {{static_cast<float>(frame.CentreX + frame.Side * frame.ReferenceRadius * across.X),
             static_cast<float>(frame.CentreY + frame.Side * frame.ReferenceRadius * across.Y), heading},
            across};
}

} // namespace pistaro

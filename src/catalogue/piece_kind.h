// How a kind of piece is laid: its shape, its sizes and what marks it.
#pragma once

namespace pistaro {

enum class PieceShape { LeftCurve, RightCurve, Straight };

/// What distinguishes a special straight from a plain one.
enum class PieceMarks {
    None,
    CrossedLanes,   ///< change-over: each lane leads to the other's place
    RoughTerrain,   ///< five ellipses on the centre line
    HumpBackBridge, ///< a second, wider outline
    SkidChicane,    ///< lanes together between the thirds of the length
    NarrowingLanes, ///< standard chicane: lanes from their places to the middle, or back
    LapCounter,     ///< a box beside the reference edge with a round counter
    ReverseStart,   ///< an arrow head across the lanes
    Adapter,        ///< one system's width at the entry, the other's at the exit
};

/// Lengths in cm, angles in radians.
struct PieceKind {
    PieceShape Shape = PieceShape::Straight;
    double Length = 0;        ///< of a straight
    double InnerRadius = 0;   ///< of a curve's inner edge
    double OuterRadius = 0;   ///< of a curve's outer edge
    double Turn = 0;          ///< by which a curve turns the heading
    double FirstArcAngle = 0; ///< from the heading to the arc's first end
    double SwapThreshold = 0; ///< a wider arc than this runs through angle 0 instead
    double Width = 0;         ///< of the track
    double LaneInset = 0;     ///< of each lane from the nearer edge
    PieceMarks Marks = PieceMarks::None;

    bool operator==(const PieceKind&) const = default;
};

} // namespace pistaro

// How each kind of piece is laid: one table of shapes, sizes and marks.
#pragma once

#include <string_view>

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

struct PieceKind {
    std::string_view Code;
    PieceShape Shape;
    double Length;        ///< of a straight, cm
    double InnerRadius;   ///< of a curve's inner edge, cm
    double OuterRadius;   ///< of a curve's outer edge, cm
    double Turn;          ///< by which a curve turns the heading, radians
    double FirstArcAngle; ///< from the heading to the arc's first end, radians
    double SwapThreshold; ///< a wider arc than this runs through angle 0 instead, radians
    double Width;         ///< of the track, cm
    double LaneInset;     ///< of each lane from the nearer edge, cm
    PieceMarks Marks = PieceMarks::None;
};

/// The kind of piece that a code names; null for an unknown code.
const PieceKind* FindPieceKind(std::string_view code);

} // namespace pistaro

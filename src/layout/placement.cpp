// The two shapes, curve and straight, and the special pieces' marks. Computed in double; what is named is rounded, and
// what follows from a corner follows from the rounded one.
#include "layout/placement.h"

#include "catalogue/track_geometry.h"
#include "layout/angles.h"
#include "layout/exit.h"

#include <cmath>

namespace pistaro {

namespace {

using G = TrackGeometry;

/// An arc that exceeds its kind's threshold only by rounding still runs the short way round.
constexpr double ThresholdTolerance = 0.001;

/// A point that is not stored.
struct ExactPoint {
    double X, Y;
};

ExactPoint Moved(ExactPoint from, double distance, Direction direction) {
    return {from.X + distance * direction.X, from.Y + distance * direction.Y};
}

WorldPoint Rounded(ExactPoint point) { return {static_cast<float>(point.X), static_cast<float>(point.Y)}; }

/// A straight's own coordinates: so far along the travel, so far across from the reference edge.
class StraightFrame {
public:
    explicit StraightFrame(const Pose& entry) : origin_{entry.CursorX, entry.CursorY}, across_(entry.Across) {}

    /// The point so far from the entry.
    WorldPoint At(double along, double across) const { return From(origin_, along, across); }

    /// The point so far from another one.
    WorldPoint From(WorldPoint point, double along, double across) const {
        return {static_cast<float>(point.X - along * across_.Y + across * across_.X),
                static_cast<float>(point.Y + along * across_.X + across * across_.Y)};
    }

private:
    WorldPoint origin_;
    Direction across_;
};

WorldPoint LabelOf(const Corners& corners) {
    const WorldPoint exit = corners.Exit;
    const WorldPoint entry = corners.OtherEntry;
    return {static_cast<float>((double{entry.X} - exit.X) / 2 + (double{exit.X} - 5)),
            static_cast<float>((double{entry.Y} - exit.Y) / 2 + (double{exit.Y} + 4))};
}

struct ArcAngles {
    float Start, End;
};

ArcAngles ShortWayRound(double first, double second, double swapThreshold) {
    const float a = NormaliseAngle(static_cast<float>(first));
    const float b = NormaliseAngle(static_cast<float>(second));
    const ArcAngles angles{MinSingle(a, b), MaxSingle(a, b)};
    if (double{angles.End} - angles.Start > swapThreshold + ThresholdTolerance) return {angles.End, angles.Start};
    return angles;
}

PiecePlacement PlaceCurve(const PieceKind& kind, const Pose& entry) {
    const CurveFrame frame = CurveFrameOf(kind, entry);
    const Pose exit = ExitOf(kind, entry);
    const double heading = entry.CursorHeading;
    const ExactPoint corner1{entry.CursorX, entry.CursorY};
    const ExactPoint centre{frame.CentreX, frame.CentreY};
    const double beside = frame.Side < 0 ? PiValue : 0;
    const ArcAngles angles = ShortWayRound(heading + kind.FirstArcAngle, heading + beside, kind.SwapThreshold);

    PiecePlacement placement;
    placement.Corners = {Rounded(corner1),
                         {exit.CursorX, exit.CursorY},
                         Rounded(Moved(centre, frame.Side * frame.OtherRadius, exit.Across)),
                         Rounded(Moved(corner1, kind.Width, entry.Across))};
    placement.Exit = exit;
    placement.Label = LabelOf(placement.Corners);

    const auto arc = [&](double radius) { return ArcSegment{Rounded(centre), radius, angles.Start, angles.End}; };
    const bool left = frame.Side > 0;
    Lane& inner = placement.Lanes[0];
    Lane& outer = placement.Lanes[1];
    inner.Side = left ? LaneSide::Left : LaneSide::Right;
    outer.Side = left ? LaneSide::Right : LaneSide::Left;
    inner.Path.Add(arc(kind.InnerRadius + kind.LaneInset));
    outer.Path.Add(arc(kind.OuterRadius - kind.LaneInset));
    placement.Outline.Add(arc(kind.InnerRadius));
    placement.Outline.Add(arc(kind.OuterRadius));
    placement.Outline.Add(LineSegment{placement.Corners.OtherEntry, placement.Corners.Entry});
    placement.Outline.Add(LineSegment{placement.Corners.Exit, placement.Corners.OtherExit});
    return placement;
}

/// Width and lane inset at one end of a straight.
struct End {
    double Width, LaneInset;
};

struct Ends {
    End Entry, Exit;
};

Ends EndsOf(const PieceKind& kind, const Predecessor& before) {
    const End plain{kind.Width, kind.LaneInset};
    if (kind.Marks == PieceMarks::Adapter) {
        const End ninco{G::NincoWidth, G::NincoLaneInset};
        return before.IsNinco ? Ends{ninco, plain} : Ends{plain, ninco};
    }
    if (kind.Marks == PieceMarks::NarrowingLanes) {
        const End narrow{kind.Width, G::ChicaneLaneInset};
        return before.LanesTogether ? Ends{narrow, plain} : Ends{plain, narrow};
    }
    return {plain, plain};
}

void AddLanes(PiecePlacement& placement, const StraightFrame& frame, const PieceKind& kind, const Ends& ends) {
    Lane& left = placement.Lanes[0];
    Lane& right = placement.Lanes[1];
    left.Side = LaneSide::Left;
    right.Side = LaneSide::Right;
    const double left1 = ends.Entry.LaneInset;
    const double left2 = ends.Exit.LaneInset;
    const double right1 = ends.Entry.Width - ends.Entry.LaneInset;
    const double right2 = ends.Exit.Width - ends.Exit.LaneInset;
    const auto addLine = [&](Lane& lane, double fromAlong, double fromAcross, double toAlong, double toAcross) {
        lane.Path.Add(LineSegment{frame.At(fromAlong, fromAcross), frame.At(toAlong, toAcross)});
    };
    const auto addNarrowed = [&](Lane& lane, double entry, double narrow, double exit) {
        const double third = kind.Length / 3;
        addLine(lane, 0, entry, third, narrow);
        addLine(lane, third, narrow, 2 * third, narrow);
        addLine(lane, 2 * third, narrow, kind.Length, exit);
    };
    if (kind.Marks == PieceMarks::SkidChicane) {
        addNarrowed(left, left1, G::ChicaneLaneInset, left2);
        addNarrowed(right, right1, kind.Width - G::ChicaneLaneInset, right2);
    } else {
        const bool crossed = kind.Marks == PieceMarks::CrossedLanes;
        addLine(left, 0, left1, kind.Length, crossed ? right2 : left2);
        addLine(right, 0, right1, kind.Length, crossed ? left2 : right2);
    }
}

/// The four sides of a rectangle, or nearly one, from corner to corner.
std::array<LineSegment, 4> SidesOf(const Corners& corners) {
    return {LineSegment{corners.Entry, corners.Exit}, LineSegment{corners.Exit, corners.OtherExit},
            LineSegment{corners.OtherExit, corners.OtherEntry}, LineSegment{corners.OtherEntry, corners.Entry}};
}

void AddMarks(PiecePlacement& placement, const StraightFrame& frame, const PieceKind& kind) {
    const double length = kind.Length;
    const double width = kind.Width;
    const auto add = [&](Ink ink, const Shape& shape) { placement.Marks.Add({ink, shape}); };
    const auto addRectangle = [&](double fromAcross, double toAcross) {
        const Corners corners{frame.At(0, fromAcross), frame.At(length, fromAcross), frame.At(length, toAcross),
                              frame.At(0, toAcross)};
        for (const LineSegment& side : SidesOf(corners))
            add(Ink::Outline, side);
    };
    switch (kind.Marks) {
    case PieceMarks::RoughTerrain:
        for (int sixth = 1; sixth <= 5; ++sixth)
            add(Ink::Rail, Ellipse{frame.At(length - length * sixth / 6, width * 0.5), 3.5, 0.3});
        break;
    case PieceMarks::HumpBackBridge:
        addRectangle(0, width + 4.0);
        break;
    case PieceMarks::LapCounter:
        addRectangle(-0.8 * width, width);
        add(Ink::Rail, Ellipse{frame.At(length / 2, -0.4 * width), 2.3, 1});
        break;
    case PieceMarks::ReverseStart: {
        const WorldPoint tip = frame.At(length * 2 / 3, width * 0.5);
        const double base = length - length * 2 / 3;
        add(Ink::Rail, LineSegment{frame.At(base, kind.LaneInset), tip});
        add(Ink::Rail, LineSegment{tip, frame.At(base, width - kind.LaneInset)});
        break;
    }
    case PieceMarks::None:
    case PieceMarks::CrossedLanes:
    case PieceMarks::SkidChicane:
    case PieceMarks::NarrowingLanes:
    case PieceMarks::Adapter:
        break; // their lanes tell them apart
    }
}

PiecePlacement PlaceStraight(const PieceKind& kind, const Pose& entry, const Predecessor& before) {
    const StraightFrame frame(entry);
    const Ends ends = EndsOf(kind, before);

    PiecePlacement placement;
    placement.Exit = ExitOf(kind, entry);
    const WorldPoint exit{placement.Exit.CursorX, placement.Exit.CursorY};
    const WorldPoint otherExit = frame.From(exit, 0, ends.Exit.Width);
    const WorldPoint otherEntry = frame.From(otherExit, -kind.Length, ends.Entry.Width - ends.Exit.Width);
    placement.Corners = {frame.At(0, 0), exit, otherExit, otherEntry};
    placement.Label = LabelOf(placement.Corners);

    AddLanes(placement, frame, kind, ends);
    for (const LineSegment& side : SidesOf(placement.Corners))
        placement.Outline.Add(side);
    AddMarks(placement, frame, kind);
    return placement;
}

} // namespace

Predecessor PredecessorOf(std::string_view code, const CatalogueEntry* piece) {
    return {IsOfSystem(code, TrackSystem::Ninco),
            piece != nullptr && (piece->IsChicane() || piece->IsChicaneExtension())};
}

PiecePlacement PlacePiece(const PieceKind& kind, const Pose& entry, const Predecessor& before) {
    return kind.Shape == PieceShape::Straight ? PlaceStraight(kind, entry, before) : PlaceCurve(kind, entry);
}

std::optional<PiecePlacement> PlacePiece(const Catalogue& catalogue, std::string_view code, const BuildCursor& cursor,
                                         std::string_view previousCode) {
    const CatalogueEntry* const piece = catalogue.Find(code);
    if (piece == nullptr) return std::nullopt;
    return PlacePiece(piece->Kind, cursor, PredecessorOf(previousCode, catalogue.Find(previousCode)));
}

} // namespace pistaro

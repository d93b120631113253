// The two shapes, curve and straight, and the special pieces' marks. Computed in double; what is named is rounded, and
// what follows from a corner follows from the rounded one.
#include "render/placement.h"

#include "catalogue/catalogue.h"
#include "catalogue/special_pieces.h"
#include "catalogue/track_geometry.h"
#include "render/angles.h"

#include <cassert>
#include <cmath>

namespace pistaro {

namespace {

using G = TrackGeometry;

/// An arc that exceeds its kind's threshold only by rounding still runs the short way round.
constexpr double ThresholdTolerance = 0.001;

struct Direction {
    double X, Y;
};

Direction Towards(double heading) { return {std::cos(heading), std::sin(heading)}; }

/// A point that is not stored: a curve's centre rounded to single would add its error to the chain's at every piece.
struct ExactPoint {
    double X, Y;
};

ExactPoint Moved(ExactPoint from, double distance, Direction direction) {
    return {from.X + distance * direction.X, from.Y + distance * direction.Y};
}

WorldPoint Rounded(ExactPoint point) { return {static_cast<float>(point.X), static_cast<float>(point.Y)}; }

/// The picture's own coordinates of a straight: so far along the travel, so far across from the reference edge.
class StraightFrame {
public:
    explicit StraightFrame(const BuildCursor& cursor)
        : origin_{cursor.CursorX, cursor.CursorY}, across_(Towards(cursor.CursorHeading)) {}

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

WorldPoint LabelOf(const std::array<WorldPoint, 4>& corners) {
    const WorldPoint exit = corners[1];
    const WorldPoint entry = corners[3];
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

PiecePlacement PlaceCurve(const PieceKind& kind, const BuildCursor& cursor) {
    const bool right = kind.Shape == PieceShape::RightCurve;
    const double heading = cursor.CursorHeading;
    const ExactPoint corner1{cursor.CursorX, cursor.CursorY};
    const Direction across = Towards(heading);

    // The reference edge is the outer one of a right-hand curve and the inner one of a left-hand curve: both end on the
    // side of the centre that the turn asks for.
    const double side = right ? -1 : 1;
    const double referenceRadius = right ? kind.OuterRadius : kind.InnerRadius;
    const double otherRadius = right ? kind.InnerRadius : kind.OuterRadius;
    const ExactPoint centre = Moved(corner1, -side * referenceRadius, across);
    const double beside = right ? PiValue : 0;
    const ArcAngles angles = ShortWayRound(heading + kind.FirstArcAngle, heading + beside, kind.SwapThreshold);
    const float exitHeading = NormaliseAngle(static_cast<float>(heading + side * kind.Turn));
    const Direction exitAcross = Towards(exitHeading);

    PiecePlacement placement;
    placement.Corners = {Rounded(corner1), Rounded(Moved(centre, side * referenceRadius, exitAcross)),
                         Rounded(Moved(centre, side * otherRadius, exitAcross)),
                         Rounded(Moved(corner1, kind.Width, across))};
    placement.Exit = {placement.Corners[1].X, placement.Corners[1].Y, exitHeading};
    placement.Label = LabelOf(placement.Corners);

    const auto addArc = [&](Ink ink, double radius) {
        placement.Drawing.Add(ink, ArcStroke{Rounded(centre), radius, angles.Start, angles.End});
    };
    addArc(Ink::Rail, kind.InnerRadius + kind.LaneInset);
    addArc(Ink::Rail, kind.OuterRadius - kind.LaneInset);
    addArc(Ink::Outline, kind.InnerRadius);
    addArc(Ink::Outline, kind.OuterRadius);
    placement.Drawing.Add(Ink::Outline, LineStroke{placement.Corners[3], placement.Corners[0]});
    placement.Drawing.Add(Ink::Outline, LineStroke{placement.Corners[1], placement.Corners[2]});
    return placement;
}

/// Width and lane inset at one end of a straight.
struct End {
    double Width, LaneInset;
};

struct Ends {
    End Entry, Exit;
};

Ends EndsOf(const PieceKind& kind, std::string_view previousCode) {
    const End plain{kind.Width, kind.LaneInset};
    if (kind.Marks == PieceMarks::Adapter) {
        const End ninco{G::NincoWidth, G::NincoLaneInset};
        return IsOfSystem(previousCode, TrackSystem::Ninco) ? Ends{ninco, plain} : Ends{plain, ninco};
    }
    if (kind.Marks == PieceMarks::NarrowingLanes) {
        const End narrow{kind.Width, G::ChicaneLaneInset};
        const bool leadsOut = IsChicane(previousCode) || IsChicaneExtension(previousCode);
        return leadsOut ? Ends{narrow, plain} : Ends{plain, narrow};
    }
    return {plain, plain};
}

void AddLanes(Strokes& drawing, const StraightFrame& frame, const PieceKind& kind, const Ends& ends) {
    const double lane1[]{ends.Entry.LaneInset, ends.Exit.LaneInset};
    const double lane2[]{ends.Entry.Width - ends.Entry.LaneInset, ends.Exit.Width - ends.Exit.LaneInset};
    const auto addLine = [&](double fromAlong, double fromAcross, double toAlong, double toAcross) {
        drawing.Add(Ink::Rail, LineStroke{frame.At(fromAlong, fromAcross), frame.At(toAlong, toAcross)});
    };
    if (kind.Marks == PieceMarks::CrossedLanes) {
        addLine(0, lane1[0], kind.Length, lane2[1]);
        addLine(0, lane2[0], kind.Length, lane1[1]);
    } else if (kind.Marks == PieceMarks::SkidChicane) {
        const double third = kind.Length / 3;
        const double narrow1 = G::ChicaneLaneInset;
        const double narrow2 = kind.Width - G::ChicaneLaneInset;
        addLine(0, lane1[0], third, narrow1);
        addLine(third, narrow1, 2 * third, narrow1);
        addLine(2 * third, narrow1, kind.Length, lane1[1]);
        addLine(0, lane2[0], third, narrow2);
        addLine(third, narrow2, 2 * third, narrow2);
        addLine(2 * third, narrow2, kind.Length, lane2[1]);
    } else {
        addLine(0, lane1[0], kind.Length, lane1[1]);
        addLine(0, lane2[0], kind.Length, lane2[1]);
    }
}

void AddOutline(Strokes& drawing, const std::array<WorldPoint, 4>& corners) {
    for (std::size_t i = 0; i < corners.size(); ++i) {
        drawing.Add(Ink::Outline, LineStroke{corners[i], corners[(i + 1) % corners.size()]});
    }
}

/// A rectangle of the piece's length between two distances from the reference edge.
void AddRectangle(Strokes& drawing, const StraightFrame& frame, double length, double fromAcross, double toAcross) {
    AddOutline(drawing, {frame.At(0, fromAcross), frame.At(length, fromAcross), frame.At(length, toAcross),
                         frame.At(0, toAcross)});
}

void AddMarks(Strokes& drawing, const StraightFrame& frame, const PieceKind& kind) {
    const double length = kind.Length;
    const double width = kind.Width;
    switch (kind.Marks) {
    case PieceMarks::RoughTerrain:
        for (int sixth = 1; sixth <= 5; ++sixth) {
            drawing.Add(Ink::Rail, EllipseStroke{frame.At(length - length * sixth / 6, width * 0.5), 3.5, 0.3});
        }
        break;
    case PieceMarks::HumpBackBridge:
        AddRectangle(drawing, frame, length, 0, width + 4.0);
        break;
    case PieceMarks::LapCounter:
        AddRectangle(drawing, frame, length, -0.8 * width, width);
        drawing.Add(Ink::Rail, EllipseStroke{frame.At(length / 2, -0.4 * width), 2.3, 1});
        break;
    case PieceMarks::ReverseStart: {
        const WorldPoint tip = frame.At(length * 2 / 3, width * 0.5);
        const double base = length - length * 2 / 3;
        drawing.Add(Ink::Rail, LineStroke{frame.At(base, kind.LaneInset), tip});
        drawing.Add(Ink::Rail, LineStroke{tip, frame.At(base, width - kind.LaneInset)});
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

PiecePlacement PlaceStraight(const PieceKind& kind, const BuildCursor& cursor, std::string_view previousCode) {
    const StraightFrame frame(cursor);
    const Ends ends = EndsOf(kind, previousCode);

    PiecePlacement placement;
    const WorldPoint corner2 = frame.At(kind.Length, 0);
    const WorldPoint corner3 = frame.From(corner2, 0, ends.Exit.Width);
    const WorldPoint corner4 = frame.From(corner3, -kind.Length, ends.Entry.Width - ends.Exit.Width);
    placement.Corners = {frame.At(0, 0), corner2, corner3, corner4};
    placement.Exit = {placement.Corners[1].X, placement.Corners[1].Y, cursor.CursorHeading};
    placement.Label = LabelOf(placement.Corners);

    AddLanes(placement.Drawing, frame, kind, ends);
    AddOutline(placement.Drawing, placement.Corners);
    AddMarks(placement.Drawing, frame, kind);
    return placement;
}

} // namespace

void Strokes::Add(Ink ink, const std::variant<LineStroke, ArcStroke, EllipseStroke>& shape) {
    assert(count_ < strokes_.size());
    strokes_[count_++] = {ink, shape};
}

PiecePlacement PlacePiece(const PieceKind& kind, const BuildCursor& cursor, std::string_view previousCode) {
    if (kind.Shape == PieceShape::Straight) return PlaceStraight(kind, cursor, previousCode);
    return PlaceCurve(kind, cursor);
}

std::optional<PiecePlacement> PlacePiece(std::string_view code, const BuildCursor& cursor,
                                         std::string_view previousCode) {
    const PieceKind* const kind = FindPieceKind(code);
    if (kind == nullptr) return std::nullopt;
    return PlacePiece(*kind, cursor, previousCode);
}

} // namespace pistaro

#include "imaging/track_numbers.h"

#include "layout/ground.h"

#include <QFontMetricsF>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

constexpr Colour NumberColour = Rgb(255, 255, 255);
constexpr Colour NumberHalo = Rgb(0x20, 0x23, 0x27);
constexpr double HaloWidth = 3;  ///< pixels, of its pen
constexpr double Overlap = 0.85; ///< of a number's half that must keep clear of a lane: its corners may touch it
constexpr double Aside = 9;      ///< pixels from a piece's edge to the middle of a number beside it

double Distance(GroundPoint from, WorldPoint to) { return std::hypot(from.X - to.X, from.Y - to.Y); }

/// From a point to a line, or to an arc's circle.
double DistanceTo(const Segment& segment, GroundPoint point) {
    if (const auto* const arc = std::get_if<ArcSegment>(&segment))
        return std::fabs(Distance(point, arc->Centre) - arc->Radius);
    const auto& line = std::get<LineSegment>(segment);
    const double dx = double{line.To.X} - line.From.X;
    const double dy = double{line.To.Y} - line.From.Y;
    const double squared = dx * dx + dy * dy;
    const double along = squared == 0 ? 0 : ((point.X - line.From.X) * dx + (point.Y - line.From.Y) * dy) / squared;
    const double part = std::clamp(along, 0.0, 1.0);
    return std::hypot(line.From.X + part * dx - point.X, line.From.Y + part * dy - point.Y);
}

/// How near the lanes come to a point, cm.
double LaneDistance(const PiecePlacement& placement, GroundPoint point) {
    double nearest = Distance(point, placement.Corners.Entry);
    for (const Lane& lane : placement.Lanes)
        for (const Segment& segment : lane.Path)
            nearest = std::min(nearest, DistanceTo(segment, point));
    return nearest;
}

/// A unit vector across the piece, away from the reference edge.
QPointF Across(const Corners& corners) {
    const QPointF middle((double{corners.Entry.X} + corners.Exit.X) / 2,
                         (double{corners.Entry.Y} + corners.Exit.Y) / 2);
    const QPointF other((double{corners.OtherEntry.X} + corners.OtherExit.X) / 2,
                        (double{corners.OtherEntry.Y} + corners.OtherExit.Y) / 2);
    const QPointF way = other - middle;
    const double length = std::hypot(way.x(), way.y());
    return length == 0 ? QPointF(1, 0) : way / length;
}

} // namespace

void PaintNumber(const StandingPiece& piece, Colour background, QPainter& painter, const PainterSurface& surface) {
    const Ground ground = GroundOf(piece.Placement);
    const GroundPoint middle = MiddleOf(ground);
    WorldPoint place{static_cast<float>(middle.X), static_cast<float>(middle.Y)};
    const QString text = QString::number(piece.Element);
    const QFontMetricsF metrics(painter.font());
    const QPointF across = Across(piece.Placement.Corners);
    const double half =
        (std::fabs(across.x()) * metrics.horizontalAdvance(text) + std::fabs(across.y()) * metrics.capHeight()) /
        2; // of what it takes across the track
    const bool isClear = LaneDistance(piece.Placement, middle) * surface.DotsPerCm() > Overlap * half;
    if (!isClear) {
        const double breadth = Distance({piece.Placement.Corners.Entry.X, piece.Placement.Corners.Entry.Y},
                                        piece.Placement.Corners.OtherEntry);
        const double way = breadth / 2 + (Aside + half / 2) / surface.DotsPerCm();
        place = {static_cast<float>(middle.X + way * across.x()), static_cast<float>(middle.Y + way * across.y())};
    }
    if (!surface.Shows(place, metrics.horizontalAdvance(text) / surface.DotsPerCm())) return;
    QPainterPath path;
    path.addText(surface.PlaceOf(place) - QPointF(metrics.horizontalAdvance(text) / 2, -metrics.capHeight() / 2),
                 painter.font(), text);
    const Colour halo = isClear ? NumberHalo : background;
    const Colour ink = isClear ? NumberColour : TextColourOn(background);
    painter.strokePath(path, QPen(ToQColor(halo), HaloWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(path, ToQColor(ink));
}

} // namespace pistaro

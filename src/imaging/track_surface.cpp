#include "imaging/track_surface.h"

#include "layout/ground_grid.h"
#include "layout/outline.h"
#include "layout/overlap.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <set>

namespace pistaro {

namespace {

constexpr double OutlineTolerance = 0.2; ///< pixels that a bed's edge may stray from its arc
constexpr double FarthestPiece = 60;     ///< cm from a piece's middle to its farthest point
constexpr double RailWidth = 1.3;        ///< cm, of both rails with the slot between them
constexpr double SlotWidth = 0.5;
constexpr double KerbWidth = 1.1;
constexpr double ShadowReach = 2.2; ///< cm beside a bridge
constexpr Colour InactiveBed = Rgb(0xA9, 0xAE, 0xB5);
constexpr Colour SlotColour = Rgb(0x20, 0x23, 0x27);
constexpr Colour KerbColour = Rgb(0xD9, 0x3A, 0x32);

Colour Mixed(Colour one, Colour other, double part) {
    const auto mix = [&](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * part)); };
    return Rgb(mix(Red(one), Red(other)), mix(Green(one), Green(other)), mix(Blue(one), Blue(other)));
}

/// A piece of the circuit by its track and element.
using Address = std::pair<int, int>;

/// The pieces that lie over one which is drawn before them and does not touch them in their track.
std::set<Address> BridgesOf(const Catalogue& catalogue, const Project& project) {
    std::vector<Ground> grounds;
    std::vector<Address> addresses;
    const auto add = [&](int track) {
        WalkTrack(catalogue, project.Design.Circuit.Tracks[static_cast<std::size_t>(track)],
                  [&](int element, const PiecePlacement* placement, const BuildCursor&) {
                      if (placement == nullptr) return;
                      grounds.push_back(GroundOf(*placement));
                      addresses.emplace_back(track, element);
                  });
    };
    const int current = project.EditState.CurrentTrack;
    for (int track = 0; track < TrackCount; ++track)
        if (track != current) add(track);
    if (current != AllTracks) add(current);
    const GroundGrid grid(std::move(grounds));
    const auto follows = [](const Address& piece, const Address& other) {
        return piece.first == other.first && piece.second == other.second + 1;
    };
    std::set<Address> bridges;
    for (std::size_t upper = 0; upper < addresses.size(); ++upper) {
        const Ground& ground = grid.Grounds()[upper];
        const bool alone = grid.ForEachMeeting(ground.Box, [&](int index, const Ground& other) {
            const auto lower = static_cast<std::size_t>(index);
            return lower >= upper || follows(addresses[upper], addresses[lower]) || !Overlaps(ground, other);
        });
        if (!alone) bridges.insert(addresses[upper]);
    }
    return bridges;
}

/// Draws what lies under each piece's lines.
class BedPainter {
public:
    BedPainter(const Catalogue& catalogue, const Project& project, QPainter& painter, PainterSurface& surface)
        : colours_(project.Preferences.Colours), bridges_(BridgesOf(catalogue, project)), painter_(painter),
          surface_(surface), scale_(surface.DotsPerCm()) {}

    void operator()(const StandingPiece& piece) {
        if (!surface_.Shows(piece.Placement.Corners.Entry, FarthestPiece)) return;
        const QPolygonF bed = BedOf(piece.Placement);
        if (bridges_.contains({piece.Track, piece.Element})) PaintShadow(bed);
        PaintBed(painter_, bed, piece.Standing, colours_);
        PaintKerb(piece.Placement);
        for (const Lane& lane : piece.Placement.Lanes)
            PaintLane(lane, piece.Standing);
        if (piece.Element == 0) PaintStart(piece.Placement);
        if (piece.Standing != PieceStanding::Inactive) PaintEdges(piece);
        surface_.SetPen({1, PenWidth::Unit::Pixels});
        surface_.ForgetPen();
        painter_.setBrush(Qt::NoBrush);
    }

private:
    QPolygonF BedOf(const PiecePlacement& placement) const {
        QPolygonF bed;
        for (const WorldPoint point : OutlinePolygon(placement, OutlineTolerance / scale_))
            bed << surface_.PlaceOf(point);
        return bed;
    }

    void PaintShadow(const QPolygonF& bed) {
        painter_.setPen(QPen(QColor(0, 0, 0, 90), 2 * ShadowReach * scale_, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
        painter_.setBrush(Qt::NoBrush);
        painter_.drawPolygon(bed);
    }

    void Stroke(const Segment& segment, Colour colour, double pixels, bool dashed = false) {
        surface_.SetPen({pixels, PenWidth::Unit::Pixels});
        surface_.SetDashed(dashed);
        std::visit([&](const auto& shape) { surface_.Draw(shape, colour); }, segment);
        surface_.SetDashed(false);
    }

    void PaintLane(const Lane& lane, PieceStanding standing) {
        const Colour rail = lane.Side == LaneSide::Left ? LeftLaneColour : RightLaneColour;
        surface_.ForgetPen();
        painter_.setBrush(Qt::NoBrush);
        for (const Segment& segment : lane.Path) {
            Stroke(segment, standing == PieceStanding::Inactive ? Mixed(rail, InactiveBed, 0.5) : rail,
                   std::max(2.2, RailWidth * scale_));
            if (SlotWidth * scale_ > 1) Stroke(segment, SlotColour, SlotWidth * scale_);
        }
    }

    /// Along the outer edge of a curve: white with red.
    void PaintKerb(const PiecePlacement& placement) {
        const auto* const outer = std::get_if<ArcSegment>(&placement.Outline[1]);
        if (outer == nullptr || std::get_if<ArcSegment>(&placement.Outline[0]) == nullptr) return;
        ArcSegment kerb = *outer;
        kerb.Radius -= KerbWidth / 2;
        const double pixels = std::max(2.0, KerbWidth * scale_);
        surface_.ForgetPen();
        painter_.setBrush(Qt::NoBrush);
        Stroke(kerb, Rgb(255, 255, 255), pixels);
        Stroke(kerb, KerbColour, pixels, true);
    }

    WorldPoint Between(WorldPoint a, WorldPoint b, double part) const {
        return {static_cast<float>(a.X + (double{b.X} - a.X) * part),
                static_cast<float>(a.Y + (double{b.Y} - a.Y) * part)};
    }

    /// The chequered line across the track, and an arrow the way the cars go.
    void PaintStart(const PiecePlacement& placement) {
        constexpr int squares = 10;
        constexpr double side = 1.55; // cm
        const Corners& corners = placement.Corners;
        const double heading =
            std::atan2(double{corners.OtherEntry.Y} - corners.Entry.Y, double{corners.OtherEntry.X} - corners.Entry.X);
        painter_.save();
        painter_.translate(surface_.PlaceOf(corners.Entry));
        painter_.rotate(-heading * 180 / PiValue);
        painter_.scale(scale_, scale_);
        painter_.setPen(Qt::NoPen);
        const double width =
            std::hypot(double{corners.OtherEntry.X} - corners.Entry.X, double{corners.OtherEntry.Y} - corners.Entry.Y);
        const double step = width / squares;
        painter_.fillRect(QRectF(0, -2 * side, width, 2 * side), Qt::white);
        for (int column = 0; column < squares; ++column)
            painter_.fillRect(QRectF(column * step, -side * (1 + column % 2), step, side), Qt::black);
        painter_.setBrush(Qt::white);
        const double middle = width / 2;
        painter_.drawPolygon(QPolygonF({QPointF(middle - 1.6, -2 * side - 1.2), QPointF(middle + 1.6, -2 * side - 1.2),
                                        QPointF(middle, -2 * side - 5)}));
        painter_.restore();
    }

    /// Wider than the described line, which comes to lie on it.
    void PaintEdges(const StandingPiece& piece) {
        const double pixels = piece.Standing == PieceStanding::Active ? 5 : 2.5;
        const Colour colour = OutlineColour(piece.Standing, colours_);
        surface_.ForgetPen();
        painter_.setBrush(Qt::NoBrush);
        const bool selected = piece.Standing == PieceStanding::Active;
        // Edges 1 and 3 of a straight run along it, 0 and 1 of a curve: its ends are marked on the selected piece
        // alone.
        const bool curved = std::get_if<ArcSegment>(&piece.Placement.Outline[0]) != nullptr;
        int index = 0;
        for (const Segment& edge : piece.Placement.Outline) {
            const bool along = curved ? index < 2 : index % 2 == 0;
            if (along || selected) Stroke(edge, colour, pixels);
            ++index;
        }
    }

    const ColourScheme& colours_;
    std::set<Address> bridges_;
    QPainter& painter_;
    PainterSurface& surface_;
    double scale_; ///< pixels a cm
};

/// The elements' numbers between the lanes, with a halo that keeps them readable.
void PaintNumber(const StandingPiece& piece, QPainter& painter, const PainterSurface& surface) {
    const GroundPoint middle = MiddleOf(GroundOf(piece.Placement));
    const WorldPoint place{static_cast<float>(middle.X), static_cast<float>(middle.Y)};
    if (!surface.Shows(place, 1)) return;
    const QString text = QString::number(piece.Element);
    const QFontMetricsF metrics(painter.font());
    QPainterPath path;
    path.addText(surface.PlaceOf(place) - QPointF(metrics.horizontalAdvance(text) / 2, -metrics.capHeight() / 2),
                 painter.font(), text);
    painter.strokePath(path, QPen(QColor(0x20, 0x23, 0x27), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(path, Qt::white);
}

} // namespace

Colour RecedingGridColour(Colour background) {
    constexpr double part = 0.16;
    return Mixed(background, TextColourOn(background), part);
}

void PaintBed(QPainter& painter, const QPolygonF& polygon, PieceStanding standing, const ColourScheme& colours) {
    constexpr int tint = 110; // of 255
    const QColor bed = ToQColor(standing == PieceStanding::Inactive ? InactiveBed : AsphaltColour);
    painter.setPen(QPen(bed, 1)); // closes the seam to the next piece
    painter.setBrush(bed);
    painter.drawPolygon(polygon);
    if (standing != PieceStanding::NonOwned && standing != PieceStanding::Active) return;
    QColor ink = ToQColor(OutlineColour(standing, colours));
    ink.setAlpha(tint);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QBrush(ink, standing == PieceStanding::Active ? Qt::SolidPattern : Qt::BDiagPattern));
    painter.drawPolygon(polygon);
}

void DrawCircuitSurface(const Catalogue& catalogue, const Project& project, QPainter& painter,
                        PainterSurface& surface) {
    BedPainter beds(catalogue, project, painter, surface);
    DrawTracks(catalogue, project,
               {.Pieces = true, .Numbers = false, .Under = [&](const StandingPiece& piece) { beds(piece); }}, surface);
    if (project.EditState.ShowNumbers) {
        DrawTracks(catalogue, project,
                   {.Pieces = false,
                    .Numbers = false,
                    .Under = [&](const StandingPiece& piece) { PaintNumber(piece, painter, surface); }},
                   surface);
        surface.ForgetPen();
    }
    DrawRoom(project.Design.Room, surface);
}

} // namespace pistaro

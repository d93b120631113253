#include "imaging/track_surface.h"

#include "imaging/track_numbers.h"
#include "layout/outline.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

constexpr double OutlineTolerance = 0.2; ///< pixels that a bed's edge may stray from its arc
constexpr double FarthestPiece = 60;     ///< cm from a piece's middle to its farthest point
constexpr double LeastSlot = 0.6;        ///< pixels; of a narrower one the rails alone are shown
constexpr double LeastKerb = 1.2;        ///< pixels; a narrower one would be an even tint
constexpr double StripeSpacing = 3.2;    ///< cm
constexpr double LeastStripes = 7;       ///< pixels; closer ones would be an even tint
constexpr double ShadowReach = 2.4;      ///< cm beside a bridge
constexpr double Receding = 0.55;        ///< of the way to the background, for tracks that are not chosen

int Brightness(Colour colour) { return 2 * Red(colour) + 5 * Green(colour) + Blue(colour); }

Colour BedColour(PieceStanding standing, const ColourScheme& colours) {
    return standing == PieceStanding::Inactive ? Mixed(AsphaltColour, colours.Background, Receding) : AsphaltColour;
}

void FillBed(QPainter& painter, const QPolygonF& polygon, PieceStanding standing, const ColourScheme& colours) {
    constexpr double selectedTint = 0.4;
    const Colour plain = BedColour(standing, colours);
    const bool selected = standing == PieceStanding::Active;
    const QColor bed = ToQColor(selected ? Mixed(plain, OutlineColour(standing, colours), selectedTint) : plain);
    painter.setPen(QPen(bed, 1)); // closes the seam to the next piece
    painter.setBrush(bed);
    painter.drawPolygon(polygon);
}

/// Of those on pieces that are not owned: lighter than the bed, too, so that they need no eye for red.
QPen StripePen(const ColourScheme& colours) {
    constexpr double light = 0.4;
    constexpr double part = 0.45;
    const Colour ink = Mixed(OutlineColour(PieceStanding::NonOwned, colours), KerbWhite, light);
    return {ToQColor(Mixed(AsphaltColour, ink, part)), 1, Qt::SolidLine, Qt::FlatCap};
}

/// Slanting stripes over a bed of that length and breadth; `at` gives the place of a point of it, both 0 to 1. Lines
/// cost a tenth of what a brush with a pattern does, and keep their places on the track.
template <typename At>
QList<QLineF> Stripes(double length, double breadth, double spacing, At at) {
    QList<QLineF> stripes;
    const double slant = breadth / length;
    const double step = spacing / length;
    const int count = static_cast<int>(std::lround((1 + slant) / step));
    for (int stripe = 0; stripe < count; ++stripe) {
        const double start = (stripe + 0.5) * step - slant;
        const double from = std::max(0.0, -start / slant);
        const double to = std::min(1.0, (1 - start) / slant);
        if (from < to) stripes.emplace_back(at(start + from * slant, from), at(start + to * slant, to));
    }
    return stripes;
}

/// Draws a piece: its bed, what lies on it, its lines.
class BedPainter {
public:
    BedPainter(const ColourScheme& colours, QPainter& painter, PainterSurface& surface)
        : colours_(colours), painter_(painter), surface_(surface), scale_(surface.DotsPerCm()) {}

    void Paint(const StandingPiece& piece, bool isBridge) {
        if (isBridge) PaintShadow(piece.Placement);
        FillBed(painter_, BedOf(piece.Placement), piece.Standing, colours_);
        if (piece.Standing == PieceStanding::NonOwned) PaintStripes(piece.Placement);
        PaintKerb(piece);
        painter_.setBrush(Qt::NoBrush);
        surface_.ForgetPen();
        for (const Lane& lane : piece.Placement.Lanes)
            PaintLane(lane, piece.Standing);
        PaintEnds(piece);
        if (piece.Element == 0) PaintStart(piece.Placement);
        PaintEdges(piece);
        PaintMarks(piece);
    }

private:
    QPolygonF BedOf(const PiecePlacement& placement) const {
        QPolygonF bed;
        for (const WorldPoint point : OutlinePolygon(placement, OutlineTolerance / scale_))
            bed << surface_.PlaceOf(point);
        return bed;
    }

    void PaintStripes(const PiecePlacement& placement) {
        const double spacing = std::max(StripeSpacing, LeastStripes / scale_);
        painter_.setPen(StripePen(colours_));
        const auto* const inner = std::get_if<ArcSegment>(&placement.Outline[0]);
        const auto* const outer = std::get_if<ArcSegment>(&placement.Outline[1]);
        if (inner != nullptr && outer != nullptr) {
            const double span = SpanOf(*outer);
            const double breadth = outer->Radius - inner->Radius;
            painter_.drawLines(
                Stripes(span * (outer->Radius + inner->Radius) / 2, breadth, spacing, [&](double along, double across) {
                    ArcSegment arc = *inner;
                    arc.Radius += across * breadth;
                    return surface_.PlaceOf(PointAt(arc, outer->Start + along * span));
                }));
            return;
        }
        const QLineF left(surface_.PlaceOf(placement.Corners.Entry), surface_.PlaceOf(placement.Corners.Exit));
        const QLineF right(surface_.PlaceOf(placement.Corners.OtherEntry),
                           surface_.PlaceOf(placement.Corners.OtherExit));
        painter_.drawLines(Stripes(left.length() / scale_, QLineF(left.p1(), right.p1()).length() / scale_, spacing,
                                   [&](double along, double across) {
                                       return QLineF(left.pointAt(along), right.pointAt(along)).pointAt(across);
                                   }));
    }

    /// Of a curve or a straight, that runs along the track.
    static bool RunsAlong(const PiecePlacement& placement, int edge) {
        const bool curved = std::holds_alternative<ArcSegment>(placement.Outline[0]);
        return curved ? edge < 2 : edge % 2 == 0;
    }

    template <typename Visit>
    static void ForEachEdge(const PiecePlacement& placement, bool along, Visit visit) {
        int index = 0;
        for (const Segment& edge : placement.Outline) {
            if (RunsAlong(placement, index++) == along) visit(edge);
        }
    }

    /// Softer the farther it falls. Beside the piece alone: at its ends the track goes on.
    void PaintShadow(const PiecePlacement& placement) {
        constexpr int rings = 3;
        constexpr double shade = 0.22;
        painter_.setBrush(Qt::NoBrush);
        painter_.setOpacity(shade);
        surface_.SetCap(Qt::FlatCap);
        surface_.ForgetPen();
        for (int ring = 1; ring <= rings; ++ring)
            ForEachEdge(placement, true,
                        [&](const Segment& edge) { Stroke(edge, 0, 2 * ShadowReach * scale_ * ring / rings); });
        surface_.SetCap(Qt::SquareCap);
        painter_.setOpacity(1);
    }

    void Stroke(const Segment& segment, Colour colour, double pixels) {
        surface_.SetPen({pixels, PenWidth::Unit::Pixels});
        std::visit([&](const auto& shape) { surface_.Draw(shape, colour); }, segment);
    }

    void PaintLane(const Lane& lane, PieceStanding standing) {
        const Colour bed = BedColour(standing, colours_);
        const Colour full = lane.Side == LaneSide::Left ? LeftLaneColour : RightLaneColour;
        const Colour rail = standing == PieceStanding::Inactive ? Mixed(full, bed, Receding) : full;
        // A slot is dark, also where the rails' colour must be light to be seen beside the tracks.
        const Colour slot = Brightness(colours_.Rail) < Brightness(AsphaltColour) ? colours_.Rail : SlotColour;
        const bool showsSlot = SlotWidth * scale_ >= LeastSlot;
        for (const Segment& segment : lane.Path) {
            surface_.SetCap(Qt::FlatCap); // a square one would lie across the slot of the piece before
            Stroke(segment, rail, std::max(showsSlot ? 3.0 : 1.5, RailWidth * scale_));
            surface_.SetCap(Qt::SquareCap);
            if (showsSlot) Stroke(segment, slot, std::max(1.0, SlotWidth * scale_));
        }
    }

    /// Red and white blocks along the inside of a curve's outer edge.
    void PaintKerb(const StandingPiece& piece) {
        const PiecePlacement& placement = piece.Placement;
        const auto* const outer = std::get_if<ArcSegment>(&placement.Outline[1]);
        if (outer == nullptr || !std::holds_alternative<ArcSegment>(placement.Outline[0])) return;
        if (KerbWidth * scale_ < LeastKerb) return;
        const double span = SpanOf(*outer);
        const int pairs = std::max(1, static_cast<int>(std::lround(span * outer->Radius / KerbBlock / 2)));
        const double fading = piece.Standing == PieceStanding::Inactive ? Receding : 0;
        const Colour bed = BedColour(piece.Standing, colours_);
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(ToQColor(Mixed(KerbWhite, bed, fading)));
        painter_.drawPath(KerbPart(*outer, outer->Start, span));
        QPainterPath blocks;
        for (int pair = 0; pair < pairs; ++pair)
            blocks.addPath(KerbPart(*outer, outer->Start + span * (pair + 0.25) / pairs, span / pairs / 2));
        painter_.setBrush(ToQColor(Mixed(KerbRed, bed, fading)));
        painter_.drawPath(blocks);
    }

    QPainterPath KerbPart(const ArcSegment& outer, double start, double span) const {
        const double flattest = 2 * std::acos(std::max(0.0, 1 - OutlineTolerance / scale_ / outer.Radius));
        const int chords = std::max(1, static_cast<int>(std::ceil(span / flattest)));
        ArcSegment inner = outer;
        inner.Radius -= KerbWidth;
        QPainterPath part(surface_.PlaceOf(PointAt(outer, start)));
        for (int chord = 1; chord <= chords; ++chord)
            part.lineTo(surface_.PlaceOf(PointAt(outer, start + span * chord / chords)));
        for (int chord = chords; chord >= 0; --chord)
            part.lineTo(surface_.PlaceOf(PointAt(inner, start + span * chord / chords)));
        part.closeSubpath();
        return part;
    }

    void PaintStart(const PiecePlacement& placement) {
        painter_.setPen(Qt::NoPen);
        for (const FilledArea& area : StartMarksOf(placement.Corners)) {
            QPolygonF polygon;
            for (const WorldPoint point : area.Polygon)
                polygon << surface_.PlaceOf(point);
            painter_.setBrush(ToQColor(area.Fill));
            painter_.drawPolygon(polygon);
        }
        painter_.setBrush(Qt::NoBrush);
        surface_.ForgetPen();
    }

    /// Where pieces meet: a fine seam. The selected piece has its colour all around.
    void PaintEnds(const StandingPiece& piece) {
        constexpr double depth = 0.35;
        const bool selected = piece.Standing == PieceStanding::Active;
        const Colour seam = Mixed(BedColour(piece.Standing, colours_), SlotColour, depth);
        const Colour colour = selected ? OutlineColour(piece.Standing, colours_) : seam;
        const double pixels = selected ? EdgeWidth(piece.Standing) : 1;
        ForEachEdge(piece.Placement, false, [&](const Segment& edge) { Stroke(edge, colour, pixels); });
    }

    void PaintEdges(const StandingPiece& piece) {
        const Colour colour = OutlineColour(piece.Standing, colours_);
        ForEachEdge(piece.Placement, true,
                    [&](const Segment& edge) { Stroke(edge, colour, EdgeWidth(piece.Standing)); });
    }

    void PaintMarks(const StandingPiece& piece) {
        const Colour outline = OutlineColour(piece.Standing, colours_);
        surface_.SetPen({1, PenWidth::Unit::Pixels});
        for (const Mark& mark : piece.Placement.Marks)
            std::visit(
                [&](const auto& shape) { surface_.Draw(shape, mark.Ink == Ink::Rail ? colours_.Rail : outline); },
                mark.Shape);
    }

    const ColourScheme& colours_;
    QPainter& painter_;
    PainterSurface& surface_;
    double scale_; ///< pixels a cm
};

/// A piece that may be seen, kept for the passes that draw it.
struct SeenPiece {
    PieceAddress Address;
    PiecePlacement Placement;
    PieceStanding Standing;

    StandingPiece AsDrawn() const { return {Address.Track, Address.Element, Placement, Standing}; }
};

std::vector<SeenPiece> SeenPieces(const Catalogue& catalogue, const Project& project, PainterSurface& surface) {
    std::vector<SeenPiece> seen;
    const auto keep = [&](const StandingPiece& piece) {
        if (surface.Shows(piece.Placement.Corners.Entry, FarthestPiece))
            seen.push_back({{piece.Track, piece.Element}, piece.Placement, piece.Standing});
    };
    DrawTracks(catalogue, project, {.Pieces = false, .Numbers = false, .Under = keep}, surface);
    return seen;
}

} // namespace

Colour Mixed(Colour one, Colour other, double part) {
    const auto mix = [&](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * part)); };
    return Rgb(mix(Red(one), Red(other)), mix(Green(one), Green(other)), mix(Blue(one), Blue(other)));
}

Colour RecedingGridColour(Colour background) {
    constexpr double part = 0.16;
    return Mixed(background, TextColourOn(background), part);
}

void DrawRecedingGrid(const Preferences& preferences, const ViewRectangle& covered, double viewWidth,
                      PainterSurface& surface) {
    constexpr double largestDot = 1.2; // pixels, of its radius
    constexpr double dotsAcross = 500; // of a view's width
    const double width = std::min(viewWidth, largestDot * dotsAcross / surface.DotsPerCm());
    surface.AlignLines(true);
    DrawGrid(preferences, covered, width, surface, RecedingGridColour(preferences.Colours.Background));
    surface.AlignLines(false);
}

void PaintSampleBed(QPainter& painter, const QRectF& place, PieceStanding standing, const ColourScheme& colours) {
    FillBed(painter, QPolygonF(place), standing, colours);
    if (standing != PieceStanding::NonOwned) return;
    painter.setPen(StripePen(colours));
    painter.drawLines(Stripes(place.width(), place.height(), LeastStripes, [&](double along, double across) {
        return place.topLeft() + QPointF(along * place.width(), across * place.height());
    }));
}

double EdgeWidth(PieceStanding standing) {
    if (standing == PieceStanding::Active) return 3;
    return standing == PieceStanding::Inactive ? 1 : 1.5;
}

void DrawCircuitSurface(const Catalogue& catalogue, const Project& project, const std::set<PieceAddress>& bridges,
                        QPainter& painter, PainterSurface& surface) {
    const ColourScheme& colours = project.Preferences.Colours;
    const std::vector<SeenPiece> pieces = SeenPieces(catalogue, project, surface);
    BedPainter beds(colours, painter, surface);
    surface.AlignLines(true);
    for (const bool bridge : {false, true}) {
        for (const SeenPiece& piece : pieces)
            if (bridges.contains(piece.Address) == bridge) beds.Paint(piece.AsDrawn(), bridge);
    }
    surface.AlignLines(false);
    if (project.EditState.ShowNumbers) {
        for (const SeenPiece& piece : pieces)
            PaintNumber(piece.AsDrawn(), colours.Background, painter, surface);
    }
    surface.SetPen({1, PenWidth::Unit::Pixels});
    surface.ForgetPen();
    painter.setBrush(Qt::NoBrush);
    DrawRoom(project.Design.Room, surface, colours.Room);
}

} // namespace pistaro

#include "imaging/small_picture.h"

#include "imaging/track_surface.h"
#include "layout/bridges.h"
#include "layout/outline.h"
#include "layout/room_lines.h"

#include <QPainterPath>

#include <algorithm>

namespace pistaro {

namespace {

constexpr double FinestLanes = 0.7; ///< pixels a cm; on a smaller bed there is no room for lanes

struct SmallPiece {
    PieceAddress Address;
    PiecePlacement Placement;
    bool IsNinco = false;
};

std::vector<SmallPiece> PiecesOf(const Catalogue& catalogue, const Track& track, int index) {
    std::vector<SmallPiece> pieces;
    pieces.reserve(track.ElementCodes.size());
    WalkTrack(catalogue, track, [&](int element, const PiecePlacement* placement, const Pose&) {
        if (placement == nullptr) return;
        const CatalogueEntry* const piece = catalogue.Find(track.ElementCodes[static_cast<std::size_t>(element)]);
        pieces.push_back({{index, element}, *placement, piece->System == TrackSystem::Ninco});
    });
    return pieces;
}

/// What the walls enclose, less the pillars; empty where the outer ones have a gap.
QPainterPath FloorOf(const RoomPolygon& room, const PainterSurface& surface) {
    QPainterPath floor;
    QPolygonF line;
    bool isOpen = false;
    const auto endLine = [&] {
        const bool isRing = line.size() > 3 && line.isClosed();
        if (isRing && !isOpen) floor.addPolygon(line);
        isOpen = isOpen || (floor.isEmpty() && line.size() > 1);
        line.clear();
    };
    for (const RoomPoint& point : room.Points) {
        if (point.Line != 1) endLine();
        line << surface.PlaceOf(RoomCorner(room, point));
    }
    endLine();
    return floor;
}

class SmallPainter {
public:
    SmallPainter(const ColourScheme& colours, const MarkedPieces& marked, QPainter& painter, PainterSurface& surface)
        : colours_(colours), marked_(marked), painter_(painter), surface_(surface) {}

    void PaintRoom(const RoomPolygon& room) {
        painter_.fillPath(FloorOf(room, surface_), ToQColor(SmallFloor(colours_)));
        surface_.SetPen({2, PenWidth::Unit::Pixels});
        surface_.ForgetPen();
        DrawRoom(room, surface_, colours_.Room);
    }

    /// The beds first, so that no bed lies on the edge of the one before.
    void Paint(const std::vector<const SmallPiece*>& pieces) {
        for (const SmallPiece* const piece : pieces)
            PaintBed(*piece);
        surface_.SetPen({1, PenWidth::Unit::Pixels});
        surface_.SetCap(Qt::FlatCap);
        surface_.ForgetPen();
        for (const SmallPiece* const piece : pieces)
            PaintLines(*piece);
        for (const SmallPiece* const piece : pieces)
            if (piece->Address.Element == 0) PaintStart(*piece);
    }

private:
    bool IsBeside(const SmallPiece& piece) const {
        return marked_.Track != AllTracks && piece.Address.Track != marked_.Track;
    }

    Colour BedColour(const SmallPiece& piece) const {
        constexpr double strong = 0.75, receding = 0.6;
        const Colour bed = piece.IsNinco ? SmallNincoBed : SmallScalextricBed;
        if (IsBeside(piece)) return Mixed(bed, SmallFloor(colours_), receding);
        if (std::ranges::binary_search(marked_.Kept, piece.Address.Element)) return Mixed(bed, colours_.Active, strong);
        return std::ranges::binary_search(marked_.New, piece.Address.Element) ? SmallNewBed : bed;
    }

    void PaintBed(const SmallPiece& piece) {
        constexpr double tolerance = 0.2; // pixels
        QPolygonF bed;
        for (const WorldPoint point : OutlinePolygon(piece.Placement, tolerance / surface_.DotsPerCm()))
            bed << surface_.PlaceOf(point);
        const QColor colour = ToQColor(BedColour(piece));
        painter_.setPen(QPen(colour, 1)); // closes the seam to the next piece
        painter_.setBrush(colour);
        painter_.drawPolygon(bed);
    }

    void Draw(const Segment& segment, Colour colour) {
        std::visit([&](const auto& shape) { surface_.Draw(shape, colour); }, segment);
    }

    /// Where pieces meet a fine seam, along them a plain edge; lanes and what marks special pieces where there is room.
    void PaintLines(const SmallPiece& piece) {
        constexpr double plain = 0.55, fine = 0.3, light = 0.5;
        const Colour bed = BedColour(piece);
        const Colour edge = Mixed(bed, TextColourOn(colours_.Background), IsBeside(piece) ? fine : plain);
        const Colour lanes = Mixed(bed, Rgb(255, 255, 255), light);
        const bool isCurve = std::holds_alternative<ArcSegment>(piece.Placement.Outline[0]);
        const bool showsLanes = surface_.DotsPerCm() >= FinestLanes && !IsBeside(piece);
        for (const Lane& lane : piece.Placement.Lanes) {
            for (const Segment& segment : lane.Path)
                if (showsLanes) Draw(segment, lanes);
        }
        int index = 0;
        for (const Segment& segment : piece.Placement.Outline) {
            const bool runsAlong = isCurve ? index < 2 : index % 2 == 0;
            Draw(segment, runsAlong ? edge : Mixed(bed, SlotColour, fine));
            ++index;
        }
        for (const Mark& mark : piece.Placement.Marks)
            if (showsLanes)
                std::visit([&](const auto& shape) { surface_.Draw(shape, mark.Ink == Ink::Rail ? lanes : edge); },
                           mark.Shape);
    }

    /// A line where the track begins and an arrow behind it the way the cars go, as wide as the track.
    void PaintStart(const SmallPiece& piece) {
        const QPointF left = surface_.PlaceOf(piece.Placement.Corners.Entry);
        const QPointF right = surface_.PlaceOf(piece.Placement.Corners.OtherEntry);
        const QPointF across = right - left;
        const QPointF onwards(across.y(), -across.x());
        constexpr double line = 0.2, arrow = 0.32, tip = 0.92, side = 0.16; // of the track's width
        const Colour bed = BedColour(piece);
        constexpr double light = 0.35;
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(ToQColor(IsBeside(piece) ? Mixed(bed, Rgb(255, 255, 255), light) : Rgb(255, 255, 255)));
        painter_.drawPolygon(QPolygonF({left, right, right + line * onwards, left + line * onwards}));
        painter_.drawPolygon(QPolygonF({left + side * across + arrow * onwards, right - side * across + arrow * onwards,
                                        left + across / 2 + tip * onwards}));
    }

    const ColourScheme& colours_;
    const MarkedPieces& marked_;
    QPainter& painter_;
    PainterSurface& surface_;
};

} // namespace

Colour SmallFloor(const ColourScheme& colours) {
    constexpr double part = 0.07;
    return Mixed(colours.Background, TextColourOn(colours.Background), part);
}

void DrawSmallPicture(const Catalogue& catalogue, const Design& design, const ColourScheme& colours,
                      const MarkedPieces& marked, QPainter& painter, PainterSurface& surface) {
    SmallPainter small(colours, marked, painter, surface);
    small.PaintRoom(design.Room);
    const std::set<PieceAddress> bridges = BridgesOf(catalogue, design.Circuit, marked.Track);
    std::vector<SmallPiece> pieces;
    for (int track = 0; track < TrackCount; ++track) {
        const std::vector<SmallPiece> its =
            PiecesOf(catalogue, design.Circuit.Tracks[static_cast<std::size_t>(track)], track);
        pieces.insert(track == marked.Track ? pieces.end() : pieces.begin(), its.begin(), its.end());
    }
    for (const bool isBridge : {false, true}) {
        std::vector<const SmallPiece*> layer;
        for (const SmallPiece& piece : pieces)
            if (bridges.contains(piece.Address) == isBridge) layer.push_back(&piece);
        small.Paint(layer);
    }
}

} // namespace pistaro

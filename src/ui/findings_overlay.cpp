#include "ui/findings_overlay.h"

#include "imaging/painter_surface.h"
#include "layout/outline.h"
#include "layout/placement.h"

#include <QPainter>
#include <QPixmap>
#include <QPolygonF>

#include <algorithm>
#include <array>

namespace pistaro {

namespace {

constexpr Colour ErrorColour = Rgb(220, 30, 40);
constexpr Colour WarningColour = Rgb(230, 130, 0);
constexpr Colour AdviceColour = Rgb(140, 84, 232);
constexpr double Tolerance = 0.1; // cm, of rounded outlines

/// The pieces of a circuit where they lie; unknown codes lie nowhere.
class LaidPieces {
public:
    LaidPieces(const Catalogue& catalogue, const Circuit& circuit) {
        for (std::size_t track = 0; track < circuit.Tracks.size(); ++track) {
            ends_[track] = WalkTrack(
                catalogue, circuit.Tracks[track], [&](int, const PiecePlacement* placement, const BuildCursor&) {
                    laid_[track].push_back(placement == nullptr ? std::nullopt : std::optional(*placement));
                });
        }
    }

    /// Null where it lies nowhere.
    const PiecePlacement* At(PieceAddress place) const {
        const auto& track = laid_[static_cast<std::size_t>(place.Track)];
        const auto element = static_cast<std::size_t>(place.Element);
        return element < track.size() && track[element] ? &*track[element] : nullptr;
    }

    BuildCursor EndOf(int track) const { return ends_[static_cast<std::size_t>(track)]; }

private:
    std::array<std::vector<std::optional<PiecePlacement>>, TrackCount> laid_;
    std::array<BuildCursor, TrackCount> ends_;
};

std::vector<Segment> EdgesOf(const PiecePlacement& placement) {
    return {placement.Outline.begin(), placement.Outline.end()};
}

QPolygonF PolygonOf(const PiecePlacement& placement) {
    QPolygonF polygon;
    for (const WorldPoint point : OutlinePolygon(placement, Tolerance))
        polygon << QPointF(double{point.X}, double{point.Y});
    return polygon;
}

std::vector<WorldPoint> PointsOf(const QPolygonF& polygon) {
    std::vector<WorldPoint> points;
    points.reserve(static_cast<std::size_t>(polygon.size()));
    for (const QPointF& point : polygon)
        points.push_back({static_cast<float>(point.x()), static_cast<float>(point.y())});
    return points;
}

void AddSharedGround(Overlay& overlay, const LaidPieces& pieces, const Finding& finding) {
    const PieceAddress first{finding.Track, finding.Pieces.front()};
    const PiecePlacement* const a = pieces.At(first);
    const PiecePlacement* const b = pieces.At(SecondOf(finding));
    if (a == nullptr || b == nullptr) return;
    overlay.emplace_back(OverlayArea{PointsOf(PolygonOf(*a).intersected(PolygonOf(*b))), ErrorColour, true, true});
}

/// The middle of the track's width where a cursor stands.
WorldPoint MiddleAt(const BuildCursor& cursor, double width) {
    const Direction across = Towards(cursor.CursorHeading);
    return {static_cast<float>(cursor.CursorX + across.X * width / 2),
            static_cast<float>(cursor.CursorY + across.Y * width / 2)};
}

void AddGap(Overlay& overlay, const LaidPieces& pieces, const Circuit& circuit, const Finding& finding) {
    constexpr double width = 15.5; // of most track: the line need not hit the middle to the millimetre
    const LineSegment gap{MiddleAt(pieces.EndOf(finding.Track), width),
                          MiddleAt(circuit.Tracks[static_cast<std::size_t>(finding.Track)].Start(), width)};
    overlay.emplace_back(OverlayPath{{gap}, ColourOf(finding.Severity), 3, true, 0, true});
}

void AddEdges(Overlay& overlay, const LaidPieces& pieces, const Finding& finding) {
    for (const int element : finding.Pieces) {
        if (const PiecePlacement* const piece = pieces.At({finding.Track, element}))
            overlay.emplace_back(OverlayPath{EdgesOf(*piece), ErrorColour, 4, false, 0, true});
    }
}

void AddTints(Overlay& overlay, const LaidPieces& pieces, const Finding& finding,
              const std::vector<PieceAddress>& places) {
    for (const PieceAddress place : places) {
        if (const PiecePlacement* const piece = pieces.At(place))
            overlay.emplace_back(
                OverlayArea{OutlinePolygon(*piece, Tolerance), ColourOf(finding.Severity), false, true});
    }
}

bool IsCurve(const Catalogue& catalogue, const std::string& code) {
    const CatalogueEntry* const piece = catalogue.Find(code);
    return piece != nullptr && !piece->IsStraight();
}

} // namespace

Colour ColourOf(Severity severity) {
    switch (severity) {
    case Severity::Error:
        return ErrorColour;
    case Severity::Warning:
        return WarningColour;
    case Severity::Advice:
        break;
    }
    return AdviceColour;
}

QIcon IconOf(Severity severity) {
    constexpr int side = MarkSide;
    constexpr int finest = 3; // pixels that one is wide on the finest screens
    QPixmap drawing(side * finest, side * finest);
    drawing.setDevicePixelRatio(finest);
    drawing.fill(Qt::transparent);
    QPainter painter(&drawing);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr double rim = 1.5; // which parts it from the ground of a line that is chosen
    painter.setPen(QPen(Qt::white, rim));
    painter.setBrush(ToQColor(ColourOf(severity)));
    switch (severity) {
    case Severity::Error:
        painter.drawEllipse(1, 1, side - 2, side - 2);
        break;
    case Severity::Warning:
        painter.drawPolygon(QPolygonF{{side / 2.0, 1}, {side - 1.0, side - 2.0}, {1, side - 2.0}});
        break;
    case Severity::Advice:
        painter.drawRect(2, 2, side - 4, side - 4);
        break;
    }
    QIcon icon(drawing);
    icon.addPixmap(drawing, QIcon::Selected); // or the ground of the chosen line would tint it
    return icon;
}

std::vector<PieceAddress> PiecesOf(const Catalogue& catalogue, const Circuit& circuit, const Finding& finding) {
    if (finding.Rule == "lanes-differ") {
        std::vector<PieceAddress> places;
        const std::vector<std::string>& codes = circuit.Tracks[static_cast<std::size_t>(finding.Track)].ElementCodes;
        for (std::size_t element = 0; element < codes.size(); ++element) {
            if (IsCurve(catalogue, codes[element])) places.push_back({finding.Track, static_cast<int>(element)});
        }
        return places;
    }
    return PiecesOf(finding);
}

Overlay FindingsOverlay(const Catalogue& catalogue, const Circuit& circuit, const std::vector<Finding>& findings,
                        const std::vector<const Finding*>& chosen) {
    Overlay overlay;
    const LaidPieces pieces(catalogue, circuit);
    for (const Finding* const one : chosen)
        AddTints(overlay, pieces, *one, PiecesOf(catalogue, circuit, *one));
    for (const Finding& finding : findings) {
        if (finding.Rule == "overlap") AddSharedGround(overlay, pieces, finding);
        if (finding.Rule == "open-track") AddGap(overlay, pieces, circuit, finding);
        if (finding.Rule == "outside-room") AddEdges(overlay, pieces, finding);
    }
    return overlay;
}

} // namespace pistaro

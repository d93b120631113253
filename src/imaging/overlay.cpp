#include "imaging/overlay.h"

#include "imaging/painter_surface.h"
#include "layout/outline.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

constexpr int TintOpacity = 60; ///< of 255
constexpr int GhostOpacity = 110;
constexpr int LightOpacity = 35;
constexpr int FadedOpacity = 190;
constexpr Colour CasingColour = Rgb(255, 255, 255);
constexpr int CasingOpacity = 200; ///< of the ground below hatches
constexpr double Casing = 2;       ///< pixels that it shows on both sides
constexpr double Tolerance = 0.1;  ///< cm, of a ghost's rounded outline

QColor Sheer(Colour colour, int opacity) {
    QColor sheer = ToQColor(colour);
    sheer.setAlpha(opacity);
    return sheer;
}

/// Draws items of each kind where a view shows them.
class OverlayPainter {
public:
    OverlayPainter(const Catalogue& catalogue, const ViewSettings& view, const CanvasFrame& frame, QPainter& painter)
        : catalogue_(catalogue), view_(view), frame_(frame), painter_(painter),
          strokes_(painter, TargetSize::Square(frame.Square().width())) {
        const QPointF corner = frame.Square().topLeft();
        strokes_.SetScale(ShownRectangle(view));
        strokes_.Uncover(QRectF(QPointF(0, 0), QSizeF(frame.Size)).translated(-corner));
    }

    void operator()(const OverlayPath& path) {
        const double wide = std::max(path.Pixels, path.Centimetres * frame_.PixelsPerCm(view_));
        if (path.Cased) {
            strokes_.SetPen({wide + 2 * Casing, PenWidth::Unit::Pixels});
            for (const Segment& segment : path.Path)
                Stroke(segment, CasingColour);
        }
        strokes_.SetPen({wide, PenWidth::Unit::Pixels});
        strokes_.SetDashed(path.Dashed);
        for (const Segment& segment : path.Path)
            Stroke(segment, path.InkColour);
        strokes_.SetDashed(false);
    }

    void operator()(const OverlayArea& area) {
        const QPolygonF polygon = Mapped(area.Polygon);
        const double edge = area.Cased ? 2.5 : 1.5;
        if (area.Cased) {
            painter_.setPen(QPen(ToQColor(CasingColour), edge + 2 * Casing));
            painter_.setBrush(area.Hatched ? QBrush(Sheer(CasingColour, CasingOpacity)) : QBrush(Qt::NoBrush));
            painter_.drawPolygon(polygon);
        }
        painter_.setPen(QPen(ToQColor(area.InkColour), edge));
        painter_.setBrush(area.Hatched ? QBrush(ToQColor(area.InkColour), Qt::BDiagPattern)
                                       : QBrush(Sheer(area.InkColour, TintOpacity)));
        painter_.drawPolygon(polygon);
    }

    void operator()(const OverlayPieces& pieces) {
        BuildCursor cursor = pieces.Start;
        std::string before = pieces.CodeBefore;
        for (const std::string& code : pieces.Codes) {
            if (const auto placement = PlacePiece(catalogue_, code, cursor, before)) {
                Paint(*placement, pieces.InkColour, pieces.Look);
                cursor = placement->Exit;
            }
            before = code;
        }
    }

    void operator()(const OverlayHandle& handle) {
        const QColor colour = ToQColor(handle.InkColour);
        painter_.setPen(QPen(handle.Filled ? QColor(Qt::white) : colour, 2));
        painter_.setBrush(handle.Filled ? QBrush(colour) : QBrush(QColor(Qt::white)));
        painter_.drawEllipse(frame_.PlaceOf(handle.Place, view_), handle.Pixels, handle.Pixels);
    }

    void operator()(const OverlayText& text) {
        constexpr double margin = 5;
        constexpr double rounding = 4;
        const QString words = QString::fromStdString(text.Text);
        const QFontMetricsF metrics(painter_.font());
        QRectF plate(QPointF(0, 0), QSizeF(metrics.horizontalAdvance(words) + 2 * margin, metrics.height() + margin));
        const QPointF place = frame_.PlaceOf(text.Place, view_);
        plate.moveTopLeft(place + QPointF(3 * margin, -plate.height() - margin));
        if (text.Heading) plate.moveCenter(place + WayAhead(*text.Heading, plate.size(), 3 * margin));
        const QRectF whole(QPointF(0, 0), QSizeF(frame_.Size));
        if (plate.right() > whole.right()) plate.moveRight(whole.right() - margin);
        if (plate.left() < whole.left()) plate.moveLeft(whole.left() + margin);
        if (plate.bottom() > whole.bottom()) plate.moveBottom(whole.bottom() - margin);
        if (plate.top() < whole.top()) plate.moveTop(whole.top() + margin);
        painter_.setPen(QPen(ToQColor(text.InkColour), 1));
        const QPalette desktop = QGuiApplication::palette();
        QColor ground = desktop.color(QPalette::ToolTipBase);
        ground.setAlpha(235);
        painter_.setBrush(ground);
        painter_.drawRoundedRect(plate, rounding, rounding);
        painter_.setPen(desktop.color(QPalette::ToolTipText));
        painter_.drawText(plate, Qt::AlignCenter, words);
    }

private:
    /// From a track's end to the middle of a plate that lies so many pixels ahead of it.
    static QPointF WayAhead(double heading, QSizeF plate, double pixels) {
        const QPointF ahead(-std::sin(heading), -std::cos(heading)); // 0 leads up
        const double half = std::fabs(ahead.x()) * plate.width() / 2 + std::fabs(ahead.y()) * plate.height() / 2;
        return ahead * (half + pixels);
    }

    QPolygonF Mapped(const std::vector<WorldPoint>& points) const {
        QPolygonF polygon;
        for (const WorldPoint& point : points)
            polygon << frame_.PlaceOf(point, view_);
        return polygon;
    }

    void Stroke(const Segment& segment, Colour colour) {
        painter_.save();
        painter_.setBrush(Qt::NoBrush);
        painter_.translate(frame_.Square().topLeft());
        std::visit([&](const auto& shape) { strokes_.Draw(shape, colour); }, segment);
        painter_.restore();
        strokes_.ForgetPen(); // the painter has its own again
    }

    void Paint(const PiecePlacement& placement, Colour colour, PieceLook look) {
        const QPolygonF outline = Mapped(OutlinePolygon(placement, Tolerance));
        if (!outline.boundingRect().intersects(QRectF(QPointF(0, 0), QSizeF(frame_.Size)))) return;
        switch (look) {
        case PieceLook::Ghost:
            return PaintGhost(placement, outline, colour);
        case PieceLook::Light:
            painter_.setPen(QPen(ToQColor(colour), 1));
            painter_.setBrush(Sheer(colour, LightOpacity));
            break;
        case PieceLook::Faded: {
            const QColor veil = Sheer(colour, FadedOpacity);
            constexpr double edge = 3; // pixels, as thick as the lines around a piece
            painter_.setPen(QPen(veil, edge));
            painter_.setBrush(veil);
            break;
        }
        }
        painter_.drawPolygon(outline);
    }

    void PaintGhost(const PiecePlacement& placement, const QPolygonF& outline, Colour colour) {
        painter_.setPen(QPen(ToQColor(colour), 1.5, Qt::DashLine));
        painter_.setBrush(Sheer(colour, GhostOpacity));
        painter_.drawPolygon(outline);
        strokes_.SetPen({1, PenWidth::Unit::Pixels});
        for (const Lane& lane : placement.Lanes) {
            for (const Segment& segment : lane.Path)
                Stroke(segment, colour);
        }
    }

    const Catalogue& catalogue_;
    const ViewSettings& view_;
    const CanvasFrame& frame_;
    QPainter& painter_;
    PainterSurface strokes_;
};

} // namespace

void PaintOverlay(const Overlay& overlay, const Catalogue& catalogue, const ViewSettings& view,
                  const CanvasFrame& frame, QPainter& painter) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    OverlayPainter items(catalogue, view, frame, painter);
    for (const OverlayItem& item : overlay)
        std::visit(items, item);
    painter.restore();
}

} // namespace pistaro

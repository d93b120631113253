#include "imaging/plan_painter.h"

#include "catalogue/track_geometry.h"
#include "imaging/badge_painter.h"
#include "layout/outline.h"
#include "layout/strokes.h"
#include "render/redraw.h"

#include <algorithm>

namespace pistaro {

namespace {

constexpr Colour LanesBefore = Rgb(0xC8, 0xC8, 0xC8);
constexpr Colour LanesNow = Rgb(0x99, 0x7A, 0x26);
constexpr PenWidth ThinPen{0.2, PenWidth::Unit::Millimetres};
constexpr double BarPoints = 10;

PictureArea SizeOf(const Box& area) { return {area.Width(), area.Height()}; }

QPolygonF PlacesOf(const std::vector<WorldPoint>& points, const PainterSurface& surface) {
    QPolygonF places;
    for (const WorldPoint point : points)
        places << surface.PlaceOf(point);
    return places;
}

} // namespace

QPen PlanPainter::PenOf(Colour colour, double widthOnPaper) const {
    return {ToQColor(colour), widthOnPaper * page_.DotsPerCm(), Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin};
}

void PlanPainter::PaintPicture(const Box& area, const PlanPicture& picture,
                               const std::function<void(PainterSurface&)>& paint) {
    page_.InArea(area, picture.Part, picture.Part, picture.Scale, paint);
    page_.OnPaper(area, [&](Surface& surface) { DrawFrame(surface, area, FrameColour); });
}

Box PlanPainter::PaintStep(const Box& area, const BuildStep& step, double scale) {
    const PlanPicture picture = PictureOf(plan_, step, SizeOf(area), scale);
    PaintPicture(area, picture, [&](PainterSurface& surface) {
        PaintBeds(surface, picture, {0, step.First - 1}, false);
        DrawRoom(plan_.Drawing.Room, surface);
        PaintBeds(surface, picture, step, true);
        PaintMarks(surface, picture);
    });
    return picture.Part;
}

void PlanPainter::PaintWhole(const Box& area) {
    const PlanPicture picture = WholePicture(plan_, SizeOf(area));
    PaintPicture(area, picture, [&](PainterSurface& surface) {
        PaintBeds(surface, picture, {0, static_cast<int>(plan_.Drawing.Pieces.size()) - 1}, false);
        DrawRoom(plan_.Drawing.Room, surface);
        PaintMarks(surface, picture);
    });
}

void PlanPainter::PaintOverview(const Box& area, const BuildStep& step, const Box& shown) {
    const PlanPicture picture = Overview(plan_, step, SizeOf(area));
    const double bed = std::max(double{TrackGeometry::ScalextricWidth} / picture.Scale, ThinnestWay);
    PaintPicture(area, picture, [&](PainterSurface& surface) {
        QPainter& painter = page_.Painter();
        const auto line = [&](const BuildStep& pieces, double width, Colour colour) {
            painter.setPen(PenOf(colour, width));
            painter.drawPolyline(PlacesOf(MiddleLine(plan_, pieces), surface));
        };
        for (const BuildStep& track : WholeTracks(plan_))
            line(track, bed, WayColour);
        line(step, bed + 0.1, LaidNow.Edge);
        line(step, bed, LaidNow.Fill);
        const ViewRectangle part = PartIn(picture, shown).Shown();
        painter.setPen(PenOf(ShownColour, ShownWidth));
        painter.drawRect(
            QRectF(surface.PlaceOf({part.ViewLeft, part.ViewTop}), surface.PlaceOf({part.ViewRight, part.ViewBottom})));
        PaintMarks(surface, picture);
    });
}

void PlanPainter::PaintBeds(PainterSurface& surface, const PlanPicture& picture, const BuildStep& pieces, bool areNew) {
    constexpr double tolerance = 0.05; // cm of the world
    const BedLook& look = areNew ? LaidNow : LaidBefore;
    const Colour lanes = areNew ? LanesNow : LanesBefore;
    QPainter& painter = page_.Painter();
    for (int at = pieces.First; at <= pieces.Last; ++at) {
        if (!plan_.Piece(at).Extent.Meets(picture.Part)) continue;
        const PiecePlacement& placement = plan_.Piece(at).Placement;
        painter.setPen(PenOf(look.Edge, look.EdgeWidth));
        painter.setBrush(ToQColor(look.Fill));
        painter.drawPolygon(PlacesOf(OutlinePolygon(placement, tolerance), surface));
        painter.setBrush(Qt::NoBrush);
        surface.ForgetPen();
        surface.SetPen(ThinPen);
        ForEachStroke(placement, Strokes::AllButOutline, [&](const auto& shape) { surface.Draw(shape, lanes); });
    }
}

void PlanPainter::PaintMarks(PainterSurface& surface, const PlanPicture& picture) {
    for (const FilledArea& mark : picture.Marks)
        surface.Fill(mark.Polygon, mark.Fill);
    PaintBadges(picture.Badges, page_.Painter(), surface, page_.DotsPerCm());
    if (picture.Bar.Length > 0) PaintBar(surface, picture);
}

void PlanPainter::PaintBar(PainterSurface& surface, const PlanPicture& picture) {
    const double cm = page_.DotsPerCm();
    const Box& part = picture.Part;
    const QPointF corner = surface.PlaceOf({static_cast<float>(part.Left), static_cast<float>(part.Bottom)});
    const QPointF left = corner + QPointF(picture.Bar.Left, -picture.Bar.Up) * cm;
    const QPointF right = left + QPointF(picture.Bar.Length * cm, 0);
    const QPointF tick(0, -BarTick * cm);
    QPainter& painter = page_.Painter();
    const Box ground = picture.Bar.Ground();
    painter.fillRect(
        QRectF(corner + QPointF(ground.Left, -ground.Top) * cm, QSizeF(ground.Width(), ground.Height()) * cm),
        Qt::white);
    surface.SetFontSize(BarPoints);
    QFont font = painter.font();
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(PenOf(Rgb(0, 0, 0), 0.03));
    painter.drawPolyline(QPolygonF({left + tick, left, right, right + tick}));
    painter.drawText(right + QPointF(BarTextGap * cm, 0), QString::fromStdString(picture.Bar.Text));
    surface.ForgetPen();
}

} // namespace pistaro

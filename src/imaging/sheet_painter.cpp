#include "imaging/sheet_painter.h"

#include "render/redraw.h"

#include <cmath>

namespace pistaro {

namespace {

constexpr double CmPerInch = 2.54;
constexpr PenWidth DrawingPen{0.25, PenWidth::Unit::Millimetres};
constexpr PenWidth MarkPen{0.1, PenWidth::Unit::Millimetres};
constexpr Colour Black = Rgb(0, 0, 0);
constexpr double HeaderFont = 9; ///< points

/// A surface on paper: whole cm of the world at a scale, so that a point of it lies at a place of the paper.
class PaperSurface : public PainterSurface {
public:
    /// Takes strokes of `world` whole, even where the paper does not show them: so the lengths in a file are those of
    /// the pieces.
    PaperSurface(QPainter& painter, const Box& world, double dotsPerCm, double dotsPerInch)
        : PaperSurface(painter, world.Shown(), dotsPerCm, dotsPerInch) {}

private:
    PaperSurface(QPainter& painter, const ViewRectangle& world, double dotsPerCm, double dotsPerInch)
        : PainterSurface(painter, {(double{world.ViewRight} - world.ViewLeft) * dotsPerCm,
                                   (double{world.ViewTop} - world.ViewBottom) * dotsPerCm, dotsPerInch}) {
        SetScale(world);
    }
};

/// The paper of one sheet, in cm from its lower left corner.
class Page {
public:
    Page(QPainter& painter, const SheetPlan& plan, double dotsPerInch)
        : painter_(painter), plan_(plan), dotsPerInch_(dotsPerInch), dotsPerCm_(dotsPerInch / CmPerInch) {}

    /// Calls draw(surface) for a surface that shows `part` in the plan's area, at 1:`scale`, cut at the area's edge.
    template <typename Draw>
    void InArea(const Box& part, const Box& world, double scale, Draw draw) {
        const Box area = plan_.Area();
        Box shown = world;
        shown.Include(part);
        const ViewRectangle corner = shown.Shown();
        painter_.save();
        painter_.setClipRect(QRectF(Place(area.Left, area.Top), Place(area.Right, area.Bottom)));
        painter_.translate(Place(area.Left + (double{corner.ViewLeft} - part.Left) / scale,
                                 area.Top + (double{corner.ViewTop} - part.Top) / scale));
        PaperSurface surface(painter_, shown, dotsPerCm_ / scale, dotsPerInch_);
        surface.SetPen(DrawingPen);
        surface.SetFontSize(NormalFont);
        draw(surface);
        painter_.restore();
    }

    void Words(const std::string& text, Qt::Alignment alignment) {
        const Box area = plan_.Area();
        PaperSurface(painter_, area, dotsPerCm_, dotsPerInch_).SetFontSize(HeaderFont);
        painter_.setPen(Qt::black);
        painter_.drawText(QRectF(Place(area.Left, area.Top + StripHeight), Place(area.Right, area.Top)),
                          static_cast<int>(alignment | Qt::AlignTop), QString::fromStdString(text));
    }

    /// Ten centimetres on any paper, by which one sees whether the printer keeps to the scale.
    void Rule() {
        const Box area = plan_.Area();
        const double bottom = area.Bottom - StripHeight;
        const Box strip{area.Left, bottom, area.Right, area.Bottom};
        OnPaper(strip, [&](Surface& surface) {
            Line(surface, area.Left, bottom + 0.1, area.Left + 10, bottom + 0.1);
            for (int cm = 0; cm <= 10; ++cm)
                Line(surface, area.Left + cm, bottom + 0.1, area.Left + cm, bottom + (cm % 5 == 0 ? 0.5 : 0.3));
        });
        painter_.setPen(Qt::black);
        painter_.drawText(Place(area.Left + 10.15, bottom + 0.1), QStringLiteral("10 cm"));
    }

    /// At each corner of what stays of a tile two short lines, outside it.
    void CutMarks(const Sheet& sheet) {
        const Box area = plan_.Area();
        const auto edge = [&](double cell, double part) { return std::fabs(cell - part) / plan_.Scale; };
        const Box cell{area.Left + edge(sheet.Cell.Left, sheet.Part.Left),
                       area.Bottom + edge(sheet.Cell.Bottom, sheet.Part.Bottom),
                       area.Right - edge(sheet.Cell.Right, sheet.Part.Right),
                       area.Top - edge(sheet.Cell.Top, sheet.Part.Top)};
        constexpr double length = 0.4;
        OnPaper(area, [&](Surface& surface) {
            for (const double x : {cell.Left, cell.Right}) {
                Line(surface, x, cell.Top, x, cell.Top + length);
                Line(surface, x, cell.Bottom, x, cell.Bottom - length);
            }
            for (const double y : {cell.Bottom, cell.Top}) {
                Line(surface, cell.Left, y, cell.Left - length, y);
                Line(surface, cell.Right, y, cell.Right + length, y);
            }
        });
    }

private:
    QPointF Place(double x, double y) const { return {x * dotsPerCm_, (plan_.Height - y) * dotsPerCm_}; }

    template <typename Draw>
    void OnPaper(const Box& part, Draw draw) {
        painter_.save();
        painter_.translate(Place(part.Left, part.Top));
        PaperSurface surface(painter_, part, dotsPerCm_, dotsPerInch_);
        surface.SetPen(MarkPen);
        draw(surface);
        painter_.restore();
    }

    static void Line(Surface& surface, double fromX, double fromY, double toX, double toY) {
        surface.Draw(LineSegment{{static_cast<float>(fromX), static_cast<float>(fromY)},
                                 {static_cast<float>(toX), static_cast<float>(toY)}},
                     Black);
    }

    QPainter& painter_;
    const SheetPlan& plan_;
    double dotsPerInch_, dotsPerCm_;
};

void DrawCell(const Sheet& sheet, Surface& surface) {
    const ViewRectangle cell = sheet.Cell.Shown();
    const WorldPoint corners[] = {{cell.ViewLeft, cell.ViewTop},
                                  {cell.ViewRight, cell.ViewTop},
                                  {cell.ViewRight, cell.ViewBottom},
                                  {cell.ViewLeft, cell.ViewBottom}};
    for (std::size_t i = 0; i < 4; ++i)
        surface.Draw(LineSegment{corners[i], corners[(i + 1) % 4]}, GridColour);
    surface.DrawPoint({cell.ViewLeft, cell.ViewTop}, GridColour);
    surface.DrawText(" " + sheet.Name, Black);
}

} // namespace

void SheetPainter::Paint(QPainter& painter, double dotsPerInch, int number) const {
    if (!HasOverview()) return PaintSheet(painter, dotsPerInch, plan_.Sheets[static_cast<std::size_t>(number)]);
    if (number == 0) return PaintOverview(painter, dotsPerInch);
    PaintSheet(painter, dotsPerInch, plan_.Sheets[static_cast<std::size_t>(number) - 1]);
}

void SheetPainter::PaintSheet(QPainter& painter, double dotsPerInch, const Sheet& sheet) const {
    Page page(painter, plan_, dotsPerInch);
    page.InArea(sheet.Part, drawing_.Extent, plan_.Scale,
                [&](Surface& surface) { DrawPart(drawing_, sheet.Part, surface); });
    if (plan_.Tiled) page.CutMarks(sheet);
    if (!plan_.Header) return;
    page.Words(drawing_.Name + (sheet.Name.empty() ? "" : "   " + sheet.Name), Qt::AlignLeft);
    page.Words((date_.empty() ? "" : date_ + "   ") + plan_.ScaleText(), Qt::AlignRight);
    page.Rule();
}

void SheetPainter::PaintOverview(QPainter& painter, double dotsPerInch) const {
    Page page(painter, plan_, dotsPerInch);
    const Box area = plan_.Area();
    const double scale = std::max(plan_.Whole.Width() / area.Width(), plan_.Whole.Height() / area.Height());
    const Box part =
        BoxAround(plan_.Whole.MiddleX(), plan_.Whole.MiddleY(), area.Width() * scale, area.Height() * scale);
    CircuitDrawing bare = drawing_; // numbers and grid would hide the tiles' names
    bare.Parts.Numbers = bare.Parts.Grid = false;
    page.InArea(part, part, scale, [&](Surface& surface) {
        for (const Sheet& sheet : plan_.Sheets)
            DrawCell(sheet, surface);
        DrawPart(bare, part, surface);
    });
    if (!plan_.Header) return;
    page.Words(drawing_.Name + "   " + std::to_string(plan_.Sheets.size()) + " tiles of " + plan_.ScaleText(),
               Qt::AlignLeft);
    page.Words(date_, Qt::AlignRight);
}

} // namespace pistaro

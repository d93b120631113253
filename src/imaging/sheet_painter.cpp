#include "imaging/sheet_painter.h"

#include "imaging/paper_page.h"
#include "imaging/scaled_backdrop.h"
#include "render/redraw.h"

#include <cmath>

namespace pistaro {

namespace {

/// The strip above the drawing, for words, and the one below it, for the rule.
Box HeaderOf(const SheetPlan& plan) {
    const Box area = plan.Area();
    return {area.Left, area.Top, area.Right, area.Top + StripHeight};
}
Box FooterOf(const SheetPlan& plan) {
    const Box area = plan.Area();
    return {area.Left, area.Bottom - StripHeight, area.Right, area.Bottom};
}

/// Ten centimetres on any paper, by which one sees whether the printer keeps to the scale.
void DrawRule(PaperPage& page, const Box& strip) {
    const double foot = strip.Bottom + 0.1;
    page.OnPaper(strip, [&](Surface& surface) {
        DrawLine(surface, strip.Left, foot, strip.Left + 10, foot);
        for (int cm = 0; cm <= 10; ++cm)
            DrawLine(surface, strip.Left + cm, foot, strip.Left + cm, foot + (cm % 5 == 0 ? 0.4 : 0.2));
    });
    page.Words({strip.Left + 10.15, strip.Bottom, strip.Right, strip.Bottom + 0.5}, "10 cm", Qt::AlignLeft);
}

/// At each corner of what stays of a tile two short lines, outside it.
void DrawCutMarks(PaperPage& page, const SheetPlan& plan, const Sheet& sheet) {
    const Box area = plan.Area();
    const double strip = (sheet.Part.Right - sheet.Cell.Right) / plan.Scale;
    const Box cell = area.Wider(-strip);
    constexpr double length = 0.4;
    page.OnPaper(area, [&](Surface& surface) {
        for (const double x : {cell.Left, cell.Right}) {
            DrawLine(surface, x, cell.Top, x, cell.Top + length);
            DrawLine(surface, x, cell.Bottom, x, cell.Bottom - length);
        }
        for (const double y : {cell.Bottom, cell.Top}) {
            DrawLine(surface, cell.Left, y, cell.Left - length, y);
            DrawLine(surface, cell.Right, y, cell.Right + length, y);
        }
    });
}

void DrawCell(const Sheet& sheet, Surface& surface) {
    const ViewRectangle cell = sheet.Cell.Shown();
    DrawFrame(surface, sheet.Cell, GridColour);
    surface.DrawPoint({cell.ViewLeft, cell.ViewTop}, GridColour);
    surface.DrawText(" " + sheet.Name, Rgb(0, 0, 0));
}

} // namespace

void SheetPainter::Paint(QPainter& painter, double dotsPerInch, int number) const {
    PaperPage page(painter, plan_.Height, dotsPerInch);
    if (!HasOverview()) return PaintSheet(page, plan_.Sheets[static_cast<std::size_t>(number)]);
    if (number == 0) return PaintOverview(page);
    PaintSheet(page, plan_.Sheets[static_cast<std::size_t>(number) - 1]);
}

void SheetPainter::PaintSheet(PaperPage& page, const Sheet& sheet) const {
    PaintBackdrop(page, sheet.Part, plan_.Scale);
    page.InArea(plan_.Area(), sheet.Part, drawing_.Extent, plan_.Scale,
                [&](Surface& surface) { DrawPart(drawing_, sheet.Part, surface); });
    if (plan_.Tiled) DrawCutMarks(page, plan_, sheet);
    if (!plan_.Header) return;
    page.Words(HeaderOf(plan_), drawing_.Name + (sheet.Name.empty() ? "" : "   " + sheet.Name), Qt::AlignLeft);
    page.Words(HeaderOf(plan_), (date_.empty() ? "" : date_ + "   ") + plan_.ScaleText(), Qt::AlignRight);
    DrawRule(page, FooterOf(plan_));
}

void SheetPainter::PaintBackdrop(PaperPage& page, const Box& part, double scale) const {
    if (backdrop_ == nullptr || !drawing_.Background) return;
    page.InArea(plan_.Area(), part, part, scale, [&](const PainterSurface& surface) {
        backdrop_->Paint(page.Painter(), surface, *drawing_.Background, drawing_.Room);
    });
}

void SheetPainter::PaintOverview(PaperPage& page) const {
    const Box area = plan_.Area();
    const double scale = std::max(plan_.Whole.Width() / area.Width(), plan_.Whole.Height() / area.Height());
    const Box part =
        BoxAround(plan_.Whole.MiddleX(), plan_.Whole.MiddleY(), area.Width() * scale, area.Height() * scale);
    PaintBackdrop(page, part, scale);
    CircuitDrawing bare = drawing_; // numbers, grid and surface would hide the tiles' names
    bare.Parts.Numbers = bare.Parts.Grid = bare.Parts.Surface = false;
    page.InArea(area, part, part, scale, [&](Surface& surface) {
        for (const Sheet& sheet : plan_.Sheets)
            DrawCell(sheet, surface);
        DrawPart(bare, part, surface);
    });
    if (!plan_.Header) return;
    page.Words(HeaderOf(plan_),
               drawing_.Name + "   " + std::to_string(plan_.Sheets.size()) + " tiles of " + plan_.ScaleText(),
               Qt::AlignLeft);
    page.Words(HeaderOf(plan_), date_, Qt::AlignRight);
}

} // namespace pistaro

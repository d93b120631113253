#include "imaging/sheet_painter.h"

#include "imaging/badge_painter.h"
#include "imaging/paper_page.h"
#include "imaging/scaled_backdrop.h"
#include "imaging/sheet_margins.h"
#include "imaging/tile_marks.h"

#include <algorithm>

namespace pistaro {

namespace {

std::vector<Box> GroundsOf(const std::vector<NumberBadge>& numbers, double scale) {
    std::vector<Box> grounds;
    grounds.reserve(numbers.size());
    for (const NumberBadge& number : numbers)
        grounds.push_back(number.Ground(scale));
    return grounds;
}

} // namespace

void SheetPainter::Paint(QPainter& painter, double dotsPerInch, int number) {
    PaperPage page(painter, plan_.Height, dotsPerInch);
    if (HasOverview() && number == 0) return PaintOverview(page);
    const auto sheet = static_cast<std::size_t>(number - (HasOverview() ? 1 : 0));
    if (plan_.Guides) {
        PaintGuidingSheet(page, sheet);
    } else {
        PaintPlainSheet(page, plan_.Sheets[sheet]);
    }
}

void SheetPainter::PaintPlainSheet(PaperPage& page, const Sheet& sheet) const {
    PaintBackdrop(page, sheet.Part, plan_.Scale);
    page.InArea(plan_.Area(), sheet.Part, drawing_.Extent, plan_.Scale,
                [&](Surface& surface) { DrawPart(drawing_, sheet.Part, surface); });
    if (plan_.Header) DrawPlainMargins(page, plan_, drawing_.Name, date_);
}

void SheetPainter::PaintGuidingSheet(PaperPage& page, std::size_t number) {
    const Sheet& sheet = plan_.Sheets[number];
    const std::vector<NumberBadge>& numbers = NumbersOf(number);
    PaintBackdrop(page, sheet.Part, plan_.Scale);
    if (HasOverview()) DrawTileName(page, plan_, sheet.Name);
    page.InArea(plan_.Area(), sheet.Part, drawing_.Extent, plan_.Scale, [&](PainterSurface& surface) {
        DrawStrokes(drawing_, sheet.Part, surface);
        PaintBadges(numbers, page.Painter(), surface, page.DotsPerCm());
    });
    if (HasOverview()) DrawTileEdges(page, plan_, sheet, drawing_, GroundsOf(numbers, plan_.Scale));
    if (plan_.Header) DrawGuidingMargins(page, plan_, drawing_, sheet, date_);
}

/// Each stands in what stays of a sheet when it is cut.
const std::vector<NumberBadge>& SheetPainter::NumbersOf(std::size_t sheet) {
    if (numbers_.empty()) {
        std::vector<Box> cells;
        cells.reserve(plan_.Sheets.size());
        for (const Sheet& one : plan_.Sheets)
            cells.push_back(one.Cell);
        numbers_ = NumbersIn(drawing_, cells, plan_.Scale, BadgeHeightAt(plan_.Scale, plan_.Area()));
    }
    return numbers_[sheet];
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
    const auto onPaper = [&](const Box& cell) {
        const auto x = [&](double world) { return area.Left + (world - part.Left) / scale; };
        const auto y = [&](double world) { return area.Bottom + (world - part.Bottom) / scale; };
        return Box{x(cell.Left), y(cell.Bottom), x(cell.Right), y(cell.Top)};
    };
    // Areas and numbers would hide names that lie behind them.
    const bool namesUpon =
        drawing_.Parts.Surface || drawing_.Parts.Numbers || (backdrop_ != nullptr && drawing_.Background);
    if (!namesUpon) {
        for (const Sheet& sheet : plan_.Sheets)
            DrawTileBehind(page, onPaper(sheet.Cell), sheet.Name);
    }
    const std::vector<NumberBadge> numbers = NumbersIn(drawing_, {part}, scale, BadgeHeightAt(scale, area)).front();
    CircuitDrawing bare = drawing_; // of its grid's lines those of the tiles would not be told
    bare.Parts.Grid = false;
    page.InArea(area, part, part, scale, [&](PainterSurface& surface) {
        DrawStrokes(bare, part, surface);
        PaintBadges(numbers, page.Painter(), surface, page.DotsPerCm());
    });
    if (namesUpon) {
        std::vector<Box> grounds = GroundsOf(numbers, scale);
        std::ranges::transform(grounds, grounds.begin(), onPaper);
        std::vector<Box> pieces;
        pieces.reserve(drawing_.Pieces.size());
        for (const DrawnPiece& piece : drawing_.Pieces)
            pieces.push_back(onPaper(piece.Extent));
        for (const Sheet& sheet : plan_.Sheets)
            DrawTileUpon(page, onPaper(sheet.Cell), sheet.Name, grounds, pieces);
    }
    if (plan_.Header) DrawOverviewMargins(page, plan_, drawing_, date_);
}

} // namespace pistaro

#include "imaging/sheet_painter.h"

#include "imaging/paper_page.h"
#include "imaging/scaled_backdrop.h"
#include "render/redraw.h"

#include <algorithm>
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

constexpr Colour TileInk = Rgb(0x1F, 0x4E, 0xA8);
constexpr Colour PaleTileInk = Rgb(0xA9, 0xC0, 0xE8);

/// A plate of that size in the first of a tile's corners where it hides no number.
Box PlateIn(const Box& tile, double width, double height, const std::vector<Box>& numbers) {
    for (const double top : {tile.Top, tile.Bottom + height}) {
        for (const double left : {tile.Left, tile.Right - width}) {
            const Box plate{left, top - height, left + width, top};
            if (std::ranges::none_of(numbers, [&](const Box& number) { return plate.Meets(number); })) return plate;
        }
    }
    return {tile.Left, tile.Top - height, tile.Left + width, tile.Top};
}

constexpr double PointsPerCm = 72 / CmPerInch;
constexpr double NameLine = 1.3; ///< of its font's height

/// How wide a tile's name is, of its font's height.
double WidthOfName(const std::string& name) { return 0.75 * static_cast<double>(name.size()) + 0.2; }

/// A tile's edge with its name across its middle, for a drawing of lines to lie upon.
void DrawTileBehind(PaperPage& page, const Box& tile, const std::string& name) {
    const double height = std::min({2.0, tile.Height() * 0.7 / NameLine, tile.Width() * 0.9 / WidthOfName(name)}); // cm
    page.Words(BoxAround(tile.MiddleX(), tile.MiddleY(), tile.Width(), NameLine * height), name, Qt::AlignHCenter,
               height * PointsPerCm, QFont::Bold, PaleTileInk);
    page.OnPaper(tile, [&](Surface& surface) { DrawFrame(surface, tile, TileInk); });
}

/// A tile's edge with its name in a corner, readable upon areas of any colour by a rim of its own.
void DrawTileUpon(PaperPage& page, const Box& tile, const std::string& name, const std::vector<Box>& numbers) {
    const double height = std::min(
        {std::clamp(tile.Height() / 4, 0.28, 0.9), tile.Height() / NameLine, tile.Width() / WidthOfName(name)}); // cm
    const double rim = height / 14;
    const Box plate = PlateIn(tile, WidthOfName(name) * height, NameLine * height, numbers);
    const auto write = [&](double right, double up, Colour ink) {
        const Box place{plate.Left + right, plate.Bottom + up, plate.Right + right, plate.Top + up};
        page.Words(place, name, Qt::AlignHCenter, height * PointsPerCm, QFont::Bold, ink);
    };
    for (const int right : {-1, 0, 1}) {
        for (const int up : {-1, 0, 1})
            write(right * rim, up * rim, Rgb(255, 255, 255));
    }
    write(0, 0, TileInk);
    page.OnPaper(tile, [&](Surface& surface) { DrawFrame(surface, tile, TileInk); });
}

/// Where pieces' numbers stand on a drawing at that scale; none where they are not drawn.
std::vector<Box> NumberPlaces(const CircuitDrawing& drawing, double scale) {
    std::vector<Box> places;
    if (!drawing.Parts.Numbers) return places;
    places.reserve(drawing.Pieces.size());
    constexpr double pixelsPerCm = 96 / CmPerInch;
    for (const DrawnPiece& piece : drawing.Pieces) {
        Box place;
        const std::size_t digits = std::to_string(piece.Index).size();
        for (const WorldPoint corner : NumberPlate(piece.Placement.Label, digits, NumberSize(pixelsPerCm / scale)))
            place.Include(BoxOf(corner));
        places.push_back(place);
    }
    return places;
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
    if (HasOverview()) DrawCutMarks(page, plan_, sheet); // a sheet alone is not cut
    if (!plan_.Header) return;
    page.Words(HeaderOf(plan_), drawing_.Name + (HasOverview() ? "   " + sheet.Name : ""), Qt::AlignLeft);
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
    const auto onPaper = [&](const Box& cell) {
        const auto x = [&](double world) { return area.Left + (world - part.Left) / scale; };
        const auto y = [&](double world) { return area.Bottom + (world - part.Bottom) / scale; };
        return Box{x(cell.Left), y(cell.Bottom), x(cell.Right), y(cell.Top)};
    };
    const bool hasAreas = drawing_.Parts.Surface || (backdrop_ != nullptr && drawing_.Background);
    if (!hasAreas) {
        for (const Sheet& sheet : plan_.Sheets)
            DrawTileBehind(page, onPaper(sheet.Cell), sheet.Name);
    }
    CircuitDrawing bare = drawing_; // of its lines those of the tiles would not be told
    bare.Parts.Grid = false;
    page.InArea(area, part, part, scale, [&](Surface& surface) { DrawPart(bare, part, surface); });
    if (hasAreas) {
        std::vector<Box> numbers = NumberPlaces(drawing_, scale);
        std::ranges::transform(numbers, numbers.begin(), onPaper);
        for (const Sheet& sheet : plan_.Sheets)
            DrawTileUpon(page, onPaper(sheet.Cell), sheet.Name, numbers);
    }
    if (!plan_.Header) return;
    page.Words(HeaderOf(plan_),
               drawing_.Name + "   " + std::to_string(plan_.Sheets.size()) + " tiles of " + plan_.ScaleText(),
               Qt::AlignLeft);
    page.Words(HeaderOf(plan_), date_, Qt::AlignRight);
}

} // namespace pistaro

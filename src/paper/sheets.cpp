#include "paper/sheets.h"

#include "paper/tile_set.h"
#include "platform/fault.h"
#include "text/decimal_text.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

std::string ScaleName(double scale) {
    std::string text = "1:";
    AppendDecimal(text, scale, 3);
    return text;
}

/// A plan's sheets without what lies on them.
SheetPlan EmptyPlan(double width, double height, double scale, const SheetOptions& options) {
    SheetPlan plan;
    plan.Width = width;
    plan.Height = height;
    plan.Scale = scale;
    plan.Header = options.Header;
    plan.Guides = options.Guides;
    return plan;
}

std::vector<PaperSize> WaysToLie(const PaperSize& paper, Orientation orientation) {
    if (orientation == Orientation::Portrait) return {paper};
    if (orientation == Orientation::Landscape) return {paper.Turned()};
    return {paper, paper.Turned()};
}

/// The scale at which the drawing fills the area: rounded up, so that its text is exact.
double FittingScale(const Box& extent, const Box& area) {
    const double exact = std::max(extent.Width() / area.Width(), extent.Height() / area.Height());
    return std::max(1.0, std::ceil(exact * 10) / 10);
}

/// The drawing in the middle of one sheet.
SheetPlan SinglePlan(SheetPlan plan, const Box& extent) {
    const Box area = plan.Area();
    const Box part =
        BoxAround(extent.MiddleX(), extent.MiddleY(), area.Width() * plan.Scale, area.Height() * plan.Scale);
    plan.Sheets = {{.Name = "", .Cell = part, .Part = part}};
    plan.Whole = part;
    return plan;
}

/// A sheet as large as the drawing.
SheetPlan OwnSizePlan(const Box& extent, const SheetOptions& options) {
    constexpr double leastWidth = 11; // cm, for the rule
    const double scale = options.Scale.value_or(1);
    const double strips = options.Header ? 2 * StripHeight : 0;
    const double width = std::max(extent.Width() / scale, options.Header ? leastWidth : 0.1);
    const double height = std::max(extent.Height() / scale, 0.1);
    return SinglePlan(EmptyPlan(width + 2 * SheetMargin, height + 2 * SheetMargin + strips, scale, options), extent);
}

SheetPlan PaperPlan(const Box& extent, const SheetOptions& options) {
    std::optional<SheetPlan> best;
    for (const PaperSize& paper : WaysToLie(*options.Paper, options.Orientation)) {
        SheetPlan plan = EmptyPlan(paper.Width, paper.Height, 1, options);
        plan.Scale = FittingScale(extent, plan.Area());
        if (!best || plan.Scale < best->Scale) best = plan;
    }
    if (options.RoundScale) best->Scale = RoundedScale(best->Scale);
    if (options.Scale) {
        const Box area = best->Area();
        const bool fits = extent.Width() / *options.Scale <= area.Width() + 1e-6 &&
                          extent.Height() / *options.Scale <= area.Height() + 1e-6;
        if (!fits)
            throw Fault("Paper too small", "at " + ScaleName(*options.Scale) + " the drawing does not fit on " +
                                               options.Paper->Name + "; on one sheet it takes " +
                                               ScaleName(best->Scale) + ", else tiles");
        best->Scale = *options.Scale;
    }
    return SinglePlan(*best, extent);
}

/// "A" to "Z", then "AA" and so on.
std::string ColumnName(long long column) {
    std::string name(1, static_cast<char>('A' + column % 26));
    return column < 26 ? name : ColumnName(column / 26 - 1) + name;
}

SheetPlan TilePlan(const CircuitDrawing& drawing, SheetPlan plan, bool wallTiles) {
    const Box area = plan.Area();
    const double width = (area.Width() - TileOverlap) * plan.Scale;
    const double height = (area.Height() - TileOverlap) * plan.Scale;
    const double columns = std::max(1.0, std::ceil(drawing.Extent.Width() / width));
    const double rows = std::max(1.0, std::ceil(drawing.Extent.Height() / height));
    plan.Tiled = true;
    plan.Whole = BoxAround(drawing.Extent.MiddleX(), drawing.Extent.MiddleY(), columns * width, rows * height);
    const TileGrid grid{plan.Whole.Left, plan.Whole.Top, width, height, columns, rows};
    std::set<Tile> tiles = TilesOf(drawing, grid, MostTiles, Walls::Count);
    if (!wallTiles && !drawing.Pieces.empty()) {
        const std::size_t all = tiles.size();
        tiles = TilesOf(drawing, grid, MostTiles, Walls::DoNotCount);
        plan.LeftOut = all - tiles.size();
    }
    for (const Tile& tile : tiles) {
        const Box cell = BoxAround(grid.Left + (static_cast<double>(tile.Column) + 0.5) * width,
                                   grid.Top - (static_cast<double>(tile.Row) + 0.5) * height, width, height);
        plan.Sheets.push_back({ColumnName(tile.Column) + std::to_string(tile.Row + 1), cell,
                               cell.Wider(TileOverlap / 2 * plan.Scale), tile.Row, tile.Column});
    }
    plan.Guides = plan.Guides || plan.Sheets.size() > 1;
    if (plan.Sheets.size() > MostTiles)
        throw Fault("Too many tiles", "at " + plan.ScaleText() + " the drawing would take more than " +
                                          std::to_string(MostTiles) + " sheets");
    return plan;
}

SheetPlan BestTilePlan(const CircuitDrawing& drawing, const SheetOptions& options) {
    std::optional<SheetPlan> best;
    for (const PaperSize& paper : WaysToLie(options.Paper.value_or(PaperA4), options.Orientation)) {
        const SheetPlan plan = TilePlan(
            drawing, EmptyPlan(paper.Width, paper.Height, options.Scale.value_or(1), options), options.WallTiles);
        if (!best || plan.Sheets.size() < best->Sheets.size()) best = plan;
    }
    return *best;
}

} // namespace

Box SheetPlan::Area() const {
    const double strip = Header ? StripHeight : 0;
    return {SheetMargin, SheetMargin + strip, Width - SheetMargin, Height - SheetMargin - strip};
}

std::string SheetPlan::ScaleText() const { return ScaleName(Scale); }

const Sheet* SheetPlan::Beside(const Sheet& sheet, int right, int below) const {
    const auto place = [](const Sheet& tile) { return Tile{tile.Row, tile.Column}; };
    const Tile wanted{sheet.Row + below, sheet.Column + right};
    const auto found = std::ranges::lower_bound(Sheets, wanted, {}, place);
    return found != Sheets.end() && place(*found) == wanted ? &*found : nullptr;
}

double RoundedScale(double scale) {
    constexpr double rounding = 1e-9;
    double power = 1;
    while (power * 10 < scale)
        power *= 10;
    for (const double step : {1.0, 1.5, 2.0, 2.5, 3.0, 4.0, 5.0, 6.0, 8.0}) {
        if (step * power >= scale - rounding) return step * power;
    }
    return 10 * power;
}

SheetPlan PlanSheets(const CircuitDrawing& drawing, const SheetOptions& options) {
    if (options.Tiles) return BestTilePlan(drawing, options);
    return options.Paper ? PaperPlan(drawing.Whole(), options) : OwnSizePlan(drawing.Whole(), options);
}

} // namespace pistaro

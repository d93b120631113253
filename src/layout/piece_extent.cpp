#include "layout/piece_extent.h"

#include <algorithm>
#include <limits>

namespace pistaro {

namespace {

void Include(PieceExtent& extent, WorldPoint point) {
    extent.Left = std::min(extent.Left, point.X);
    extent.Right = std::max(extent.Right, point.X);
    extent.Bottom = std::min(extent.Bottom, point.Y);
    extent.Top = std::max(extent.Top, point.Y);
}

void Include(PieceExtent& extent, const LineSegment& line) {
    Include(extent, line.From);
    Include(extent, line.To);
}

void Include(PieceExtent& extent, const ArcSegment& arc) {
    Include(extent, PointAt(arc, arc.Start));
    Include(extent, PointAt(arc, arc.End));
}

void Include(PieceExtent&, const Ellipse&) {}

} // namespace

PieceExtent ExtentOf(const PiecePlacement& placement) {
    constexpr float most = std::numeric_limits<float>::max();
    PieceExtent extent{most, -most, most, -most};
    const auto include = [&](const auto& shape) { Include(extent, shape); };
    for (const Segment& segment : placement.Outline)
        std::visit(include, segment);
    for (const Mark& mark : placement.Marks)
        std::visit(include, mark.Shape);
    return extent;
}

} // namespace pistaro

// Stroke by stroke.
#include "render/piece_extent.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace pistaro {

namespace {

void Include(PieceExtent& extent, WorldPoint point) {
    extent.Left = std::min(extent.Left, point.X);
    extent.Right = std::max(extent.Right, point.X);
    extent.Bottom = std::min(extent.Bottom, point.Y);
    extent.Top = std::max(extent.Top, point.Y);
}

void Include(PieceExtent& extent, const LineStroke& line) {
    Include(extent, line.From);
    Include(extent, line.To);
}

void Include(PieceExtent& extent, const ArcStroke& arc) {
    for (const double angle : {double{arc.Start}, double{arc.End}})
        Include(extent, WorldPoint{static_cast<float>(arc.Centre.X + arc.Radius * std::cos(angle)),
                                   static_cast<float>(arc.Centre.Y + arc.Radius * std::sin(angle))});
}

void Include(PieceExtent&, const EllipseStroke&) {}

} // namespace

PieceExtent ExtentOf(const PiecePlacement& placement) {
    constexpr float most = std::numeric_limits<float>::max();
    PieceExtent extent{most, -most, most, -most};
    for (const Stroke& stroke : placement.Drawing)
        std::visit([&](const auto& shape) { Include(extent, shape); }, stroke.Shape);
    return extent;
}

} // namespace pistaro

#include "paper/box.h"

#include <cmath>
#include <numbers>

namespace pistaro {

void Box::Include(const Box& other) {
    Left = std::min(Left, other.Left);
    Bottom = std::min(Bottom, other.Bottom);
    Right = std::max(Right, other.Right);
    Top = std::max(Top, other.Top);
}

ViewRectangle Box::Shown() const {
    return {static_cast<float>(Left), static_cast<float>(Top), static_cast<float>(Right), static_cast<float>(Bottom)};
}

Box BoxOf(WorldPoint point) { return {point.X, point.Y, point.X, point.Y}; }

Box BoxOf(const LineSegment& line) {
    Box box = BoxOf(line.From);
    box.Include(BoxOf(line.To));
    return box;
}

Box BoxOf(const ArcSegment& arc) {
    Box box = BoxOf(PointAt(arc, arc.Start));
    box.Include(BoxOf(PointAt(arc, arc.End)));
    // The circle reaches furthest at the quarter turns that the arc passes.
    constexpr double quarter = std::numbers::pi / 2;
    const double last = arc.Start + SpanOf(arc);
    for (double turn = std::ceil(arc.Start / quarter); turn * quarter <= last; ++turn)
        box.Include(BoxOf(PointAt(arc, turn * quarter)));
    return box;
}

Box BoxOf(const Ellipse& ellipse) {
    return BoxAround(ellipse.Centre.X, ellipse.Centre.Y, 2 * ellipse.Radius, 2 * ellipse.Radius * ellipse.Aspect);
}

Box BoxAround(double x, double y, double width, double height) {
    return {x - width / 2, y - height / 2, x + width / 2, y + height / 2};
}

} // namespace pistaro

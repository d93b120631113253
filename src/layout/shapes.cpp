#include "layout/shapes.h"

#include <cmath>
#include <numbers>

namespace pistaro {

namespace {

double Length(const LineSegment& line) {
    return std::hypot(double{line.To.X} - line.From.X, double{line.To.Y} - line.From.Y);
}

double Length(const ArcSegment& arc) { return arc.Radius * SpanOf(arc); }

} // namespace

double SpanOf(const ArcSegment& arc) {
    return arc.End >= arc.Start ? double{arc.End} - arc.Start : arc.End - arc.Start + 2 * std::numbers::pi;
}

WorldPoint PointAt(const ArcSegment& arc, double angle) {
    return {static_cast<float>(arc.Centre.X + arc.Radius * std::cos(angle)),
            static_cast<float>(arc.Centre.Y + arc.Radius * std::sin(angle))};
}

double LengthOf(const Segment& segment) {
    return std::visit([](const auto& shape) { return Length(shape); }, segment);
}

} // namespace pistaro

#include "layout/outline.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

/// Points along an arc without its ends, from the end that lies at `from`.
void AddChords(std::vector<WorldPoint>& polygon, const ArcSegment& arc, WorldPoint from, double tolerance) {
    const double span = SpanOf(arc);
    const double widest = 2 * std::acos(std::max(0.0, 1 - tolerance / arc.Radius)); // its chord strays by the tolerance
    const int chords = std::max(1, static_cast<int>(std::ceil(span / widest)));
    const WorldPoint start = PointAt(arc, arc.Start);
    const WorldPoint end = PointAt(arc, arc.Start + span);
    const auto distance = [&](WorldPoint point) {
        return std::hypot(double{point.X} - from.X, double{point.Y} - from.Y);
    };
    const bool forwards = distance(start) <= distance(end);
    for (int chord = 1; chord < chords; ++chord) {
        const double part = span * chord / chords;
        polygon.push_back(PointAt(arc, forwards ? arc.Start + part : arc.Start + span - part));
    }
}

} // namespace

std::vector<WorldPoint> OutlinePolygon(const PiecePlacement& placement, double tolerance) {
    const Corners& corners = placement.Corners;
    std::vector<WorldPoint> polygon{corners.Entry};
    const auto* const inner = std::get_if<ArcSegment>(&placement.Outline[0]);
    const auto* const outer = std::get_if<ArcSegment>(&placement.Outline[1]);
    const bool curved = inner != nullptr && outer != nullptr;
    const bool innerIsReference = placement.Lanes[0].Side == LaneSide::Left;
    if (curved) AddChords(polygon, innerIsReference ? *inner : *outer, corners.Entry, tolerance);
    polygon.push_back(corners.Exit);
    polygon.push_back(corners.OtherExit);
    if (curved) AddChords(polygon, innerIsReference ? *outer : *inner, corners.OtherExit, tolerance);
    polygon.push_back(corners.OtherEntry);
    return polygon;
}

} // namespace pistaro

// A curve's edges run from corner to corner: to the right, the banked curve's arcs are drawn a little shorter than
// that.
#include "layout/outline.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace pistaro {

namespace {

double AngleOf(WorldPoint point, WorldPoint centre) {
    return std::atan2(double{point.Y} - centre.Y, double{point.X} - centre.X);
}

/// Points along the arc's circle the short way from one corner to the next, without the corners themselves.
void AddChords(std::vector<WorldPoint>& polygon, const ArcSegment& arc, WorldPoint from, WorldPoint to,
               double tolerance) {
    const double start = AngleOf(from, arc.Centre);
    const double turn = std::remainder(AngleOf(to, arc.Centre) - start, 2 * std::numbers::pi);
    const double widest = 2 * std::acos(std::max(0.0, 1 - tolerance / arc.Radius)); // its chord strays by the tolerance
    const int chords = std::max(1, static_cast<int>(std::ceil(std::fabs(turn) / widest)));
    for (int chord = 1; chord < chords; ++chord)
        polygon.push_back(PointAt(arc, start + turn * chord / chords));
}

} // namespace

std::vector<WorldPoint> OutlinePolygon(const PiecePlacement& placement, double tolerance) {
    const Corners& corners = placement.Corners;
    std::vector<WorldPoint> polygon{corners.Entry};
    const auto* const inner = std::get_if<ArcSegment>(&placement.Outline[0]);
    const auto* const outer = std::get_if<ArcSegment>(&placement.Outline[1]);
    const bool curved = inner != nullptr && outer != nullptr;
    const bool innerIsReference = placement.Lanes[0].Side == LaneSide::Left;
    if (curved) AddChords(polygon, innerIsReference ? *inner : *outer, corners.Entry, corners.Exit, tolerance);
    polygon.push_back(corners.Exit);
    polygon.push_back(corners.OtherExit);
    if (curved)
        AddChords(polygon, innerIsReference ? *outer : *inner, corners.OtherExit, corners.OtherEntry, tolerance);
    polygon.push_back(corners.OtherEntry);
    return polygon;
}

} // namespace pistaro

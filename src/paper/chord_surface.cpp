#include "paper/chord_surface.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace pistaro {

void ChordSurface::Draw(const LineSegment& line, Colour) { Add(line.From.X, line.From.Y, line.To.X, line.To.Y); }

void ChordSurface::Draw(const ArcSegment& arc, Colour) {
    AddArc({arc.Centre.X, arc.Centre.Y, arc.Radius, arc.Radius}, arc.Start, SpanOf(arc));
}

void ChordSurface::Draw(const Ellipse& ellipse, Colour) {
    AddArc({ellipse.Centre.X, ellipse.Centre.Y, ellipse.Radius, ellipse.Radius * ellipse.Aspect}, 0,
           2 * std::numbers::pi);
}

void ChordSurface::DrawPoint(WorldPoint point, Colour) { Add(point.X, point.Y, point.X, point.Y); }

/// None strays from its arc as far as a line is wide.
void ChordSurface::AddArc(const Axes& axes, double start, double span) {
    constexpr double chordAngle = 0.02;
    const int chords = std::max(1, static_cast<int>(std::ceil(span / chordAngle)));
    const auto at = [&](int i) { return start + span * i / chords; };
    for (int i = 0; i < chords; ++i) {
        Add(axes.X + axes.Across * std::cos(at(i)), axes.Y + axes.Up * std::sin(at(i)),
            axes.X + axes.Across * std::cos(at(i + 1)), axes.Y + axes.Up * std::sin(at(i + 1)));
    }
}

} // namespace pistaro

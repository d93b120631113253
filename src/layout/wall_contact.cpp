#include "layout/wall_contact.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

/// A stretch of a wall, as parts of its length.
struct Stretch {
    double Begin = 0, End = 1;

    bool IsEmpty() const { return Begin >= End; }
    /// Keeps where depth, which runs from one value to the other, is above 0.
    void KeepAbove(double depthAtFrom, double depthAtTo) {
        if (depthAtFrom <= 0 && depthAtTo <= 0) End = Begin;
        if (IsEmpty() || (depthAtFrom > 0 && depthAtTo > 0)) return;
        const double crossing = depthAtFrom / (depthAtFrom - depthAtTo);
        if (depthAtFrom > 0) End = std::min(End, crossing);
        if (depthAtTo > 0) Begin = std::max(Begin, crossing);
    }
};

/// How far a point lies to the left of a line.
double LeftOf(GroundPoint point, GroundPoint from, Direction along) {
    return along.X * (point.Y - from.Y) - along.Y * (point.X - from.X);
}

bool RunsThroughStraight(const Wall& wall, const Ground& straight, double touch) {
    Stretch inside;
    for (std::size_t i = 0; i < 4; ++i) {
        const GroundPoint from = straight.Corners[i];
        const GroundPoint to = straight.Corners[(i + 1) % 4];
        const double length = std::hypot(to.X - from.X, to.Y - from.Y);
        const Direction along{(to.X - from.X) / length, (to.Y - from.Y) / length};
        inside.KeepAbove(LeftOf(wall.From, from, along) - touch, LeftOf(wall.To, from, along) - touch);
    }
    return !inside.IsEmpty();
}

bool RunsThroughCurve(const Wall& wall, const Ground& curve, double touch) {
    Stretch inside;
    const Direction to{-curve.To.X, -curve.To.Y};
    inside.KeepAbove(LeftOf(wall.From, curve.Centre, curve.From) - touch,
                     LeftOf(wall.To, curve.Centre, curve.From) - touch);
    inside.KeepAbove(LeftOf(wall.From, curve.Centre, to) - touch, LeftOf(wall.To, curve.Centre, to) - touch);
    if (inside.IsEmpty()) return false;

    // Between the two ends, a straight line's distances from the centre are all those from its least to its greatest.
    const Direction run{wall.To.X - wall.From.X, wall.To.Y - wall.From.Y};
    const Direction from{wall.From.X - curve.Centre.X, wall.From.Y - curve.Centre.Y};
    const auto radiusAt = [&](double part) { return std::hypot(from.X + part * run.X, from.Y + part * run.Y); };
    const double foot = -(from.X * run.X + from.Y * run.Y) / (run.X * run.X + run.Y * run.Y);
    const double least = radiusAt(std::clamp(foot, inside.Begin, inside.End));
    const double greatest = std::max(radiusAt(inside.Begin), radiusAt(inside.End));
    return least < curve.OuterRadius - touch && greatest > curve.InnerRadius + touch;
}

} // namespace

bool RunsThrough(const Wall& wall, const Ground& ground, double touch) {
    const GroundBox box{std::min(wall.From.X, wall.To.X), std::max(wall.From.X, wall.To.X),
                        std::min(wall.From.Y, wall.To.Y), std::max(wall.From.Y, wall.To.Y)};
    if (!box.Meets(ground.Box)) return false;
    return ground.IsCurved ? RunsThroughCurve(wall, ground, touch) : RunsThroughStraight(wall, ground, touch);
}

} // namespace pistaro

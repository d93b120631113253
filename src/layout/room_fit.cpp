#include "layout/room_fit.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace pistaro {

namespace {

/// How deep a wall may reach into a piece that touches it: what hundreds of pieces add up to by rounding, cm.
constexpr double Touch = 0.01;

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

bool RunsThroughStraight(const Wall& wall, const Ground& straight) {
    Stretch inside;
    for (std::size_t i = 0; i < 4; ++i) {
        const GroundPoint from = straight.Corners[i];
        const GroundPoint to = straight.Corners[(i + 1) % 4];
        const double length = std::hypot(to.X - from.X, to.Y - from.Y);
        const Direction along{(to.X - from.X) / length, (to.Y - from.Y) / length};
        inside.KeepAbove(LeftOf(wall.From, from, along) - Touch, LeftOf(wall.To, from, along) - Touch);
    }
    return !inside.IsEmpty();
}

bool RunsThroughCurve(const Wall& wall, const Ground& curve) {
    Stretch inside;
    const Direction to{-curve.To.X, -curve.To.Y};
    inside.KeepAbove(LeftOf(wall.From, curve.Centre, curve.From) - Touch,
                     LeftOf(wall.To, curve.Centre, curve.From) - Touch);
    inside.KeepAbove(LeftOf(wall.From, curve.Centre, to) - Touch, LeftOf(wall.To, curve.Centre, to) - Touch);
    if (inside.IsEmpty()) return false;

    // Between the two ends, a straight line's distances from the centre are all those from its least to its greatest.
    const Direction run{wall.To.X - wall.From.X, wall.To.Y - wall.From.Y};
    const Direction from{wall.From.X - curve.Centre.X, wall.From.Y - curve.Centre.Y};
    const auto radiusAt = [&](double part) { return std::hypot(from.X + part * run.X, from.Y + part * run.Y); };
    const double foot = -(from.X * run.X + from.Y * run.Y) / (run.X * run.X + run.Y * run.Y);
    const double least = radiusAt(std::clamp(foot, inside.Begin, inside.End));
    const double greatest = std::max(radiusAt(inside.Begin), radiusAt(inside.End));
    return least < curve.OuterRadius - Touch && greatest > curve.InnerRadius + Touch;
}

bool RunsThrough(const Wall& wall, const Ground& ground) {
    const GroundBox box{std::min(wall.From.X, wall.To.X), std::max(wall.From.X, wall.To.X),
                        std::min(wall.From.Y, wall.To.Y), std::max(wall.From.Y, wall.To.Y)};
    if (!box.Meets(ground.Box)) return false;
    return ground.IsCurved ? RunsThroughCurve(wall, ground) : RunsThroughStraight(wall, ground);
}

/// Whether a ray to the right crosses the wall.
bool IsRightOf(const Wall& wall, GroundPoint point) {
    if ((wall.From.Y > point.Y) == (wall.To.Y > point.Y)) return false;
    const double part = (point.Y - wall.From.Y) / (wall.To.Y - wall.From.Y);
    return wall.From.X + part * (wall.To.X - wall.From.X) > point.X;
}

GroundPoint Exact(WorldPoint point) { return {point.X, point.Y}; }

bool IsSamePlace(const RoomPoint& a, const RoomPoint& b) { return a.X == b.X && a.Y == b.Y; }

/// Whether the line from one point to the next that ends where it began encloses more than a wall's two faces.
bool EnclosesArea(const std::vector<RoomPoint>& points, std::size_t begin, std::size_t end) {
    std::int64_t twice = 0;
    for (std::size_t i = begin; i < end; ++i)
        twice += std::int64_t{points[i].X} * points[i + 1].Y - std::int64_t{points[i + 1].X} * points[i].Y;
    return twice != 0;
}

} // namespace

WorldPoint RoomCorner(const RoomPolygon& room, const RoomPoint& point) {
    const double cosine = std::cos(double{room.Angle});
    const double sine = std::sin(double{room.Angle});
    return {static_cast<float>(point.X * cosine + point.Y * sine),
            static_cast<float>(point.Y * cosine - point.X * sine)};
}

RoomFit::RoomFit(const RoomPolygon& room) {
    const std::vector<RoomPoint>& points = room.Points;
    std::size_t begin = 0;     // of the line that is being followed: its first point
    std::size_t firstWall = 0; // and its first wall
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (points[i].Line == 1) {
            if (IsSamePlace(points[i - 1], points[i])) continue;
            walls_.push_back({Exact(RoomCorner(room, points[i - 1])), Exact(RoomCorner(room, points[i]))});
            if (!IsSamePlace(points[begin], points[i])) continue;
            if (EnclosesArea(points, begin, i)) {
                isClosed_ = isClosed_ || firstWall == 0;
                outlines_.insert(outlines_.end(), walls_.begin() + static_cast<std::ptrdiff_t>(firstWall),
                                 walls_.end());
            }
        }
        begin = i;
        firstWall = walls_.size();
    }
}

bool RoomFit::Holds(const Ground& ground) const {
    if (std::ranges::any_of(walls_, [&](const Wall& wall) { return RunsThrough(wall, ground); })) return false;
    return Holds(MiddleOf(ground));
}

bool RoomFit::Encloses(GroundPoint point) const {
    return std::ranges::count_if(outlines_, [&](const Wall& wall) { return IsRightOf(wall, point); }) % 2 == 1;
}

} // namespace pistaro

#include "layout/room_fit.h"

#include "layout/wall_contact.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <span>

namespace pistaro {

namespace {

/// How deep a wall may reach into a piece that touches it: what hundreds of pieces add up to by rounding, cm.
constexpr double Touch = 0.01;

/// Whether a ray to the right crosses the wall.
bool IsRightOf(const Wall& wall, GroundPoint point) {
    if ((wall.From.Y > point.Y) == (wall.To.Y > point.Y)) return false;
    const double part = (point.Y - wall.From.Y) / (wall.To.Y - wall.From.Y);
    return wall.From.X + part * (wall.To.X - wall.From.X) > point.X;
}

/// Whether they enclose the point, closed outlines as they are.
bool AnOddNumberIsRightOf(GroundPoint point, std::span<const Wall> walls) {
    return std::ranges::count_if(walls, [&](const Wall& wall) { return IsRightOf(wall, point); }) % 2 == 1;
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
                if (firstWall == 0) ownOutline_ = std::ssize(outlines_);
            }
        }
        begin = i;
        firstWall = walls_.size();
    }
}

bool RoomFit::Holds(const Ground& ground) const {
    if (std::ranges::any_of(walls_, [&](const Wall& wall) { return RunsThrough(wall, ground, Touch); })) return false;
    return Holds(MiddleOf(ground));
}

Obstacle RoomFit::ObstacleOf(const Ground& ground) const {
    if (Holds(ground)) return Obstacle::None;
    const auto meets = [&](const Wall& wall) { return RunsThrough(wall, ground, Touch); };
    const std::span own(outlines_.begin(), outlines_.begin() + ownOutline_);
    const std::span pillars(outlines_.begin() + ownOutline_, outlines_.end());
    const GroundPoint middle = MiddleOf(ground);
    if (isClosed_ && (std::ranges::any_of(own, meets) || !AnOddNumberIsRightOf(middle, own))) return Obstacle::Room;
    const auto open = std::ranges::count_if(walls_, meets) - std::ranges::count_if(outlines_, meets);
    if (!isClosed_ && open > 0) return Obstacle::Room;
    return std::ranges::any_of(pillars, meets) || AnOddNumberIsRightOf(middle, pillars) ? Obstacle::Pillar
                                                                                        : Obstacle::InnerWall;
}

bool RoomFit::Encloses(GroundPoint point) const { return AnOddNumberIsRightOf(point, outlines_); }

} // namespace pistaro

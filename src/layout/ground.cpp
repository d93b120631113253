#include "layout/ground.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

GroundPoint Exact(WorldPoint point) { return {point.X, point.Y}; }

double Cross(Direction a, Direction b) { return a.X * b.Y - a.Y * b.X; }

Direction FromTo(GroundPoint from, GroundPoint to) {
    const double length = std::hypot(to.X - from.X, to.Y - from.Y);
    return {(to.X - from.X) / length, (to.Y - from.Y) / length};
}

void Include(GroundBox& box, GroundPoint point) {
    box.Left = std::min(box.Left, point.X);
    box.Right = std::max(box.Right, point.X);
    box.Bottom = std::min(box.Bottom, point.Y);
    box.Top = std::max(box.Top, point.Y);
}

/// Whether a direction from the centre leads through the sector.
bool IsWithinTurn(const Ground& curve, Direction direction) {
    return Cross(curve.From, direction) >= 0 && Cross(direction, curve.To) >= 0;
}

GroundBox BoxOf(const Ground& ground) {
    const GroundPoint first = ground.Corners[0];
    GroundBox box{first.X, first.X, first.Y, first.Y};
    for (const GroundPoint corner : ground.Corners)
        Include(box, corner);
    if (!ground.IsCurved) return box;
    for (const Direction axis : {Direction{1, 0}, Direction{0, 1}, Direction{-1, 0}, Direction{0, -1}}) {
        if (!IsWithinTurn(ground, axis)) continue;
        Include(box, {ground.Centre.X + ground.OuterRadius * axis.X, ground.Centre.Y + ground.OuterRadius * axis.Y});
    }
    return box;
}

bool IsLeftOf(GroundPoint point, GroundPoint from, GroundPoint to) {
    return (to.X - from.X) * (point.Y - from.Y) - (to.Y - from.Y) * (point.X - from.X) >= 0;
}

} // namespace

Ground GroundOf(const PiecePlacement& placement) {
    const Corners& corners = placement.Corners;
    Ground ground;
    ground.Corners = {Exact(corners.Entry), Exact(corners.OtherEntry), Exact(corners.OtherExit), Exact(corners.Exit)};
    const auto* const inner = std::get_if<ArcSegment>(&placement.Outline[0]);
    const auto* const outer = std::get_if<ArcSegment>(&placement.Outline[1]);
    if (inner != nullptr && outer != nullptr) {
        // The ends are those of the corners: to the right, the banked curve's arcs are drawn shorter than that.
        const bool left = placement.Lanes[0].Side == LaneSide::Left;
        ground.IsCurved = true;
        ground.Centre = Exact(inner->Centre);
        ground.InnerRadius = inner->Radius;
        ground.OuterRadius = outer->Radius;
        const Direction entry = FromTo(ground.Centre, left ? ground.Corners[1] : ground.Corners[0]);
        const Direction exit = FromTo(ground.Centre, left ? ground.Corners[2] : ground.Corners[3]);
        ground.From = left ? entry : exit;
        ground.To = left ? exit : entry;
        ground.Turn = std::acos(std::clamp(entry.X * exit.X + entry.Y * exit.Y, -1.0, 1.0));
    }
    ground.Box = BoxOf(ground);
    return ground;
}

std::vector<Ground> GroundsOf(const Catalogue& catalogue, const Track& track) {
    std::vector<Ground> grounds;
    WalkTrack(catalogue, track, [&](int, const PiecePlacement* placement, const BuildCursor&) {
        if (placement != nullptr) grounds.push_back(GroundOf(*placement));
    });
    return grounds;
}

std::vector<Ground> GroundsBeside(const Catalogue& catalogue, const Circuit& circuit, int track) {
    std::vector<Ground> others;
    for (int each = 0; each < TrackCount; ++each) {
        if (each == track) continue;
        const std::vector<Ground> grounds = GroundsOf(catalogue, circuit.Tracks[static_cast<std::size_t>(each)]);
        others.insert(others.end(), grounds.begin(), grounds.end());
    }
    return others;
}

GroundPoint MiddleOf(const Ground& ground) {
    if (!ground.IsCurved) {
        GroundPoint sum;
        for (const GroundPoint corner : ground.Corners)
            sum = {sum.X + corner.X / 4, sum.Y + corner.Y / 4};
        return sum;
    }
    const Direction between = FromTo({0, 0}, {ground.From.X + ground.To.X, ground.From.Y + ground.To.Y});
    const double radius = (ground.InnerRadius + ground.OuterRadius) / 2;
    return {ground.Centre.X + radius * between.X, ground.Centre.Y + radius * between.Y};
}

bool Covers(const Ground& ground, GroundPoint point) {
    if (ground.IsCurved) {
        const Direction from{point.X - ground.Centre.X, point.Y - ground.Centre.Y};
        const double radius = std::hypot(from.X, from.Y);
        return radius >= ground.InnerRadius && radius <= ground.OuterRadius && IsWithinTurn(ground, from);
    }
    for (std::size_t i = 0; i < 4; ++i) {
        if (!IsLeftOf(point, ground.Corners[i], ground.Corners[(i + 1) % 4])) return false;
    }
    return true;
}

} // namespace pistaro

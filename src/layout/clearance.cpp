#include "layout/clearance.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace pistaro {

namespace {

/// Calls visit(edge) for each side of a piece, arcs as chords that lie half beyond them, half within.
template <typename Visit>
void ForEachEdge(const Ground& ground, Visit visit) {
    for (std::size_t i = 0; i < 4; ++i) {
        // Of a curve the arcs run between corners 1 and 2, and between 3 and 0.
        if (ground.IsCurved && i % 2 != 0) continue;
        visit(Edge{ground.Corners[i], ground.Corners[(i + 1) % 4]});
    }
    if (!ground.IsCurved) return;
    constexpr double widest = std::numbers::pi / 31;
    const int count = std::max(1, static_cast<int>(std::ceil(ground.Turn / widest)));
    const Direction step = Towards(ground.Turn / count);
    const double wider = 2 / (1 + std::cos(ground.Turn / count / 2));
    for (const double radius : {ground.InnerRadius, ground.OuterRadius}) {
        const double chordRadius = radius * wider;
        Direction here = ground.From;
        for (int chord = 0; chord < count; ++chord) {
            const Direction next{here.X * step.X - here.Y * step.Y, here.X * step.Y + here.Y * step.X};
            const Edge edge{{ground.Centre.X + chordRadius * here.X, ground.Centre.Y + chordRadius * here.Y},
                            {ground.Centre.X + chordRadius * next.X, ground.Centre.Y + chordRadius * next.Y}};
            visit(edge);
            here = next;
        }
    }
}

double DistanceFrom(GroundPoint point, GroundPoint from, GroundPoint to) {
    const double alongX = to.X - from.X;
    const double alongY = to.Y - from.Y;
    const double squared = alongX * alongX + alongY * alongY;
    const double part =
        squared == 0 ? 0 : std::clamp(((point.X - from.X) * alongX + (point.Y - from.Y) * alongY) / squared, 0.0, 1.0);
    return std::hypot(from.X + part * alongX - point.X, from.Y + part * alongY - point.Y);
}

/// Of two lines that do not cross.
double DistanceBetween(const Edge& edge, const Wall& wall) {
    return std::min({DistanceFrom(edge.From, wall.From, wall.To), DistanceFrom(edge.To, wall.From, wall.To),
                     DistanceFrom(wall.From, edge.From, edge.To), DistanceFrom(wall.To, edge.From, edge.To)});
}

/// By a root alone: the library's way round overflows costs several times as much.
double Length(double x, double y) { return std::sqrt(x * x + y * y); }

/// The distances from a curve's centre between which an edge runs within the curve's sector.
struct Radii {
    double Least, Greatest;
};

std::optional<Radii> RadiiWithin(const Ground& curve, const Edge& edge) {
    const GroundPoint from{edge.From.X - curve.Centre.X, edge.From.Y - curve.Centre.Y};
    const Direction run{edge.To.X - edge.From.X, edge.To.Y - edge.From.Y};
    double begin = 0;
    double end = 1;
    const auto keepAbove = [&](double atFrom, double atTo) {
        if (atFrom <= 0 && atTo <= 0) end = -1;
        if (atFrom > 0 && atTo < 0) end = std::min(end, atFrom / (atFrom - atTo));
        if (atFrom < 0 && atTo > 0) begin = std::max(begin, atFrom / (atFrom - atTo));
    };
    const auto left = [](Direction axis, double x, double y) { return axis.X * y - axis.Y * x; };
    keepAbove(left(curve.From, from.X, from.Y), left(curve.From, from.X + run.X, from.Y + run.Y));
    keepAbove(-left(curve.To, from.X, from.Y), -left(curve.To, from.X + run.X, from.Y + run.Y));
    if (begin >= end) return std::nullopt;
    const auto radiusAt = [&](double part) { return Length(from.X + part * run.X, from.Y + part * run.Y); };
    const double squared = run.X * run.X + run.Y * run.Y;
    const double foot = squared == 0 ? 0 : -(from.X * run.X + from.Y * run.Y) / squared;
    return Radii{radiusAt(std::clamp(foot, begin, end)), std::max(radiusAt(begin), radiusAt(end))};
}

/// Whether all of a box lies further from a curve's centre.
bool LiesBeyond(const Ground& curve, double radius, const GroundBox& box) {
    const double x = std::clamp(curve.Centre.X, box.Left, box.Right) - curve.Centre.X;
    const double y = std::clamp(curve.Centre.Y, box.Bottom, box.Top) - curve.Centre.Y;
    return x * x + y * y >= radius * radius;
}

/// Whether all of a box lies on the far side of one of the two lines from a curve's centre that bound its sector.
bool LiesBesideSector(const Ground& curve, const GroundBox& box) {
    const auto most = [&](Direction axis, double sign) {
        const double x = sign * -axis.Y;
        const double y = sign * axis.X;
        return x * ((x > 0 ? box.Right : box.Left) - curve.Centre.X) +
               y * ((y > 0 ? box.Top : box.Bottom) - curve.Centre.Y);
    };
    return most(curve.From, 1) <= 0 || most(curve.To, -1) <= 0;
}

} // namespace

double DistanceFrom(GroundPoint point, const Wall& wall) { return DistanceFrom(point, wall.From, wall.To); }

std::optional<double> WallClearance(const Ground& ground, const Wall& wall, double reach) {
    const GroundBox box{std::min(wall.From.X, wall.To.X), std::max(wall.From.X, wall.To.X),
                        std::min(wall.From.Y, wall.To.Y), std::max(wall.From.Y, wall.To.Y)};
    if (!box.Meets(ground.Box.Grown(reach))) return std::nullopt;
    double nearest = reach;
    ForEachEdge(ground, [&](const Edge& edge) { nearest = std::min(nearest, DistanceBetween(edge, wall)); });
    return nearest < reach ? std::optional(nearest) : std::nullopt;
}

std::vector<Edge> EdgesOf(const Ground& ground) {
    std::vector<Edge> edges;
    ForEachEdge(ground, [&](const Edge& edge) { edges.push_back(edge); });
    return edges;
}

std::optional<double> SlideClearance(const Ground& curve, const GroundBox& box, const std::vector<Edge>& edges,
                                     double reach) {
    constexpr double touch = 0.5; // cm: pieces that are laid against each other may press into each other a little
    if (!curve.IsCurved || LiesBeyond(curve, curve.OuterRadius + reach, box) || LiesBesideSector(curve, box))
        return std::nullopt;
    double nearest = reach;
    for (const Edge& edge : edges) {
        const std::optional<Radii> radii = RadiiWithin(curve, edge);
        if (!radii || radii->Greatest <= curve.InnerRadius + touch) continue;
        if (radii->Least < curve.OuterRadius - touch) return std::nullopt;
        nearest = std::min(nearest, std::max(0.0, radii->Least - curve.OuterRadius));
    }
    return nearest < reach ? std::optional(nearest) : std::nullopt;
}

} // namespace pistaro

// Curves are taken in convex parts: few wide ones that hold the whole curve tell most pairs apart by separating axes;
// many narrow ones of the curve's true area are clipped against each other where that does not.
#include "layout/overlap.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

namespace pistaro {

namespace {

/// Anticlockwise.
using Quadrangle = std::array<GroundPoint, 4>;

/// Ground that is no wider than this in some direction is less than OverlapTolerance, as no piece is 45 cm from end to
/// end.
constexpr double Hairline = 0.02;

constexpr double WidestCover = std::numbers::pi / 7; ///< radians: 22.5 degrees are one part, 90 are four
constexpr double WidestPart = std::numbers::pi / 127;
constexpr std::size_t MostCovers = 4;

template <typename Visit>
void ForEachSlice(const Ground& curve, int count, double innerRadius, double outerRadius, Visit visit) {
    const Direction step = Towards(curve.Turn / count);
    const auto at = [&](Direction direction, double radius) {
        return GroundPoint{curve.Centre.X + radius * direction.X, curve.Centre.Y + radius * direction.Y};
    };
    Direction here = curve.From;
    for (int slice = 0; slice < count; ++slice) {
        const Direction next{here.X * step.X - here.Y * step.Y, here.X * step.Y + here.Y * step.X};
        visit(Quadrangle{at(here, innerRadius), at(here, outerRadius), at(next, outerRadius), at(next, innerRadius)});
        here = next;
    }
}

int SlicesOf(const Ground& curve, double widest) {
    return std::max(1, static_cast<int>(std::ceil(curve.Turn / widest - 1e-6)));
}

/// Quadrangles that hold the whole piece, and hardly more.
BoundedList<Quadrangle, MostCovers> CoversOf(const Ground& ground) {
    BoundedList<Quadrangle, MostCovers> covers;
    if (!ground.IsCurved) {
        covers.Add(ground.Corners);
        return covers;
    }
    const int count = SlicesOf(ground, WidestCover);
    const double outer = ground.OuterRadius / std::cos(ground.Turn / count / 2);
    ForEachSlice(ground, count, ground.InnerRadius, outer, [&](const Quadrangle& slice) { covers.Add(slice); });
    return covers;
}

/// Quadrangles of together the piece's own area: their chords cross the arcs instead of cutting them off.
template <typename Visit>
void ForEachPart(const Ground& ground, Visit visit) {
    if (!ground.IsCurved) {
        visit(ground.Corners);
        return;
    }
    const int count = SlicesOf(ground, WidestPart);
    const double angle = ground.Turn / count;
    const double wider = std::sqrt(angle / std::sin(angle));
    ForEachSlice(ground, count, ground.InnerRadius * wider, ground.OuterRadius * wider, visit);
}

GroundBox BoxOf(const Quadrangle& part) {
    const auto [left, right] = std::minmax({part[0].X, part[1].X, part[2].X, part[3].X});
    const auto [bottom, top] = std::minmax({part[0].Y, part[1].Y, part[2].Y, part[3].Y});
    return {left, right, bottom, top};
}

/// Whether one of a's sides has all of b beyond it, but for a hairline.
bool HasSideBeforeAllOf(const Quadrangle& a, const Quadrangle& b) {
    for (std::size_t i = 0; i < 4; ++i) {
        const GroundPoint from = a[i];
        const GroundPoint to = a[(i + 1) % 4];
        const double outX = to.Y - from.Y;
        const double outY = from.X - to.X;
        double nearest = (b[0].X - from.X) * outX + (b[0].Y - from.Y) * outY;
        for (std::size_t j = 1; j < 4; ++j)
            nearest = std::min(nearest, (b[j].X - from.X) * outX + (b[j].Y - from.Y) * outY);
        if (nearest >= 0) return true;
        if (nearest * nearest < Hairline * Hairline * (outX * outX + outY * outY)) return true;
    }
    return false;
}

bool AreApart(const Quadrangle& a, const Quadrangle& b) { return HasSideBeforeAllOf(a, b) || HasSideBeforeAllOf(b, a); }

bool AreApart(const Ground& a, const Ground& b) {
    const auto coversOfB = CoversOf(b);
    for (const Quadrangle& coverOfA : CoversOf(a)) {
        for (const Quadrangle& coverOfB : coversOfB) {
            if (!AreApart(coverOfA, coverOfB)) return false;
        }
    }
    return true;
}

/// What is left of one quadrangle within another: each side cuts off at most one corner more than it adds.
using Clipped = BoundedList<GroundPoint, 16>;

/// The part of a polygon to the left of a line.
Clipped CutAlong(const Clipped& polygon, GroundPoint from, GroundPoint to) {
    const auto depth = [&](GroundPoint point) {
        return (to.X - from.X) * (point.Y - from.Y) - (to.Y - from.Y) * (point.X - from.X);
    };
    Clipped left;
    const GroundPoint* here = polygon.end() - 1;
    double depthHere = depth(*here);
    for (const GroundPoint& next : polygon) {
        const double depthNext = depth(next);
        if ((depthHere >= 0) != (depthNext >= 0)) {
            const double along = depthHere / (depthHere - depthNext);
            left.Add({here->X + along * (next.X - here->X), here->Y + along * (next.Y - here->Y)});
        }
        if (depthNext >= 0) left.Add(next);
        here = &next;
        depthHere = depthNext;
    }
    return left;
}

double AreaOf(const Clipped& polygon) {
    if (polygon.size() == 0) return 0;
    double twice = 0;
    const GroundPoint* before = polygon.end() - 1;
    for (const GroundPoint& point : polygon) {
        twice += before->X * point.Y - point.X * before->Y;
        before = &point;
    }
    return twice / 2;
}

/// A part with its box.
struct BoxedPart {
    Quadrangle Corners;
    GroundBox Box;
};

/// The parts of a piece that meet a box.
std::vector<BoxedPart> PartsMeeting(const Ground& ground, const GroundBox& box) {
    std::vector<BoxedPart> parts;
    parts.reserve(ground.IsCurved ? static_cast<std::size_t>(SlicesOf(ground, WidestPart)) : 1);
    ForEachPart(ground, [&](const Quadrangle& part) {
        const GroundBox boxOfPart = BoxOf(part);
        if (boxOfPart.Meets(box)) parts.push_back({part, boxOfPart});
    });
    return parts;
}

double CommonArea(const Quadrangle& a, const Quadrangle& b) {
    // Around a corner of its own, as places far from the origin have fewer digits to spare.
    const GroundPoint origin = a[0];
    const auto moved = [&](GroundPoint point) { return GroundPoint{point.X - origin.X, point.Y - origin.Y}; };
    Clipped common;
    for (const GroundPoint corner : a)
        common.Add(moved(corner));
    for (std::size_t i = 0; i < 4 && common.size() != 0; ++i)
        common = CutAlong(common, moved(b[i]), moved(b[(i + 1) % 4]));
    return AreaOf(common);
}

/// The area that both cover; where it is more than `enough`, part of it.
double CommonArea(const Ground& a, const Ground& b, double enough) {
    double area = 0;
    const std::vector<BoxedPart> partsOfB = PartsMeeting(b, a.Box);
    for (const BoxedPart& partOfA : PartsMeeting(a, b.Box)) {
        for (const BoxedPart& partOfB : partsOfB) {
            if (!partOfA.Box.Meets(partOfB.Box)) continue;
            area += CommonArea(partOfA.Corners, partOfB.Corners);
            if (area > enough) return area;
        }
    }
    return area;
}

struct CentreLine {
    GroundPoint From, To;
};

CentreLine CentreLineOf(const Ground& straight) {
    const auto& c = straight.Corners;
    return {{(c[0].X + c[1].X) / 2, (c[0].Y + c[1].Y) / 2}, {(c[2].X + c[3].X) / 2, (c[2].Y + c[3].Y) / 2}};
}

bool HasEndsOnBothSides(const CentreLine& line, const CentreLine& other) {
    const auto side = [&](GroundPoint point) {
        return (line.To.X - line.From.X) * (point.Y - line.From.Y) -
               (line.To.Y - line.From.Y) * (point.X - line.From.X);
    };
    return side(other.From) * side(other.To) < 0;
}

} // namespace

double OverlapArea(const Ground& a, const Ground& b) { return CommonArea(a, b, std::numeric_limits<double>::max()); }

double SharedArea(const Ground& a, const Ground& b) {
    return a.Box.Meets(b.Box) && !AreApart(a, b) ? OverlapArea(a, b) : 0;
}

bool Overlaps(const Ground& a, const Ground& b) {
    return a.Box.Meets(b.Box) && !AreApart(a, b) && CommonArea(a, b, OverlapTolerance) > OverlapTolerance;
}

bool PassesUnder(const CatalogueEntry& a, const Ground& groundA, const CatalogueEntry& b, const Ground& groundB) {
    if (!(a.IsBridge() || b.IsBridge()) || !a.IsStraight() || !b.IsStraight()) return false;
    const CentreLine lineOfA = CentreLineOf(groundA);
    const CentreLine lineOfB = CentreLineOf(groundB);
    return HasEndsOnBothSides(lineOfA, lineOfB) && HasEndsOnBothSides(lineOfB, lineOfA);
}

} // namespace pistaro

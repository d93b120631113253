// Points, lines and arcs of the world. Lengths in cm, y upwards, angles in radians.
#pragma once

#include <variant>

namespace pistaro {

struct WorldPoint {
    float X = 0;
    float Y = 0;

    bool operator==(const WorldPoint&) const = default;
};

struct LineSegment {
    WorldPoint From, To;
};

/// Runs anticlockwise from start to end; where start is the greater, through angle 0.
struct ArcSegment {
    WorldPoint Centre;
    double Radius = 0;
    float Start = 0, End = 0;
};

/// A circle squeezed to `Aspect` of its height, its axes along the picture's.
struct Ellipse {
    WorldPoint Centre;
    double Radius = 0; ///< half the width
    double Aspect = 1;
};

using Segment = std::variant<LineSegment, ArcSegment>;
using Shape = std::variant<LineSegment, ArcSegment, Ellipse>;

/// The angle that an arc runs through.
double SpanOf(const ArcSegment& arc);

/// A point of an arc's circle.
WorldPoint PointAt(const ArcSegment& arc, double angle);

/// The length along a line or an arc.
double LengthOf(const Segment& segment);

} // namespace pistaro

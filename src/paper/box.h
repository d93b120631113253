// Rectangles around what is drawn, cm of the world, y upwards.
#pragma once

#include "layout/shapes.h"
#include "model/view_settings.h"

#include <algorithm>
#include <limits>

namespace pistaro {

/// Around nothing at first.
struct Box {
    double Left = std::numeric_limits<double>::infinity();
    double Bottom = Left;
    double Right = -Left;
    double Top = -Left;

    bool IsEmpty() const { return !(Left <= Right && Bottom <= Top); }
    double Width() const { return Right - Left; }
    double Height() const { return Top - Bottom; }
    double MiddleX() const { return (Left + Right) / 2; }
    double MiddleY() const { return (Bottom + Top) / 2; }

    void Include(const Box& other);
    /// The same with `margin` more on each side.
    Box Wider(double margin) const { return {Left - margin, Bottom - margin, Right + margin, Top + margin}; }
    bool Meets(const Box& other) const {
        return Left <= other.Right && other.Left <= Right && Bottom <= other.Top && other.Bottom <= Top;
    }
    ViewRectangle Shown() const;

    bool operator==(const Box&) const = default;
};

/// The smallest box around a line, an arc or an ellipse.
Box BoxOf(const LineSegment& line);
Box BoxOf(const ArcSegment& arc);
Box BoxOf(const Ellipse& ellipse);
Box BoxOf(WorldPoint point);

/// That wide and high around a point.
Box BoxAround(double x, double y, double width, double height);

} // namespace pistaro

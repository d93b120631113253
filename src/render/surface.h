// What the drawing is drawn on: a window, a picture, paper, or a test's record. Coordinates are world cm, y upwards.
#pragma once

#include "layout/shapes.h"
#include "model/colour_scheme.h"
#include "model/view_settings.h"
#include "render/grid_lines.h"

#include <string>
#include <vector>

namespace pistaro {

/// How thick lines are: so many pixels of the target, or millimetres on it.
struct PenWidth {
    enum class Unit { Pixels, Millimetres };

    double Value = 1;
    Unit In = Unit::Pixels;

    bool operator==(const PenWidth&) const = default;
};

class Surface {
public:
    virtual ~Surface() = default;

    /// Fills everything with the background; a background picture stays visible.
    virtual void Clear(Colour background) = 0;
    /// Lays the world rectangle over the whole target, to one scale by its width, from the top left.
    virtual void SetScale(const ViewRectangle& world) = 0;
    /// Pixels of 1/96 inch that a cm of the world takes by the scale that was set.
    virtual double PixelsPerCm() const = 0;
    /// Of all that is drawn from now on; one pixel at first.
    virtual void SetPen(PenWidth width) = 0;
    virtual void Draw(const LineSegment& line, Colour colour) = 0;
    virtual void Draw(const ArcSegment& arc, Colour colour) = 0;
    virtual void Draw(const Ellipse& ellipse, Colour colour) = 0;
    /// Fills a polygon that is not closed by a repeated point; what knows strokes alone leaves it out.
    virtual void Fill(const std::vector<WorldPoint>&, Colour) {}
    /// A grid's lines, first the upright ones; or a circle at each of its crossings. One by one, unless the target
    /// knows a faster way to the same.
    virtual void DrawGridLines(const GridLines& columns, const GridLines& rows, Colour colour);
    virtual void DrawGridDots(const GridLines& columns, const GridLines& rows, double radius, Colour colour);
    /// Plots a point, which is then the text position.
    virtual void DrawPoint(WorldPoint point, Colour colour) = 0;
    /// Prints at the text position, which is the text's top left.
    virtual void DrawText(const std::string& text, Colour colour) = 0;
    /// In points as they are measured on the target.
    virtual void SetFontSize(double points) = 0;
};

} // namespace pistaro

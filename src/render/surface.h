// What the drawing is drawn on: a window, a picture, or a test's record. Coordinates are world cm, y upwards.
#pragma once

#include "model/colour_scheme.h"
#include "model/view_settings.h"
#include "render/placement.h"

#include <string>

namespace pistaro {

class Surface {
public:
    virtual ~Surface() = default;

    /// Fills everything with the background; a background picture stays visible.
    virtual void Clear(Colour background) = 0;
    /// Lays the world rectangle over the whole picture.
    virtual void SetScale(const ViewRectangle& world) = 0;
    virtual void Draw(const LineStroke& line, Colour colour) = 0;
    virtual void Draw(const ArcStroke& arc, Colour colour) = 0;
    virtual void Draw(const EllipseStroke& ellipse, Colour colour) = 0;
    /// Plots a point, which is then the text position.
    virtual void DrawPoint(WorldPoint point, Colour colour) = 0;
    /// Prints at the text position, which is the text's top left.
    virtual void DrawText(const std::string& text, Colour colour) = 0;
    virtual void SetFontSize(double points) = 0;
};

} // namespace pistaro

// A surface that writes down what is drawn, a line a stroke, so that drawing is checked as text.
#pragma once

#include "render/surface.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace pistaro {

/// Colours are written by the names of the scheme's slots ("rail", "owned"), "grid" and
/// "room"; black and white, where no slot has them, are "text".
class RecordingSurface : public Surface {
public:
    /// For a target of so many pixels across.
    explicit RecordingSurface(const ColourScheme& colours, double pixels = 700);

    std::vector<std::string> Lines;
    std::set<Colour> TextColours; ///< in which points and texts were drawn

    /// The recorded lines that begin with a word: "line", "arc", "ellipse", "point", "text", "font", "pen".
    std::vector<std::string> LinesOf(const std::string& word) const;
    std::string Text() const;

    void Clear(Colour background) override;
    void SetScale(const ViewRectangle& world) override;
    double PixelsPerCm() const override { return pixelsPerCm_; }
    /// Recorded unless it is one pixel.
    void SetPen(PenWidth width) override;
    void Draw(const LineSegment& line, Colour colour) override;
    void Draw(const ArcSegment& arc, Colour colour) override;
    void Draw(const Ellipse& ellipse, Colour colour) override;
    void DrawPoint(WorldPoint point, Colour colour) override;
    void DrawText(const std::string& text, Colour colour) override;
    void SetFontSize(double points) override;

private:
    std::string Name(Colour colour) const;

    std::map<Colour, std::string> names_;
    double pixels_;
    double pixelsPerCm_ = 1;
};

/// Six colours of which no two are alike, nor like the fixed ones.
ColourScheme DistinctColours();

} // namespace pistaro

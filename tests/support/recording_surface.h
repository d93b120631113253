// A surface that writes down what is drawn, a line a stroke, so that drawing is checked as text.
#pragma once

#include "render/surface.h"

#include <map>
#include <string>
#include <vector>

namespace pistaro {

/// Colours are written by the names of the scheme's slots ("rail", "owned"), "grid", "room" and "text".
class RecordingSurface : public Surface {
public:
    explicit RecordingSurface(const ColourScheme& colours);

    std::vector<std::string> Lines;

    /// The recorded lines that begin with a word: "line", "arc", "ellipse", "point", "text", "font".
    std::vector<std::string> LinesOf(const std::string& word) const;
    std::string Text() const;

    void Clear(Colour background) override;
    void SetScale(const ViewRectangle& world) override;
    void Draw(const LineStroke& line, Colour colour) override;
    void Draw(const ArcStroke& arc, Colour colour) override;
    void Draw(const EllipseStroke& ellipse, Colour colour) override;
    void DrawPoint(WorldPoint point, Colour colour) override;
    void DrawText(const std::string& text, Colour colour) override;
    void SetFontSize(double points) override;

private:
    std::string Name(Colour colour) const;
    std::map<Colour, std::string> names_;
};

/// Six colours of which no two are alike, nor like the fixed ones.
ColourScheme DistinctColours();

} // namespace pistaro

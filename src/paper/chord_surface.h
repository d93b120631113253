// Takes strokes as a surface does, and hands them on as chords instead of drawing them.
#pragma once

#include "render/surface.h"

namespace pistaro {

class ChordSurface : public Surface {
public:
    void Clear(Colour) override {}
    void SetScale(const ViewRectangle&) override {}
    double PixelsPerCm() const override { return 1; }
    void SetPen(PenWidth) override {}
    void SetFontSize(double) override {}
    void DrawText(const std::string&, Colour) override {}

    void Draw(const LineSegment& line, Colour) override;
    void Draw(const ArcSegment& arc, Colour) override;
    void Draw(const Ellipse& ellipse, Colour) override;
    void DrawPoint(WorldPoint point, Colour) override;

protected:
    virtual void Add(double fromX, double fromY, double toX, double toY) = 0;

private:
    struct Axes {
        double X, Y, Across, Up;
    };

    void AddArc(const Axes& axes, double start, double span);
};

} // namespace pistaro

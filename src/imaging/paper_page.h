// One page of paper by a painter: places in cm from its lower left corner, a drawing in a part of it, words and lines.
#pragma once

#include "imaging/painter_surface.h"
#include "paper/box.h"

#include <functional>
#include <string>

namespace pistaro {

inline constexpr double CmPerInch = 2.54;
inline constexpr PenWidth DrawingPen{0.25, PenWidth::Unit::Millimetres};

class PaperPage {
public:
    PaperPage(QPainter& painter, double heightOfPaper, double dotsPerInch)
        : painter_(painter), height_(heightOfPaper), dotsPerInch_(dotsPerInch), dotsPerCm_(dotsPerInch / CmPerInch) {}

    /// Draws on a surface that shows `part` of the world in an area of the paper from its upper left corner on, at
    /// 1:`scale`, cut at the area's edge. Strokes within `world` are drawn whole even where they are cut, so that the
    /// lengths in a file are those of the pieces.
    void InArea(const Box& area, const Box& part, const Box& world, double scale,
                const std::function<void(PainterSurface&)>& draw);

    /// Thin lines and such in cm of the paper.
    void OnPaper(const Box& area, const std::function<void(Surface&)>& draw);

    /// A line of words at the top of an area; what is too long for it is cut. Gives how wide it is.
    double Words(const Box& area, const std::string& text, Qt::Alignment alignment, double points = 9,
                 QFont::Weight weight = QFont::Normal, Colour ink = Rgb(0, 0, 0));

    /// A line of words that runs upwards in the middle of an area, which is as wide as they are high.
    void UprightWords(const Box& area, const std::string& text, double points, Colour ink);

    /// Words on as many lines as they take, from the area's top on. Gives how high they are.
    double Paragraph(const Box& area, const std::string& text, double points);

    QPainter& Painter() const { return painter_; }
    double DotsPerCm() const { return dotsPerCm_; }

private:
    void ChooseFont(const Box& area, double points, QFont::Weight weight);
    QPointF Place(double x, double y) const { return {x * dotsPerCm_, (height_ - y) * dotsPerCm_}; }
    QRectF Place(const Box& area) const { return {Place(area.Left, area.Top), Place(area.Right, area.Bottom)}; }

    QPainter& painter_;
    double height_, dotsPerInch_, dotsPerCm_;
};

/// A line between two places of the paper.
void DrawLine(Surface& surface, double fromX, double fromY, double toX, double toY, Colour colour = Rgb(0, 0, 0));

/// The edge of a box.
void DrawFrame(Surface& surface, const Box& box, Colour colour);

} // namespace pistaro

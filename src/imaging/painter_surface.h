// The drawing's surface on a QPainter: antialiased, as sharp as the picture's pixels allow.
#pragma once

#include "render/surface.h"

#include <QImage>
#include <QPainter>

#include <optional>

namespace pistaro {

/// What a painter draws on: device-independent pixels of a screen, or the dots of paper.
struct TargetSize {
    double Width, Height; ///< dots
    double DotsPerInch = 96;

    static TargetSize Square(double side) { return {side, side}; }

    bool operator==(const TargetSize&) const = default;
};

class PainterSurface : public Surface {
public:
    /// Draws with `painter` on a target of this size; `backdrop` lies behind everything at its natural size, a
    /// pixel a 96th of an inch, from the top left.
    PainterSurface(QPainter& painter, const TargetSize& target, const QImage& backdrop = {});

    /// From now on draws what falls into this part of the target's plane, which may reach beyond the target; at first,
    /// into the target.
    void Uncover(const QRectF& part) { part_ = part; }

    /// Of all lines and arcs that are drawn from now on.
    void SetDashed(bool dashed) { dashed_ = dashed; }

    /// From now on a grid's dots lie on eighths of the picture's pixels, of which many are alike and drawn once.
    void RoundDots() { roundsDots_ = true; }

    /// The ends of all lines and arcs that are drawn from now on.
    void SetCap(Qt::PenCapStyle cap) { cap_ = cap; }

    /// From now on lays upright and level lines onto whole pixels, so that they are sharp.
    void AlignLines(bool align) { aligns_ = align; }

    /// To be called when somebody else has used the painter.
    void ForgetPen() { penColour_ = NoPen; }

    /// Where a point of the world lies on the target's plane.
    QPointF PlaceOf(WorldPoint point) const { return Mapped(point); }
    const QRectF& Part() const { return part_; }
    double DotsPerCm() const { return dotsPerCm_; }
    bool Shows(WorldPoint centre, double radius) const { return IsVisible(Mapped(centre), radius * dotsPerCm_); }

    void Clear(Colour background) override;
    void SetScale(const ViewRectangle& world) override;
    double PixelsPerCm() const override;
    void SetPen(PenWidth width) override;
    void Draw(const LineSegment& line, Colour colour) override;
    void Draw(const ArcSegment& arc, Colour colour) override;
    void Draw(const Ellipse& ellipse, Colour colour) override;
    void DrawGridLines(const GridLines& columns, const GridLines& rows, Colour colour) override;
    void DrawGridDots(const GridLines& columns, const GridLines& rows, double radius, Colour colour) override;
    void Fill(const std::vector<WorldPoint>& polygon, Colour colour) override;
    void DrawPoint(WorldPoint point, Colour colour) override;
    void DrawText(const std::string& text, Colour colour) override;
    void SetFontSize(double points) override;

private:
    QPointF Mapped(WorldPoint point) const;
    /// How far beyond its geometry a stroke may be seen.
    double Reach() const;
    bool IsVisible(QPointF centre, double radius) const;
    std::optional<QLineF> VisiblePart(const LineSegment& line) const;
    void UseCirclePen(Colour colour, double radius);
    QLineF Aligned(const QLineF& line) const;
    void UsePen(Colour colour) { UsePen(colour, lineWidth_, cap_); }
    void UsePen(Colour colour, double width, Qt::PenCapStyle cap);

    QPainter& painter_;
    TargetSize target_;
    QRectF part_; ///< of the target's plane, dots
    QImage backdrop_;
    ViewRectangle world_{0, 1, 1, 0};
    double dotsPerCm_ = 1;
    double lineWidth_ = 1; ///< dots
    static constexpr Colour NoPen = -1;
    bool dashed_ = false, penDashed_ = false, roundsDots_ = false, aligns_ = false;
    Qt::PenCapStyle cap_ = Qt::SquareCap;
    Colour penColour_ = NoPen;
    double penWidth_ = 0;
    Qt::PenCapStyle penCap_ = Qt::SquareCap;
    QPointF textPosition_;
};

/// The same colour for Qt, opaque, and back.
QColor ToQColor(Colour colour);
Colour FromQColor(const QColor& colour);

} // namespace pistaro

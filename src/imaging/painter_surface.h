// The drawing's surface on a QPainter: antialiased, as sharp as the picture's pixels allow.
#pragma once

#include "render/surface.h"

#include <QImage>
#include <QPainter>

namespace pistaro {

class PainterSurface : public Surface {
public:
    /// Draws with `painter` on a square of `side` device-independent pixels; `backdrop` lies behind everything at its
    /// natural size from the top left.
    PainterSurface(QPainter& painter, double side, const QImage& backdrop = {});

    void Clear(Colour background) override;
    void SetScale(const ViewRectangle& world) override;
    void Draw(const LineStroke& line, Colour colour) override;
    void Draw(const ArcStroke& arc, Colour colour) override;
    void Draw(const EllipseStroke& ellipse, Colour colour) override;
    void DrawPoint(WorldPoint point, Colour colour) override;
    void DrawText(const std::string& text, Colour colour) override;
    void SetFontSize(double points) override;

private:
    QPointF Mapped(WorldPoint point) const;
    bool IsVisible(QPointF centre, double radius) const;
    void UsePen(Colour colour, double width = 1);

    QPainter& painter_;
    double side_;
    QImage backdrop_;
    ViewRectangle world_{0, 1, 1, 0};
    double pixelsPerCm_ = 1;
    Colour penColour_ = -1;
    double penWidth_ = 0;
    QPointF textPosition_;
};

/// The same colour for Qt, opaque, and back.
QColor ToQColor(Colour colour);
Colour FromQColor(const QColor& colour);

} // namespace pistaro

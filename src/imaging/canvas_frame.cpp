#include "imaging/canvas_frame.h"

#include <algorithm>

namespace pistaro {

QSize PixelsOf(QSize size, double pixelRatio) { return (QSizeF(size) * pixelRatio).toSize(); }

QRect CanvasFrame::Square() const {
    constexpr int whole = 4; // pixels that are a whole number of the screen's at 125 and 150 %
    const int side = std::min(Size.width(), Size.height());
    const auto inset = [&](int length) { return (length - side) / 2 / whole * whole; };
    return {inset(Size.width()), inset(Size.height()), side, side};
}

double CanvasFrame::PixelsPerCm(const ViewSettings& view) const {
    const ViewRectangle shown = ShownRectangle(view);
    return Square().width() / (double{shown.ViewRight} - shown.ViewLeft);
}

QPointF CanvasFrame::PlaceOf(WorldPoint point, const ViewSettings& view) const {
    const ViewRectangle shown = ShownRectangle(view);
    const double scale = PixelsPerCm(view);
    return QPointF(Square().topLeft()) +
           QPointF((double{point.X} - shown.ViewLeft) * scale, (double{shown.ViewTop} - point.Y) * scale);
}

WorldPoint CanvasFrame::WorldAt(QPointF place, const ViewSettings& view) const {
    const ViewRectangle shown = ShownRectangle(view);
    const double cmPerPixel = (double{shown.ViewRight} - shown.ViewLeft) / Square().width();
    const QPointF within = place - Square().topLeft();
    return {static_cast<float>(shown.ViewLeft + within.x() * cmPerPixel),
            static_cast<float>(shown.ViewTop - within.y() * cmPerPixel)};
}

ViewRectangle CanvasFrame::Covered(const ViewSettings& view) const {
    if (Size.width() == Size.height()) return ShownRectangle(view);
    const WorldPoint first = WorldAt({0, 0}, view);
    const WorldPoint last = WorldAt({static_cast<double>(Size.width()), static_cast<double>(Size.height())}, view);
    return {first.X, first.Y, last.X, last.Y};
}

} // namespace pistaro

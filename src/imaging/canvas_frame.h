// A drawing area that may be wider or higher than the view's square: where the square lies on it, and what of the world
// it covers.
#pragma once

#include "layout/shapes.h"
#include "model/view_settings.h"

#include <QPointF>
#include <QRect>
#include <QSize>

namespace pistaro {

struct CanvasFrame {
    QSize Size;            ///< device-independent pixels
    double PixelRatio = 1; ///< pixels of the screen that each of them is wide

    bool operator==(const CanvasFrame&) const = default;

    /// The view's square: as large as there is room for, in the middle. Its corner falls on whole pixels of screens of
    /// 125 and 150 %, too, so that it is drawn there as it is drawn alone.
    QRect Square() const;

    double PixelsPerCm(const ViewSettings& view) const;
    QPointF PlaceOf(WorldPoint point, const ViewSettings& view) const;
    WorldPoint WorldAt(QPointF place, const ViewSettings& view) const;

    /// All of the world that the drawing area shows: the view's square and what lies beside it.
    ViewRectangle Covered(const ViewSettings& view) const;
};

/// How many pixels of a picture such a size takes.
QSize PixelsOf(QSize size, double pixelRatio);

} // namespace pistaro

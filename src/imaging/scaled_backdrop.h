// A picture that lies under the circuit at its true size, as it is drawn: at any zoom, turned with the room.
#pragma once

#include "imaging/painter_surface.h"
#include "model/room_polygon.h"
#include "model/scaled_background.h"

#include <vector>

namespace pistaro {

/// Where the picture's middle lies when the room is turned.
WorldPoint MiddleOf(const ScaledBackground& background, const RoomPolygon& room);

class ScaledBackdrop {
public:
    ScaledBackdrop() = default;
    /// Without pixels draws nothing.
    explicit ScaledBackdrop(QImage picture);

    /// Where it has pixels.
    const QImage& Picture() const { return levels_.front(); }

    /// Draws what falls into the surface's part, whose painter it is.
    void Paint(QPainter& painter, const PainterSurface& surface, const ScaledBackground& background,
               const RoomPolygon& room) const;

private:
    /// The picture, then each half as large as the one before it, so that fine lines stay when it is drawn small.
    std::vector<QImage> levels_;
};

} // namespace pistaro

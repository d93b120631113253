// A small picture of a whole design, to know it again by.
#pragma once

#include "layout/shapes.h"
#include "model/project.h"

#include <QImage>

#include <vector>

namespace pistaro {

/// Elements of a track, in their order.
struct MarkedPieces {
    std::vector<int> Kept, New;
    int Track = 0;
};

/// All pieces of `design` and its room, of one that is far larger what lies near them, as large as they go into a
/// picture of that size, device-independent pixels, in the colours of the preferences as the window's drawing shows
/// them. What is marked as kept is tinted in the colour of the selected piece, what is new in
/// another.
QImage WorkPicture(const Catalogue& catalogue, const Design& design, const Preferences& preferences, QSize size,
                   double pixelRatio, const MarkedPieces& marked = {});

/// The place of the ground that a picture of that size shows at `place`.
WorldPoint GroundAt(QPointF place, const Catalogue& catalogue, const Design& design, QSize size);

} // namespace pistaro

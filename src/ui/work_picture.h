// A small picture of a whole design, to know it again by.
#pragma once

#include "imaging/small_picture.h"
#include "model/preferences.h"

#include <QImage>

namespace pistaro {

/// All pieces of `design` and its room, of one that is far larger what lies near them, as large as they go into a
/// picture of that size, device-independent pixels, in the colours of the preferences as the window's drawing shows
/// them.
QImage WorkPicture(const Catalogue& catalogue, const Design& design, const Preferences& preferences, QSize size,
                   double pixelRatio, const MarkedPieces& marked = {});

/// The place of the ground that a picture of that size shows at `place`.
WorldPoint GroundAt(QPointF place, const Catalogue& catalogue, const Design& design, QSize size);

} // namespace pistaro

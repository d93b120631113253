// A small picture of a whole design, to know it again by.
#pragma once

#include "model/project.h"

#include <QImage>

namespace pistaro {

/// The first ones of a track.
struct MarkedPieces {
    std::size_t Count = 0;
    int Track = 0;
};

/// All pieces of `design` and its room, of one that is far larger what lies near them, as large as they go into a
/// picture of that size, device-independent pixels, in the colours of the preferences as the window's drawing shows
/// them. Marked pieces are tinted in the colour of the selected one.
QImage WorkPicture(const Catalogue& catalogue, const Design& design, const Preferences& preferences, QSize size,
                   double pixelRatio, MarkedPieces marked = {});

} // namespace pistaro

// A small picture of a whole design, to know it again by.
#pragma once

#include "model/project.h"

#include <QImage>

namespace pistaro {

/// All pieces and the room of `design`, in a square of so many device-independent pixels, in the colours of the
/// preferences.
QImage WorkPicture(const Catalogue& catalogue, const Design& design, const Preferences& preferences, int side,
                   double pixelRatio);

} // namespace pistaro

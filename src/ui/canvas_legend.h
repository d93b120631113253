// The legend in a corner of the drawing: what its colours and patterns mean.
#pragma once

#include "imaging/track_surface.h"

namespace pistaro {

/// Paints it into the upper left corner of the painter's plane, for tracks drawn in that way.
void PaintLegend(QPainter& painter, const ColourScheme& colours, TrackLook look);

} // namespace pistaro

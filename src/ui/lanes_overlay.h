// How lanes show in the drawing: in colours of their own, with a legend.
#pragma once

#include "imaging/overlay.h"
#include "ui/canvas_legend.h"

namespace pistaro {

/// Both lanes of each track round the whole track, through every change-over; in one colour where an odd number of
/// change-overs makes them one. As wide as the rails of a track drawn as it looks, which they cover.
Overlay LanesOverlay(const Catalogue& catalogue, const Circuit& circuit);

/// "track 1, left 944.66 cm" for each of these colours: lengths as built, the lane that begins on the left first.
std::vector<LegendEntry> LanesLegend(const Catalogue& catalogue, const Circuit& circuit, const Units& units);

} // namespace pistaro

// What tracks look like, as areas for whoever fills polygons: paper and files.
#pragma once

#include "layout/placement.h"
#include "model/colour_scheme.h"

#include <vector>

namespace pistaro {

struct FilledArea {
    std::vector<WorldPoint> Polygon; ///< not closed by a repeated point
    Colour Fill = 0;
};

/// All of a piece's bed in the order of painting: asphalt, kerb, lanes, and of a track's first piece the start's marks.
/// No edge strays further than 0.01 cm from its arc.
std::vector<FilledArea> BedOf(const PiecePlacement& placement, bool isFirst);

} // namespace pistaro

// How far a track is from closing on itself.
#pragma once

#include "catalogue/catalogue.h"
#include "model/circuit.h"

namespace pistaro {

struct TrackGap {
    float Distance; ///< cm
    float Angle;    ///< heading of the end less that of the start, -pi..pi by the circle constant, radians
};

/// The gap from a track's end to its start.
TrackGap GapBetween(const BuildCursor& start, const BuildCursor& end);

/// The gap after a track's last element; zero for an empty track.
TrackGap GapOf(const Catalogue& catalogue, const Track& track);

} // namespace pistaro

// How far a track is from closing on itself.
#pragma once

#include "catalogue/catalogue.h"
#include "model/circuit.h"

namespace pistaro {

struct TrackGap {
    float Distance; ///< cm
    float Angle;    ///< heading of the end less that of the start, -pi..pi by the circle constant, radians
};

/// Within these the ends of a track are one place: what hundreds of pieces add up to by rounding is less, and so is
/// what can be seen.
inline constexpr float ClosedDistance = 0.05F; ///< cm
inline constexpr float ClosedAngle = 0.001F;   ///< radians

/// Whether the ends are at most `distance` cm apart, and turned against each other by `angle` radians at most.
bool IsWithin(const TrackGap& gap, double distance, float angle = ClosedAngle);

/// The gap from a track's end to its start.
TrackGap GapBetween(const BuildCursor& start, const BuildCursor& end);

/// The gap after a track's last element; zero for an empty track.
TrackGap GapOf(const Catalogue& catalogue, const Track& track);

} // namespace pistaro

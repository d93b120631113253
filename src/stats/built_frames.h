// The lanes as built, beside the lengths that the statistics add from the catalogue.
#pragma once

#include "layout/built_lanes.h"
#include "model/view_settings.h"

#include <array>
#include <string>

namespace pistaro {

inline constexpr const char* BuiltLeftCaption = "Left as Built";
inline constexpr const char* BuiltRightCaption = "Right as Built";

/// The lanes of tracks 1 to 3 and their sums for the complete circuit, which has no pieces and is never joined.
std::array<BuiltLanes, TrackCount + 1> BuiltFrames(const Catalogue& catalogue, const Circuit& circuit);

/// "lanes 812.36 / 830.11 cm", the lane that begins on the left first; "lanes joined, 1642.47 cm in two laps" where an
/// odd number of change-overs leads each lane into the other; empty for an empty track.
std::string LanesText(const BuiltLanes& lanes, const Units& units);

} // namespace pistaro

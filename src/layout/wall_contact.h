// How far a piece may reach into a wall.
#pragma once

#include "layout/room_fit.h"

namespace pistaro {

/// Whether the wall runs through the piece, however short, deeper than a touch (cm).
bool RunsThrough(const Wall& wall, const Ground& ground, double touch);

} // namespace pistaro

// Whether a laid circuit keeps from the walls what its user asks for.
#pragma once

#include "search/loop.h"

namespace pistaro {

/// Whether all pieces lie so far from every wall, cm, curves with their whole arcs.
bool KeepsFromWalls(const LaidLoop& laid, const RoomFit& room, double margin);

} // namespace pistaro

// What is printed beside a piece's track bed, such as the lap counter's box: it takes room, though no piece.
#pragma once

#include "layout/placement.h"
#include "layout/room_fit.h"

#include <vector>

namespace pistaro {

/// Which of the track's elements lie so that the box printed at them reaches into a wall or out of the room.
std::vector<int> BoxesOutside(const Catalogue& catalogue, const Track& track, const RoomFit& room);

} // namespace pistaro

// The room's drawn lines as they lie in the world, for whatever draws them.
#pragma once

#include "layout/room_fit.h"
#include "layout/shapes.h"

namespace pistaro {

/// Calls visit(line) with each drawn line of the room.
template <typename Visit>
void ForEachRoomLine(const RoomPolygon& room, Visit visit) {
    if (room.Points.empty()) return;
    WorldPoint previous = RoomCorner(room, room.Points.front());
    for (const RoomPoint& point : room.Points) {
        const WorldPoint here = RoomCorner(room, point);
        if (point.Line == 1) visit(LineSegment{previous, here});
        previous = here;
    }
}

} // namespace pistaro

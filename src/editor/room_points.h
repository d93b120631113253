// The room frame of the draw-area dialog: its own copy of the room's points, and the point that is being entered.
#pragma once

#include "model/prompts.h"
#include "model/room_polygon.h"

#include <string>
#include <vector>

namespace pistaro {

/// The entry fields as they are typed.
struct RoomEntry {
    std::string X, Y;
    bool Line = true; ///< a new point is a corner rather than a pillar

    bool operator==(const RoomEntry&) const = default;
};

struct RoomPoints {
    std::vector<RoomPoint> Points; ///< at most MaxRoomPoints
    int Number = 1;                ///< the scroller's value: the point that the entry fields stand for, from 1
    RoomEntry Entry;
};

/// The dialog's copy of a room, with its first point in the entry fields.
RoomPoints OpenRoomPoints(const std::vector<RoomPoint>& points);

/// The scroller's last place: the one after the last point, where a new one is entered, as far as a room has room.
int LastPlace(const RoomPoints& room);

/// Whether the entry fields stand for a point that the room has already.
bool ShowsPoint(const RoomPoints& room);

/// Scrolls to a place from 1 to LastPlace and shows its point; after the last point the entry fields are empty.
void ScrollToPoint(RoomPoints& room, int number);

/// Whether the entry fields hold coordinates that no point has: typed, and not added.
bool HasTypedPoint(const RoomPoints& room);

/// Puts the entry fields in as the point they stand for and scrolls on to the next place. Tells of a full
/// room and of missing coordinates, and changes nothing then. Faults at coordinates that are no number or outside 16
/// bits.
void AddPoint(RoomPoints& room, Prompts& prompts);

/// Takes out the point shown; the later ones move down, and the one that takes its number is shown. Does nothing where
/// there is no point.
void DeletePoint(RoomPoints& room);

} // namespace pistaro

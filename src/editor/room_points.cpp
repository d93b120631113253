#include "editor/room_points.h"

#include "platform/fault.h"
#include "text/number_text.h"

#include <algorithm>

namespace pistaro {

namespace {

std::int16_t Coordinate(const std::string& text, const char* name) {
    const std::string what = "the room point's " + std::string(name);
    if (!IsNumber(text)) throw TypeMismatch(what + ", \"" + text + "\", is no number");
    if (const auto value = RoundedWithin<std::int16_t>(ParseNumber(text))) return *value;
    throw Overflow(what + ", " + text + ", is not between -32768 and 32767 cm");
}

bool IsBlank(const std::string& text) { return Trimmed(text).empty(); }

std::size_t Index(const RoomPoints& room) { return static_cast<std::size_t>(room.Number - 1); }

/// What the entry fields show of the point that they stand for; nothing after the last one.
RoomEntry StoredEntry(const RoomPoints& room) {
    if (!ShowsPoint(room)) return {};
    const RoomPoint& point = room.Points[Index(room)];
    return {NumberText(int{point.X}), NumberText(int{point.Y}), point.Line == 1};
}

} // namespace

RoomPoints OpenRoomPoints(const std::vector<RoomPoint>& points) {
    RoomPoints room{.Points = points, .Number = 1, .Entry = {}};
    ScrollToPoint(room, 1);
    return room;
}

int LastPlace(const RoomPoints& room) { return std::min(static_cast<int>(room.Points.size()) + 1, MaxRoomPoints); }

bool ShowsPoint(const RoomPoints& room) { return Index(room) < room.Points.size(); }

void ScrollToPoint(RoomPoints& room, int number) {
    room.Number = number;
    room.Entry = StoredEntry(room);
}

bool HasTypedPoint(const RoomPoints& room) {
    const RoomEntry stored = StoredEntry(room);
    return ShowsPoint(room) ? room.Entry != stored : room.Entry.X != stored.X || room.Entry.Y != stored.Y;
}

void AddPoint(RoomPoints& room, Prompts& prompts) {
    if (room.Points.size() == MaxRoomPoints) {
        prompts.Tell({Icon::Exclamation, "Room definition is restricted to 20 points."});
        return;
    }
    if (IsBlank(room.Entry.X) || IsBlank(room.Entry.Y)) {
        prompts.Tell({Icon::Exclamation, "Please specify the coordinates first."});
        return;
    }
    const RoomPoint point{Coordinate(room.Entry.X, "X"), Coordinate(room.Entry.Y, "Y"),
                          static_cast<std::int16_t>(room.Entry.Line)};
    if (!ShowsPoint(room)) room.Points.emplace_back();
    room.Points[Index(room)] = point;
    ScrollToPoint(room, std::min(room.Number + 1, LastPlace(room)));
}

void DeletePoint(RoomPoints& room) {
    if (!ShowsPoint(room)) return;
    room.Points.erase(room.Points.begin() + (room.Number - 1));
    ScrollToPoint(room, room.Number);
}

} // namespace pistaro

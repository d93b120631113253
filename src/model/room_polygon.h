// The outline of the room, with gaps where the pen moves on to a pillar.
#pragma once

#include <cstdint>
#include <vector>

namespace pistaro {

inline constexpr int MaxRoomPoints = 20;

struct RoomPoint {
    std::int16_t X = 0; ///< cm
    std::int16_t Y = 0;
    std::int16_t Line = 0; ///< 1: a line leads here from the point before; the check box's value otherwise

    bool operator==(const RoomPoint&) const = default;
};

struct RoomPolygon {
    std::vector<RoomPoint> Points; ///< at most MaxRoomPoints, shown to the user as 1, 2, ...
    float Angle = 0;               ///< of the room against the circuit, radians

    bool operator==(const RoomPolygon&) const = default;
};

} // namespace pistaro

// Whether pieces lie inside the room.
//
// A room's walls are its drawn lines. Lines that follow on each other and end where they began are an outline that
// encloses an area. A piece leaves the room where a wall runs through it, however short. Where the first drawn outline
// encloses the room, what lies beyond it is outside, and so is what lies within a pillar: in an
// even number of areas. Where it has a gap, or another end, nothing tells what lies beyond: there only walls and
// pillars count.
#pragma once

#include "layout/ground.h"
#include "model/room_polygon.h"

#include <cstddef>
#include <vector>

namespace pistaro {

/// Where a corner of the room lies in the circuit's world: the room's angle turns it clockwise.
WorldPoint RoomCorner(const RoomPolygon& room, const RoomPoint& point);

struct Wall {
    GroundPoint From, To;
};

/// What is in the way of a piece.
enum class Obstacle {
    None,
    Room,      ///< it ends there
    Pillar,    ///< an area that is enclosed within it
    InnerWall, ///< a line within it that encloses none
};

class RoomFit {
public:
    /// Without drawn lines everything lies inside.
    explicit RoomFit(const RoomPolygon& room);

    /// Whether a piece lies inside the room; it may touch walls, and reach into them by a tenth of a millimetre.
    bool Holds(const Ground& ground) const;
    /// Why it does not; of a room that has a gap, its pillars alone are told from its walls.
    Obstacle ObstacleOf(const Ground& ground) const;
    /// The same as Holds of a point, which walls do not keep out.
    bool Holds(GroundPoint point) const { return outlines_.empty() || Encloses(point) == isClosed_; }

    /// The walls, of which none has length 0.
    const std::vector<Wall>& Walls() const { return walls_; }

private:
    bool Encloses(GroundPoint point) const;

    std::vector<Wall> walls_;
    std::vector<Wall> outlines_;    ///< of the walls those that enclose areas
    bool isClosed_ = false;         ///< whether the first of them enclose the room itself
    std::ptrdiff_t ownOutline_ = 0; ///< how many do
};

} // namespace pistaro

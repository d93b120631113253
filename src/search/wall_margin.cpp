#include "search/wall_margin.h"

#include "layout/clearance.h"

#include <algorithm>

namespace pistaro {

bool KeepsFromWalls(const LaidLoop& laid, const RoomFit& room, double margin) {
    if (margin <= 0) return true;
    return std::ranges::none_of(laid.Grounds, [&](const Ground& ground) {
        const auto isNear = [&](const Wall& wall) { return WallClearance(ground, wall, margin).has_value(); };
        return std::ranges::any_of(room.Walls(), isNear);
    });
}

} // namespace pistaro

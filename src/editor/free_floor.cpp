#include "editor/free_floor.h"

#include "layout/overlap.h"
#include "layout/room_fit.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace pistaro {

namespace {

constexpr double Aisle = 10; ///< cm that stay free between the tracks

GroundBox BoxOf(const std::vector<Ground>& grounds) {
    return std::accumulate(grounds.begin() + 1, grounds.end(), grounds.front().Box,
                           [](const GroundBox& box, const Ground& ground) { return box.Joined(ground.Box); });
}

bool AnyOverlap(const std::vector<Ground>& some, const std::vector<Ground>& others) {
    return std::ranges::any_of(some, [&](const Ground& one) {
        return std::ranges::any_of(others, [&](const Ground& other) { return Overlaps(one, other); });
    });
}

BuildCursor Moved(const BuildCursor& start, double right, double up) {
    return {static_cast<float>(start.CursorX + right), static_cast<float>(start.CursorY + up), start.CursorHeading};
}

/// Starts from which what lies in one box lies to the right of the other, to its left, above and below it, by whole cm.
std::array<BuildCursor, 4> StartsBeside(const BuildCursor& start, const GroundBox& own, const GroundBox& other) {
    const double across = std::round((other.Left + other.Right - own.Left - own.Right) / 2);
    const double along = std::round((other.Bottom + other.Top - own.Bottom - own.Top) / 2);
    return {Moved(start, std::ceil(other.Right + Aisle - own.Left), along),
            Moved(start, std::floor(other.Left - Aisle - own.Right), along),
            Moved(start, across, std::ceil(other.Top + Aisle - own.Bottom)),
            Moved(start, across, std::floor(other.Bottom - Aisle - own.Top))};
}

} // namespace

BuildCursor FreeStart(const Catalogue& catalogue, const Design& design, int track) {
    const std::vector<Ground> others = GroundsBeside(catalogue, design.Circuit, track);
    Track laid = design.Circuit.Tracks[static_cast<std::size_t>(track)];
    const std::vector<Ground> own = GroundsOf(catalogue, laid);
    if (own.empty() || !AnyOverlap(own, others)) return laid.Start();
    const RoomFit room(design.Room);
    const auto starts = StartsBeside(laid.Start(), BoxOf(own), BoxOf(others));
    const auto inRoom = std::ranges::find_if(starts, [&](const BuildCursor& start) {
        laid.TrackStartX = start.CursorX;
        laid.TrackStartY = start.CursorY;
        return std::ranges::all_of(GroundsOf(catalogue, laid),
                                   [&](const Ground& ground) { return room.Holds(ground); });
    });
    return inRoom == starts.end() ? starts.front() : *inRoom;
}

} // namespace pistaro

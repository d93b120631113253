#include "layout/printed_box.h"

#include <algorithm>
#include <optional>

namespace pistaro {

namespace {

double TwiceArea(const std::array<GroundPoint, 4>& corners) {
    double twice = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const GroundPoint next = corners[(i + 1) % corners.size()];
        twice += corners[i].X * next.Y - next.X * corners[i].Y;
    }
    return twice;
}

/// The ground under the rectangle among a piece's marks; nothing where there is none.
std::optional<Ground> BoxOf(const PiecePlacement& piece) {
    Ground box;
    std::size_t sides = 0;
    for (const Mark& mark : piece.Marks) {
        const auto* const side = std::get_if<LineSegment>(&mark.Shape);
        if (side == nullptr || mark.Ink != Ink::Outline || sides == box.Corners.size()) continue;
        box.Corners[sides++] = {side->From.X, side->From.Y};
    }
    if (sides < box.Corners.size()) return std::nullopt;
    if (TwiceArea(box.Corners) < 0) std::ranges::reverse(box.Corners);
    const auto [left, right] = std::ranges::minmax(box.Corners, {}, &GroundPoint::X);
    const auto [bottom, top] = std::ranges::minmax(box.Corners, {}, &GroundPoint::Y);
    box.Box = {left.X, right.X, bottom.Y, top.Y};
    return box;
}

} // namespace

std::vector<int> BoxesOutside(const Catalogue& catalogue, const Track& track, const RoomFit& room) {
    std::vector<int> outside;
    WalkTrack(catalogue, track, [&](int element, const PiecePlacement* piece, const Pose&) {
        const std::optional<Ground> box = piece == nullptr ? std::nullopt : BoxOf(*piece);
        if (box && !room.Holds(*box)) outside.push_back(element);
    });
    return outside;
}

} // namespace pistaro

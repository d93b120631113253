#include "editor/picking.h"

#include <algorithm>

namespace pistaro {

PickMap::PickMap(const Catalogue& catalogue, const Circuit& circuit) {
    std::vector<Ground> grounds;
    for (int number = 0; number < TrackCount; ++number) {
        const Track& track = circuit.Tracks[static_cast<std::size_t>(number)];
        WalkTrack(catalogue, track, [&](int element, const PiecePlacement* placement, const BuildCursor&) {
            if (placement == nullptr) return;
            grounds.push_back(GroundOf(*placement));
            pieces_.push_back({number, element});
        });
    }
    grounds_ = GroundGrid(std::move(grounds));
}

std::vector<PieceAddress> PickMap::PiecesAt(WorldPoint point) const {
    std::vector<int> found;
    if (pieces_.empty()) return {};
    grounds_.ForEachMeeting({point.X, point.X, point.Y, point.Y}, [&](int index, const Ground& ground) {
        if (Covers(ground, {point.X, point.Y})) found.push_back(index);
        return true;
    });
    std::ranges::sort(found);
    std::vector<PieceAddress> pieces(found.size());
    std::ranges::transform(found, pieces.begin(), [&](int index) { return pieces_[static_cast<std::size_t>(index)]; });
    return pieces;
}

std::optional<PieceAddress> PickMap::OnlyPieceAt(WorldPoint point) const {
    const std::vector<PieceAddress> pieces = PiecesAt(point);
    if (pieces.size() != 1) return std::nullopt;
    return pieces.front();
}

std::optional<PiecePlacement> PlacementOf(const Catalogue& catalogue, const Circuit& circuit,
                                          const PieceAddress& piece) {
    std::optional<PiecePlacement> found;
    WalkTrack(catalogue, circuit.Tracks[static_cast<std::size_t>(piece.Track)],
              [&](int element, const PiecePlacement* placement, const BuildCursor&) {
                  if (element == piece.Element && placement != nullptr) found = *placement;
              });
    return found;
}

} // namespace pistaro

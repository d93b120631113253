#include "layout/built_lanes.h"

#include "layout/placement.h"

namespace pistaro {

namespace {

double LengthOf(const Lane& lane) {
    double length = 0;
    for (const Segment& segment : lane.Path)
        length += LengthOf(segment);
    return length;
}

/// Calls visit(element, which, lane, swapped) for both lanes of each piece, where `which` counts the lanes by the side
/// on which they begin the track; gives whether they end it swapped.
template <typename Visit>
bool FollowLanes(const Catalogue& catalogue, const Track& track, Visit visit) {
    bool swapped = false;
    WalkTrack(catalogue, track, [&](int element, const PiecePlacement* placement, const BuildCursor&) {
        if (placement == nullptr) return;
        for (const Lane& lane : placement->Lanes)
            visit(element, std::size_t{(lane.Side == LaneSide::Right) != swapped}, lane, swapped);
        const CatalogueEntry* const kind = catalogue.Find(track.ElementCodes[static_cast<std::size_t>(element)]);
        if (kind->Kind.Marks == PieceMarks::CrossedLanes) swapped = !swapped;
    });
    return swapped;
}

} // namespace

BuiltLanes LanesAsBuilt(const Catalogue& catalogue, const Track& track) {
    BuiltLanes lanes;
    lanes.Pieces.resize(track.ElementCodes.size());
    lanes.Joined = FollowLanes(catalogue, track, [&](int element, std::size_t which, const Lane& lane, bool swapped) {
        BuiltPiece& piece = lanes.Pieces[static_cast<std::size_t>(element)];
        piece.Swapped = swapped;
        piece.Lengths[which] = LengthOf(lane);
        lanes.Lengths[which] += piece.Lengths[which];
    });
    return lanes;
}

std::array<std::vector<Segment>, 2> LanePaths(const Catalogue& catalogue, const Track& track) {
    std::array<std::vector<Segment>, 2> paths;
    FollowLanes(catalogue, track, [&](int, std::size_t which, const Lane& lane, bool) {
        paths[which].insert(paths[which].end(), lane.Path.begin(), lane.Path.end());
    });
    return paths;
}

} // namespace pistaro

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

} // namespace

BuiltLanes LanesAsBuilt(const Catalogue& catalogue, const Track& track) {
    BuiltLanes lanes;
    lanes.Pieces.resize(track.ElementCodes.size());
    WalkTrack(catalogue, track, [&](int element, const PiecePlacement* placement, const BuildCursor&) {
        BuiltPiece& piece = lanes.Pieces[static_cast<std::size_t>(element)];
        piece.Swapped = lanes.Joined;
        if (placement == nullptr) return;
        for (const Lane& lane : placement->Lanes) {
            const std::size_t which = (lane.Side == LaneSide::Right) != piece.Swapped ? 1 : 0;
            piece.Lengths[which] = LengthOf(lane);
            lanes.Lengths[which] += piece.Lengths[which];
        }
        const CatalogueEntry* const kind = catalogue.Find(track.ElementCodes[static_cast<std::size_t>(element)]);
        if (kind->Kind.Marks == PieceMarks::CrossedLanes) lanes.Joined = !lanes.Joined;
    });
    return lanes;
}

} // namespace pistaro

#include "search/track_faults.h"

#include "layout/overlap.h"

#include <algorithm>

namespace pistaro {

namespace {

void AddPieces(const Catalogue& catalogue, const Track& track, std::vector<const CatalogueEntry*>& pieces,
               std::vector<Ground>& grounds) {
    WalkTrack(catalogue, track, [&](int element, const PiecePlacement* placement, const BuildCursor&) {
        if (placement == nullptr) return;
        pieces.push_back(catalogue.Find(track.ElementCodes[static_cast<std::size_t>(element)]));
        grounds.push_back(GroundOf(*placement));
    });
}

bool AreNeighbours(int a, int b, int count) {
    const int apart = std::abs(a - b);
    return apart <= 1 || apart == count - 1;
}

} // namespace

TrackChecks::TrackChecks(const Catalogue& catalogue, const Design& design, int track)
    : catalogue_(catalogue), room_(design.Room) {
    std::vector<Ground> grounds;
    for (int other = 0; other < TrackCount; ++other) {
        if (other != track)
            AddPieces(catalogue, design.Circuit.Tracks[static_cast<std::size_t>(other)], otherPieces_, grounds);
    }
    others_ = GroundGrid(std::move(grounds));
}

TrackFaults TrackChecks::FaultsOf(const Track& track) const {
    std::vector<const CatalogueEntry*> pieces;
    std::vector<Ground> grounds;
    AddPieces(catalogue_, track, pieces, grounds);
    const GroundGrid own(std::move(grounds));
    const int count = static_cast<int>(pieces.size());

    TrackFaults faults;
    std::vector<const Ground*> bridges; // that something passes under: a second one may not
    const auto meets = [&](const CatalogueEntry& a, const Ground& groundA, const CatalogueEntry& b,
                           const Ground& groundB) {
        if (!Overlaps(groundA, groundB)) return;
        const Ground* const bridge = a.IsBridge() ? &groundA : &groundB;
        if (!PassesUnder(a, groundA, b, groundB) || std::ranges::find(bridges, bridge) != bridges.end())
            faults.Overlaps = true;
        bridges.push_back(bridge);
    };
    for (int i = 0; i < count; ++i) {
        const Ground& ground = own.Grounds()[static_cast<std::size_t>(i)];
        const CatalogueEntry& piece = *pieces[static_cast<std::size_t>(i)];
        faults.IsOutside = faults.IsOutside || !room_.Holds(ground);
        own.ForEachMeeting(ground.Box, [&](int other, const Ground& otherGround) {
            if (other < i && !AreNeighbours(i, other, count))
                meets(piece, ground, *pieces[static_cast<std::size_t>(other)], otherGround);
            return !faults.Overlaps;
        });
        others_.ForEachMeeting(ground.Box, [&](int other, const Ground& otherGround) {
            meets(piece, ground, *otherPieces_[static_cast<std::size_t>(other)], otherGround);
            return !faults.Overlaps;
        });
    }
    return faults;
}

} // namespace pistaro

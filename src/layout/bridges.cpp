#include "layout/bridges.h"

#include "layout/ground_grid.h"
#include "layout/overlap.h"
#include "layout/placement.h"
#include "layout/track_gap.h"

namespace pistaro {

namespace {

constexpr float Touching = 10; ///< cm between a last piece's end and the start that it leads to

/// A piece where it lies, in the order of drawing.
struct LaidPiece {
    PieceAddress Address;
    bool IsBridge;
    bool LeadsToStart; ///< the last of a track that closes
};

struct LaidCircuit {
    std::vector<LaidPiece> Pieces;
    std::vector<Ground> Grounds;
};

void Lay(const Catalogue& catalogue, const Track& track, int number, LaidCircuit& laid) {
    const BuildCursor start = track.Start();
    WalkTrack(catalogue, track, [&](int element, const PiecePlacement* placement, const BuildCursor&) {
        if (placement == nullptr) return;
        const CatalogueEntry* const piece = catalogue.Find(track.ElementCodes[static_cast<std::size_t>(element)]);
        const float gap = GapBetween(start, placement->Exit).Distance;
        laid.Grounds.push_back(GroundOf(*placement));
        laid.Pieces.push_back({{number, element},
                               piece != nullptr && piece->IsBridge(),
                               element == track.ElementLastIndex() && gap < Touching});
    });
}

/// Whether the upper of two pieces follows on the lower, or leads to it.
bool AreNeighbours(const LaidPiece& lower, const LaidPiece& upper) {
    if (lower.Address.Track != upper.Address.Track) return false;
    return upper.Address.Element - lower.Address.Element <= 1 || (lower.Address.Element == 0 && upper.LeadsToStart);
}

} // namespace

std::set<PieceAddress> BridgesOf(const Catalogue& catalogue, const Circuit& circuit, int currentTrack) {
    LaidCircuit laid;
    for (int track = 0; track < TrackCount; ++track)
        if (track != currentTrack) Lay(catalogue, circuit.Tracks[static_cast<std::size_t>(track)], track, laid);
    if (currentTrack != AllTracks)
        Lay(catalogue, circuit.Tracks[static_cast<std::size_t>(currentTrack)], currentTrack, laid);
    const GroundGrid grid(std::move(laid.Grounds));
    std::set<PieceAddress> bridges;
    for (std::size_t upper = 0; upper < laid.Pieces.size(); ++upper) {
        const Ground& ground = grid.Grounds()[upper];
        grid.ForEachMeeting(ground.Box, [&](int other, const Ground& otherGround) {
            if (other >= static_cast<int>(upper)) return true;
            const LaidPiece& below = laid.Pieces[static_cast<std::size_t>(other)];
            const LaidPiece& above = laid.Pieces[upper];
            const PieceAddress& bridge = below.IsBridge && !above.IsBridge ? below.Address : above.Address;
            if (bridges.contains(bridge) || AreNeighbours(below, above)) return true;
            if (Overlaps(ground, otherGround)) bridges.insert(bridge);
            return true;
        });
    }
    return bridges;
}

} // namespace pistaro

// Finds closed chains that look the same after half a turn: a run that turns by half a circle closes when it is laid
// twice, whatever its pieces. So they may be put in, taken out and exchanged at will as long as the turn stays and
// adapters join the systems, and a crowded room is used better. What it does follows from the seed alone.
#pragma once

#include "search/growth.h"
#include "search/random.h"

#include <optional>
#include <vector>

namespace pistaro {

class HalfTurnGrowth : public Growth {
public:
    /// The catalogue and the room must outlive it.
    HalfTurnGrowth(const Catalogue& catalogue, const ShapeCounts& shapes, const LoopRoom& room, std::uint64_t seed);

    /// How many pieces of the box such loops can have.
    int MostPieces() const;

    std::optional<Loop> Begin(bool ofBoth) override;
    bool Change(Loop& loop, int fewest) override;

private:
    bool JoinsOneSystem(const Run& half) const;
    bool Settle(const Run& half, Loop& loop);
    Run Rearranged(Run half);
    std::optional<Run> Refilled(Run half, int fewest);
    std::optional<Run> Filled(const Run& run, std::size_t added, int turn, const ShapeCounts& left);

    const Catalogue& catalogue_;
    const LoopRoom& room_;
    ShapeCounts ofHalf_; ///< what each of the halves may use
    Random random_;
    std::vector<LayingStep> steps_;
};

} // namespace pistaro

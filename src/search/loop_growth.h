// The way to grow that leads to all loops: some pieces are taken out or put in, and the chain is closed again by the
// runs of a table. What it does follows from the seed alone.
#pragma once

#include "search/growth.h"
#include "search/random.h"
#include "search/run_table.h"

#include <optional>
#include <vector>

namespace pistaro {

class LoopGrowth : public Growth {
public:
    /// The catalogue, the shapes and the room must outlive it.
    LoopGrowth(const Catalogue& catalogue, const ShapeCounts& shapes, const LoopRoom& room, std::uint64_t seed);

    /// The same with a part that is kept: `kept`, whose shape is the last one of the shapes, stays in every loop, and
    /// lies at that pose.
    LoopGrowth(const Catalogue& catalogue, const ShapeCounts& shapes, const LoopRoom& room, std::uint64_t seed,
               const LayingStep& kept, const SearchPose& at);

    std::optional<Loop> Begin(bool ofBoth) override;
    bool Change(Loop& loop, int fewest) override;

private:
    /// A run of the table in place of elements of the loop.
    struct Replacement {
        std::size_t First, Removed; ///< elements of the changed loop
        const RunTable* Table;
        std::size_t NewRun;
        int Count; ///< of the whole loop's pieces then
    };

    /// The loop with its first elements replaced, while it is not closed again.
    struct Opened {
        Run Steps;
        std::size_t NewCount;          ///< elements at the front that are new
        ShapeCounts Left;              ///< what the box still holds
        std::vector<SearchPose> Poses; ///< before each element, and after the last; the first at the origin
        std::vector<SearchPose> ToEnd; ///< likewise, were the loop closed from there on
    };

    const RunTable& TableOf(TrackSystem system) const;
    std::vector<SearchPose> PosesOf(const Run& run) const;
    bool Take(ShapeCounts& left, const Run& run) const;
    bool Allows(ShapeCounts& left, const RunTable& table, std::size_t run) const;

    Run RandomWalk(ShapeCounts& left, bool ofBoth);
    std::optional<Loop> Closed(const Run& walk);

    void TurnRound(Loop& loop);
    Opened Open(const Loop& loop, bool anew);
    std::vector<Replacement> Replacements(Opened& opened, double tolerance, bool elsewhere, int fewest);
    Run KeptWalk(ShapeCounts& left);
    std::vector<int> PartsOfRows(const Run& run, const std::vector<int>& parts) const;
    void MoveKeptToItsPlace(Loop& loop) const;
    bool Settle(Loop& loop, const std::vector<int>& parts);

    const Catalogue& catalogue_;
    const ShapeCounts& shapes_;
    const LoopRoom& room_;
    Random random_;
    std::vector<LayingStep> steps_;
    RunTable scalextric_, ninco_;
    std::optional<SearchPose> keptAt_; ///< where the last of the steps lies, which is the part that is kept
};

} // namespace pistaro

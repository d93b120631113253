// Finds closed chains within a box and a room: small ones first, then changes that keep them closed and use more of the
// box. What it does follows from the seed alone.
#pragma once

#include "search/loop.h"

#include <optional>
#include <vector>

namespace pistaro {

class LoopGrowth {
public:
    /// The catalogue, the shapes and the room must outlive it.
    LoopGrowth(const Catalogue& catalogue, const ShapeCounts& shapes, const LoopRoom& room, std::uint64_t seed);

    /// The same with a part that is kept: `kept`, whose shape is the last one of the shapes, stays in every loop, and
    /// lies at that pose.
    LoopGrowth(const Catalogue& catalogue, const ShapeCounts& shapes, const LoopRoom& room, std::uint64_t seed,
               const LayingStep& kept, const SearchPose& at);

    const std::vector<LayingStep>& Steps() const { return steps_; }

    /// A small loop, `ofBoth` systems where the box has adapters for that; nothing where this try found none.
    std::optional<Loop> Begin(bool ofBoth);

    /// Tries one change. Gives whether the loop is another one now, which has at least `fewest` pieces.
    bool Change(Loop& loop, int fewest);

    /// How much it has looked at so far, which the processor's time goes with: the same on every machine.
    std::int64_t Effort() const { return effort_; }

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
    bool HasTable(TrackSystem system) const { return TableOf(system).Depth() > 0; }
    std::vector<SearchPose> PosesOf(const Run& run) const;
    int TurnOf(const Run& run) const;
    bool Take(ShapeCounts& left, const Run& run) const;
    bool Allows(ShapeCounts& left, const RunTable& table, std::size_t run) const;

    std::optional<std::uint8_t> RandomStep(const ShapeCounts& left, TrackSystem system);
    void AddRandomSteps(Run& run, ShapeCounts& left, TrackSystem system, std::size_t count);
    Run RandomWalk(ShapeCounts& left, bool ofBoth);
    bool CrossToNinco(Run& run, ShapeCounts& left);
    std::optional<Loop> Closed(const Run& walk);

    void TurnRound(Loop& loop);
    Opened Open(const Loop& loop, bool anew);
    std::vector<Replacement> Replacements(Opened& opened, bool elsewhere, int fewest);
    bool IsTooWide(const Loop& loop) const;
    bool HasAdaptersInARow(const Run& run) const;
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
    std::int64_t effort_ = 0;
    std::optional<SearchPose> keptAt_; ///< where the last of the steps lies, which is the part that is kept
};

} // namespace pistaro

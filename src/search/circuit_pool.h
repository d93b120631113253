// The circuits that a search has found: each laid, checked and scored once.
#pragma once

#include "search/laying.h"
#include "search/loop.h"

#include <set>
#include <vector>

namespace pistaro {

class CircuitPool {
public:
    /// All three must outlive it.
    CircuitPool(const Catalogue& catalogue, const LayingTask& task, const LoopRoom& room);

    const std::vector<FoundCircuit>& Found() const { return found_; }

    /// Whether so many use the whole box of which no two look alike, or so many more of those that do that there will
    /// hardly be others.
    bool HasWhole(int wanted) const;

    /// Whether many times as many use the whole box, whatever they look like.
    bool HasManyWhole(int wanted) const;

    /// Takes a loop of basic pieces, and of those that are kept, where it is a circuit unlike those that are known and
    /// has what it must have. Gives whether it is. `tolerance`: how far from closing it may be, cm.
    bool Add(const Rows& loopRows, const SearchPose& start, double tolerance = LoopTolerance);

private:
    struct Laid {
        pistaro::Rows Rows;
        BuildCursor Start;
        LaidLoop Loop;
    };

    std::optional<Laid> LaidInRoom(Rows rows, const SearchPose& start, double tolerance) const;
    std::optional<BuildCursor> Placed(Rows& rows, const SearchPose& start) const;
    std::optional<BuildCursor> PlacedBy(const Rows& rows, const SearchPose& start) const;
    double LikenessToVaried(const CircuitLook& look) const;
    FoundCircuit CircuitOf(const Laid& laid) const;
    void CountWhole(const FoundCircuit& found);

    const Catalogue& catalogue_;
    const LayingTask& task_;
    const LoopRoom& room_;
    std::vector<FoundCircuit> found_;
    std::set<std::vector<int>> keys_;
    int whole_ = 0; ///< that use the whole box
    std::vector<CircuitLook> looksOfWhole_;
    std::optional<CircuitLook> varied_;
};

} // namespace pistaro

// A search for circuits that grows loops: from a few pieces, and from the largest that it has found, until its effort
// is spent.
#pragma once

#include "search/circuit_pool.h"
#include "search/growth.h"

#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace pistaro {

class GrowingSearch {
public:
    /// All but the seed must outlive it.
    GrowingSearch(const Catalogue& catalogue, const ShapeCounts& shapes, const LoopRoom& room, std::uint64_t seed,
                  CircuitPool& pool);

    /// The same with a part that is kept: `kept`, whose shape is the last one of the shapes, stays in every loop, and
    /// lies at that pose.
    GrowingSearch(const Catalogue& catalogue, const ShapeCounts& shapes, const LoopRoom& room, std::uint64_t seed,
                  CircuitPool& pool, const LayingStep& kept, const SearchPose& at);

    /// What loops are made of.
    const std::vector<LayingStep>& Steps() const { return steps_; }

    /// Half of what it does from now on is to change this loop of the shapes.
    void Vary(const Loop& loop) { varied_ = loop; }

    /// Adds one loop to the pool, or several. False when there is nothing to be found any more.
    /// Throws Stopped when it is to stop; what was grown by then is in the pool.
    bool Round(int wanted, const std::stop_token& stop);

    /// The share of its effort that is spent.
    double Spent() const;

    /// The effort begins anew.
    void Continue();

private:
    /// One way to grow, and what it has led to.
    struct Way {
        std::unique_ptr<Growth> Changes;
        int MostFailures;               ///< in a row, before a loop is given up
        std::vector<Loop> Parents = {}; ///< the largest ones, which others are made from
    };

    Way& NextWay();
    bool IsAmongLargest(const Way& way, const Loop& loop) const;
    bool Begins(const Way& way);
    std::optional<Loop> Begun(Way& way, const std::stop_token& stop);
    Loop Parent(Way& way, const std::stop_token& stop);
    Loop Varied(Way& way, const std::stop_token& stop);
    void Grow(Way& way, Loop& loop, int reheatings, const std::stop_token& stop);
    void Heat(Way& way, Loop& loop, int fewest, int changes, const std::stop_token& stop);
    void Keep(Way& way, const Loop& loop);
    std::int64_t WholeEffort() const;
    std::int64_t Effort() const { return WholeEffort() - effortBefore_; }
    bool IsLate() const;

    std::vector<LayingStep> steps_;
    std::vector<Way> ways_; ///< the first one leads to all loops
    std::optional<Loop> varied_;
    bool hasNoBeginning_ = false; ///< none was found to grow a loop from
    Random random_;
    int most_;
    CircuitPool& pool_;
    std::int64_t effortBefore_ = 0; ///< it was gone on with
    int inVain_ = 0;
};

} // namespace pistaro

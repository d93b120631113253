// Every chain of so many pieces that joins two ends: met in the middle, one half from each end.
#pragma once

#include "model/job.h"
#include "search/closing_tables.h"
#include "search/open_ends.h"
#include "search/shape_chain.h"
#include "search/site.h"

#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

namespace pistaro {

inline constexpr int MostNewPieces = 12;

/// What is asked of a chain besides leading to the goal.
struct ChainDemands {
    double Tolerance = 0.05;          ///< cm that it may miss the goal by
    ShapeMask Shapes = ~ShapeMask{0}; ///< of which it may consist
    const Site* Around = nullptr;     ///< where it must lie free of faults, if anywhere
};

/// What rounding adds up to between a pose of the lattice and the pieces as they are laid, cm.
inline constexpr double LatticeSlack = 0.001;

class ChainSearch {
public:
    ChainSearch(const ClosingTables& tables, const OpenEnds& ends, const LatticeGoal& goal,
                const ChainDemands& demands);

    /// Calls visit(chain) for the chains of `count` pieces, 1 to MostNewPieces, until it gives false. Of chains that
    /// differ only in the order of neighbours which can change places, it gets one. Chains that miss the goal by a hair
    /// more than the tolerance are among them: only laying the pieces tells. Overlaps between the new pieces are not
    /// looked at.
    using Visitor = std::function<bool(const ShapeChain&)>;
    void ForEachChain(int count, const JobWatch& watch, const Visitor& visit);

    /// Another tolerance from now on, within a visit too.
    void SetTolerance(double tolerance) { demands_.Tolerance = tolerance; }

    /// Whether two pieces of a chain overlap that are no neighbours.
    bool OverlapsItself(const ShapeChain& chain);

private:
    /// A piece where a chain lays it, and what is wrong with it there.
    struct LaidPiece {
        Ground Where;
        Contact With;
    };

    /// What is being visited.
    struct Visit {
        int Count;
        const Visitor& Take;
        ShapeMask FirstShapes;                  ///< that a chain of so many pieces can begin with
        std::array<const PoseLevel*, 2> Second; ///< the tables of the second half, by system
    };

    /// One half of a chain: a way through a table from its start to a pose of a level.
    struct Half {
        std::uint8_t System; ///< of the table's start
        int Level;
        const TablePose& End;
        LatticePose Place; ///< of the end as the search sees it
        int FirstPlace;    ///< of the half's first piece in the chain
        int Count;         ///< of the whole chain
    };

    /// The first half, and the single pieces behind it where two tables together are too short.
    struct Beginning {
        const TablePose& End;
        int Level;
        ShapeChain Tail;
        LatticePose Place;
    };

    void VisitInOneTable(const Visit& visit);
    bool VisitBehind(const Beginning& beginning, int between, const Visit& visit);
    bool VisitMeetings(const Beginning& beginning, const Visit& visit);
    std::vector<ShapeChain> ChainsOf(const Beginning& beginning, int count);
    std::vector<ShapeChain> ChainsOf(const Half& half);
    void FollowBack(const Half& half, int level, const TablePose& pose, const LatticePose& place,
                    std::vector<int>& behind, std::vector<ShapeChain>& chains);
    bool MayLie(const LatticePose& entry, int shape, int place, int count);
    bool Joins(int shape, int next) const { return shapes_.MayFollow(shape, next) && shapes_.AreInOrder(shape, next); }
    const LaidPiece& Laid(const LatticePose& entry, int shape);
    double Radius() const { return demands_.Tolerance + LatticeSlack; }
    ShapeMask FirstShapes(int count);
    const PoseLevel& Table(std::uint8_t system, int level) const {
        return *levels_[system][static_cast<std::size_t>(level)];
    }
    void TakeTables(int deepest);

    const ClosingTables& tables_;
    const PieceShapes& shapes_;
    OpenEnds ends_;
    LatticeGoal goal_;
    ChainDemands demands_;
    std::array<std::array<const PoseLevel*, ClosingTables::DeepestLevel + 1>, 2>
        levels_{};     ///< as far as they were needed
    Direction across_; ///< of the end, where the lattice begins
    std::unordered_map<std::uint64_t, LaidPiece> laid_;
};

} // namespace pistaro

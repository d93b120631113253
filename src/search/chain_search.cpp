#include "search/chain_search.h"

#include "catalogue/track_geometry.h"
#include "layout/overlap.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>
#include <numeric>

namespace pistaro {

namespace {

const std::array<Direction, LatticeHeadings>& HeadingDirections() {
    static const std::array<Direction, LatticeHeadings> directions = [] {
        std::array<Direction, LatticeHeadings> made{};
        for (std::size_t heading = 0; heading < made.size(); ++heading)
            made[heading] = Towards(static_cast<double>(heading) * 2 * std::numbers::pi / LatticeHeadings);
        return made;
    }();
    return directions;
}

/// The level at which the two halves of so many pieces meet.
int DeepestFor(int count) {
    return count <= 2 * ClosingTables::UsualLevel ? ClosingTables::UsualLevel : ClosingTables::DeepestLevel;
}

std::uint8_t HeadingSum(int a, int b) { return static_cast<std::uint8_t>((a + b + LatticeHeadings) % LatticeHeadings); }

/// A goal as a pose sees it that lies on the way.
LatticeGoal SeenFrom(const LatticePose& pose, const LatticeGoal& goal) {
    const Direction along = HeadingDirections()[pose.Heading];
    const double x = goal.X - pose.X;
    const double y = goal.Y - pose.Y;
    return {x * along.X + y * along.Y, y * along.X - x * along.Y, HeadingSum(goal.Heading, -pose.Heading)};
}

/// The pose that lies so behind another one.
LatticePose Behind(const LatticePose& pose, const LatticePose& more) {
    const Direction along = HeadingDirections()[pose.Heading];
    return {pose.X + more.X * along.X - more.Y * along.Y, pose.Y + more.X * along.Y + more.Y * along.X, 0,
            HeadingSum(pose.Heading, more.Heading), more.System};
}

} // namespace

ChainSearch::ChainSearch(const ClosingTables& tables, const OpenEnds& ends, const LatticeGoal& goal,
                         const ChainDemands& demands)
    : tables_(tables), shapes_(tables.Shapes()), ends_(ends), goal_(goal), demands_(demands),
      across_(Towards(ends.End.CursorHeading)) {}

void ChainSearch::ForEachChain(int count, const JobWatch& watch, const Visitor& visitor) {
    const int deepest = DeepestFor(count);
    TakeTables(std::min(count, deepest));
    Visit visit{count, visitor, FirstShapes(count), {}};
    if (visit.FirstShapes == 0) return;
    if (count <= deepest) return VisitInOneTable(visit);

    visit.Second = {&Table(0, deepest), &Table(1, deepest)};
    const int level = std::min(count - deepest, deepest);
    int visited = 0;
    for (const TablePose& pose : Table(ends_.EndSystem, level).Poses()) {
        if ((++visited & 1023) == 0) ThrowIfStopped(watch.Stop);
        if ((pose.FirstShapes & visit.FirstShapes) == 0) continue;
        if (!VisitBehind({pose, level, {}, pose.Pose()}, count - deepest - level, visit)) return;
    }
}

void ChainSearch::TakeTables(int deepest) {
    for (std::uint8_t system = 0; system < 2; ++system) {
        for (int level = 0; level <= deepest; ++level)
            levels_[system][static_cast<std::size_t>(level)] = &tables_.Level(system, level);
    }
}

ShapeMask ChainSearch::FirstShapes(int count) {
    ShapeMask first = 0;
    const LatticePose start{.System = ends_.EndSystem};
    for (int shape = 0; shape < shapes_.Count(); ++shape) {
        if (shapes_[shape].EntrySystem == start.System && MayLie(start, shape, 0, count))
            first |= ShapeMask{1} << shape;
    }
    return first;
}

void ChainSearch::VisitInOneTable(const Visit& visit) {
    bool goOn = true;
    Table(ends_.EndSystem, visit.Count)
        .ForEachNear(goal_.X, goal_.Y, goal_.Heading, ends_.GoalSystem, Radius(), [&](int, const TablePose& end) {
            for (const ShapeChain& chain :
                 ChainsOf(Half{ends_.EndSystem, visit.Count, end, end.Pose(), 0, visit.Count})) {
                goOn = goOn && visit.Take(chain);
            }
        });
}

bool ChainSearch::VisitBehind(const Beginning& beginning, int between, const Visit& visit) {
    if (between == 0) return VisitMeetings(beginning, visit);
    for (int shape = 0; shape < shapes_.Count(); ++shape) {
        if (shapes_[shape].EntrySystem != beginning.Place.System) continue;
        if (beginning.Tail.Count() > 0 && !Joins(beginning.Tail.Last(), shape)) continue;
        Beginning longer{beginning.End, beginning.Level, beginning.Tail.With(shape),
                         shapes_.After(beginning.Place, shape)};
        if (!VisitBehind(longer, between - 1, visit)) return false;
    }
    return true;
}

bool ChainSearch::VisitMeetings(const Beginning& beginning, const Visit& visit) {
    const int level = DeepestFor(visit.Count);
    const PoseLevel& table = *visit.Second[beginning.Place.System];
    const LatticeGoal goal = SeenFrom(beginning.Place, goal_);
    const double reach = table.Reach() + Radius();
    if (goal.X * goal.X + goal.Y * goal.Y > reach * reach) return true;
    bool goOn = true;
    std::optional<std::vector<ShapeChain>> firsts;
    table.ForEachNear(goal.X, goal.Y, goal.Heading, ends_.GoalSystem, Radius(), [&](int, const TablePose& end) {
        if (!goOn) return;
        if (!firsts) firsts = ChainsOf(beginning, visit.Count);
        if (firsts->empty()) return;
        for (const ShapeChain& second :
             ChainsOf(Half{beginning.Place.System, level, end, Behind(beginning.Place, end.Pose()), visit.Count - level,
                           visit.Count})) {
            for (const ShapeChain& first : *firsts) {
                if (Joins(first.Last(), second[0])) goOn = goOn && visit.Take(first.With(second));
            }
        }
    });
    return goOn;
}

std::vector<ShapeChain> ChainSearch::ChainsOf(const Beginning& beginning, int count) {
    std::vector<ShapeChain> chains =
        ChainsOf(Half{ends_.EndSystem, beginning.Level, beginning.End, beginning.End.Pose(), 0, count});
    LatticePose place = beginning.End.Pose();
    for (int i = 0; i < beginning.Tail.Count(); ++i) {
        const int shape = beginning.Tail[i];
        if (!MayLie(place, shape, beginning.Level + i, count)) return {};
        std::erase_if(chains, [&](const ShapeChain& chain) { return !Joins(chain.Last(), shape); });
        for (ShapeChain& chain : chains)
            chain = chain.With(shape);
        place = shapes_.After(place, shape);
    }
    return chains;
}

std::vector<ShapeChain> ChainSearch::ChainsOf(const Half& half) {
    std::vector<ShapeChain> chains;
    std::vector<int> behind;
    FollowBack(half, half.Level, half.End, half.Place, behind, chains);
    return chains;
}

/// Takes a half's pieces off its end one by one; `behind` are those that have been taken off, the last one first.
void ChainSearch::FollowBack(const Half& half, int level, const TablePose& pose, const LatticePose& place,
                             std::vector<int>& behind, std::vector<ShapeChain>& chains) {
    if (level == 0) {
        chains.push_back(std::accumulate(behind.rbegin(), behind.rend(), ShapeChain(),
                                         [](const ShapeChain& chain, int shape) { return chain.With(shape); }));
        return;
    }
    for (ShapeMask left = pose.LastShapes & demands_.Shapes; left != 0; left &= left - 1) {
        const int shape = std::countr_zero(left);
        if (!behind.empty() && !Joins(shape, behind.back())) continue;
        const LatticePose entry = shapes_.Before(place, shape);
        if (!MayLie(entry, shape, half.FirstPlace + level - 1, half.Count)) continue;
        const PoseLevel& table = Table(half.System, level - 1);
        const int before = table.Find(shapes_.Before(pose.Pose(), shape));
        if (before < 0) continue;
        behind.push_back(shape);
        FollowBack(half, level - 1, table.Poses()[static_cast<std::size_t>(before)], entry, behind, chains);
        behind.pop_back();
    }
}

bool ChainSearch::MayLie(const LatticePose& entry, int shape, int place, int count) {
    const bool isFirst = place == 0;
    const bool isLast = place == count - 1;
    if (shapes_[shape].IsAdapter && ((isFirst && ends_.AfterAdapter) || (isLast && ends_.BeforeAdapter))) return false;
    if ((demands_.Shapes >> shape & 1) == 0) return false;
    if (demands_.Around == nullptr) return true;
    const Contact& contact = Laid(entry, shape).With;
    return !contact.IsOutside && !contact.IsFault(isFirst, isLast);
}

const ChainSearch::LaidPiece& ChainSearch::Laid(const LatticePose& entry, int shape) {
    constexpr double grain = 1000; // per cm: pieces in the same place by two ways may be laid twice
    const auto part = [](double place) { return static_cast<std::uint64_t>(std::llround(place * grain)); };
    const std::uint64_t key = (part(entry.X) * 0x9E3779B97F4A7C15 + part(entry.Y)) * 0xBF58476D1CE4E5B9 +
                              static_cast<std::uint64_t>(entry.Heading * MostShapes + shape);
    const auto [found, isNew] = laid_.try_emplace(key);
    if (isNew) {
        const LaidShape& laid = shapes_[shape];
        const BuildCursor& end = ends_.End;
        const BuildCursor cursor{static_cast<float>(end.CursorX + entry.X * across_.X - entry.Y * across_.Y),
                                 static_cast<float>(end.CursorY + entry.X * across_.Y + entry.Y * across_.X),
                                 static_cast<float>(end.CursorHeading + entry.Heading * 2 * PiValue / LatticeHeadings)};
        found->second.Where = GroundOf(PlacePiece(laid.Kind, cursor, {.IsNinco = laid.EntrySystem == 1}));
        if (demands_.Around != nullptr)
            found->second.With = demands_.Around->ContactOf(*laid.Piece, found->second.Where);
    }
    return found->second;
}

bool ChainSearch::OverlapsItself(const ShapeChain& chain) {
    std::vector<const Ground*> grounds;
    LatticePose place{.System = ends_.EndSystem};
    for (int i = 0; i < chain.Count(); ++i) {
        grounds.push_back(&Laid(place, chain[i]).Where);
        for (std::size_t other = 0; other + 2 < grounds.size(); ++other) {
            if (Overlaps(*grounds[other], *grounds.back())) return true;
        }
        place = shapes_.After(place, chain[i]);
    }
    return false;
}

} // namespace pistaro

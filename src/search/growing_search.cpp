#include "search/growing_search.h"

#include "search/half_turn_growth.h"
#include "search/loop_growth.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace pistaro {

namespace {

constexpr int MostFailures = 1500;         ///< before a loop is given up
constexpr int MostFailuresOfHalves = 3000; ///< the same where changes cost less
constexpr int FewFailures = 400;           ///< the same, when only more circuits are looked for
constexpr int Reheatings = 2;              ///< times that a loop which grows no more may shrink again
constexpr int HotChanges = 40;             ///< while it may
constexpr int MostBeginnings = 400;        ///< tries at a first loop
constexpr int AlikeRounds = 30;            ///< in a row in vain before a box is taken to have no other circuits
constexpr std::size_t MostParents = 4;

/// The effort of one search, as its ways to grow count it.
constexpr std::int64_t MostEffort = 43'000'000;

/// The same where it has not found so many circuits by then as were wished for: others are made from the largest ones.
constexpr std::int64_t MostEffortForMore = MostEffort * 5 / 4;

int SizeOf(const Loop& loop) { return static_cast<int>(loop.Steps.size()); }

} // namespace

GrowingSearch::GrowingSearch(const Catalogue& catalogue, const ShapeCounts& shapes, const LoopRoom& room,
                             std::uint64_t seed, CircuitPool& pool)
    : steps_(StepsOf(catalogue, shapes)), random_(~seed), most_(PieceBox{shapes}.Total()), pool_(pool) {
    ways_.push_back({std::make_unique<LoopGrowth>(catalogue, shapes, room, seed), MostFailures});
    constexpr double worthIt = 0.8; // of the box
    auto ofHalves = std::make_unique<HalfTurnGrowth>(catalogue, shapes, room, seed);
    if (ofHalves->MostPieces() >= worthIt * most_) ways_.push_back({std::move(ofHalves), MostFailuresOfHalves});
}

GrowingSearch::GrowingSearch(const Catalogue& catalogue, const ShapeCounts& shapes, const LoopRoom& room,
                             std::uint64_t seed, CircuitPool& pool, const LayingStep& kept, const SearchPose& at)
    : steps_(StepsOf(catalogue, shapes)), random_(~seed), most_(PieceBox{shapes}.Total()), pool_(pool) {
    steps_.push_back(kept);
    ways_.push_back({std::make_unique<LoopGrowth>(catalogue, shapes, room, seed, kept, at), MostFailures});
}

bool GrowingSearch::Round(int wanted, const std::stop_token& stop) {
    const bool varies = varied_ && (hasNoBeginning_ || random_.Happens(1, 2));
    Way& way = varies ? ways_.front() : NextWay();
    auto loop = varies ? Varied(way, stop) : Begins(way) ? Begun(way, stop) : Parent(way, stop);
    if (!loop) {
        hasNoBeginning_ = ways_.size() == 1;
        if (hasNoBeginning_) return varied_.has_value();
        if (&way != &ways_.front()) {
            effortBefore_ -= way.Changes->Effort(); // which goes with it
            ways_.pop_back();
        }
        return ++inVain_ < AlikeRounds;
    }
    const std::size_t before = pool_.Found().size();
    Way& last = ways_.front();
    try {
        Grow(way, *loop, varies ? 0 : Reheatings, stop);
        if (&way != &last && IsAmongLargest(way, *loop)) Grow(last, *loop, 0, stop);
    } catch (const Stopped&) {
        Keep(last, *loop); // as far as it has come
        throw;
    }
    inVain_ = pool_.Found().size() > before ? 0 : inVain_ + 1;
    const bool hasEnough = pool_.Found().size() >= static_cast<std::size_t>(wanted);
    const std::int64_t most = hasEnough ? MostEffort : MostEffortForMore;
    return inVain_ < AlikeRounds && Effort() < most && !(varied_ ? pool_.HasManyWhole(wanted) : pool_.HasWhole(wanted));
}

double GrowingSearch::Spent() const {
    return std::min(1.0, static_cast<double>(Effort()) / static_cast<double>(MostEffortForMore));
}

void GrowingSearch::Continue() {
    effortBefore_ = WholeEffort();
    inVain_ = 0;
}

std::int64_t GrowingSearch::WholeEffort() const {
    return std::accumulate(ways_.begin(), ways_.end(), std::int64_t{0},
                           [](std::int64_t sum, const Way& way) { return sum + way.Changes->Effort(); });
}

bool GrowingSearch::IsLate() const { return Effort() >= MostEffort; }

GrowingSearch::Way& GrowingSearch::NextWay() {
    constexpr std::size_t ofHalves = 9, outOf = 10;
    return ways_.size() > 1 && random_.Happens(ofHalves, outOf) ? ways_.back() : ways_.front();
}

/// Whether the loop is worth the time that it takes to lead it on the way that leads to all loops.
bool GrowingSearch::IsAmongLargest(const Way& way, const Loop& loop) const {
    constexpr int percent = 95;
    return SizeOf(loop) < most_ && (way.Parents.empty() || SizeOf(loop) * 100 >= SizeOf(way.Parents.front()) * percent);
}

/// Whether a round is to begin anew, and not to go on from a large loop that was found.
bool GrowingSearch::Begins(const Way& way) {
    if (way.Parents.empty() || IsLate()) return way.Parents.empty();
    return way.Parents.size() < MostParents || random_.Happens(1, 2);
}

std::optional<Loop> GrowingSearch::Begun(Way& way, const std::stop_token& stop) {
    std::optional<Loop> loop;
    for (const bool ofBoth : {true, false}) {
        for (int tried = 0; tried < MostBeginnings && !loop; ++tried) {
            ThrowIfStopped(stop);
            loop = way.Changes->Begin(ofBoth);
        }
    }
    if (!loop && !way.Parents.empty()) return Parent(way, stop);
    return loop;
}

/// The loop that is varied, with a change or a few.
Loop GrowingSearch::Varied(Way& way, const std::stop_token& stop) {
    Loop loop = *varied_;
    constexpr int tries = 200, mostChanges = 3, mostFewer = 4;
    const int fewest = SizeOf(loop) - mostFewer;
    std::size_t changes = 1 + random_.Below(mostChanges);
    for (int tried = 0; tried < tries && changes > 0; ++tried) {
        ThrowIfStopped(stop);
        if (way.Changes->Change(loop, fewest)) --changes;
    }
    return loop;
}

/// One of the largest loops, shrunk to about two thirds.
Loop GrowingSearch::Parent(Way& way, const std::stop_token& stop) {
    Loop loop = way.Parents[random_.Below(way.Parents.size())];
    constexpr int changes = 200;
    Heat(way, loop, SizeOf(loop) * 2 / 3, changes, stop);
    return loop;
}

/// Lets it shrink.
void GrowingSearch::Heat(Way& way, Loop& loop, int fewest, int changes, const std::stop_token& stop) {
    for (; changes > 0; --changes) {
        ThrowIfStopped(stop);
        way.Changes->Change(loop, fewest);
    }
}

/// Grows a loop as far as it goes, and lets it shrink a little and grow again.
void GrowingSearch::Grow(Way& way, Loop& loop, int reheatings, const std::stop_token& stop) {
    for (int round = 0;; ++round) {
        int failures = 0;
        int size = SizeOf(loop);
        while (failures < (IsLate() ? FewFailures : way.MostFailures) && size < most_) {
            ThrowIfStopped(stop);
            way.Changes->Change(loop, size);
            failures = SizeOf(loop) > size ? 0 : failures + 1;
            size = SizeOf(loop);
        }
        Keep(way, loop);
        if (size == most_ || round == reheatings) return;
        Heat(way, loop, size - std::max(size / 10, 2), HotChanges, stop);
    }
}

void GrowingSearch::Keep(Way& way, const Loop& loop) {
    if (!pool_.Add(RowsOf(steps_, loop.Steps), loop.Start, loop.Tolerance)) return;
    way.Parents.push_back(loop);
    std::ranges::stable_sort(way.Parents, std::ranges::greater(), SizeOf);
    if (way.Parents.size() > MostParents) way.Parents.pop_back();
}

} // namespace pistaro

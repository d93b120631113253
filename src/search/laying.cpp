#include "search/laying.h"

#include "layout/built_lanes.h"
#include "search/loop_enumeration.h"
#include "search/loop_growth.h"
#include "search/same_circuit.h"
#include "search/special_pieces.h"

#include <algorithm>
#include <map>
#include <set>

namespace pistaro {

namespace {

constexpr int MostFailures = 400;   ///< in a row, before a loop is given up
constexpr int Reheatings = 2;       ///< times that a loop which grows no more may shrink again
constexpr int HotChanges = 40;      ///< while it may
constexpr int MostBeginnings = 400; ///< tries at a first loop
constexpr int AlikeRounds = 30;     ///< in a row in vain before a box is taken to have no other circuits
constexpr std::size_t Parents = 4;  ///< of the largest loops, which others are made from

/// The effort of one search: the pieces of all loops that a change was tried on.
constexpr std::int64_t MostEffort = 2'400'000;

/// Rotates the circuit to begin on a straight: the start's own piece, or the first of the longest stretch.
void BeginOnStraight(const Catalogue& catalogue, Rows& rows) {
    const auto startPiece =
        std::ranges::find_if(rows, [&](int row) { return catalogue[row].Kind.Marks == PieceMarks::ReverseStart; });
    if (startPiece != rows.end()) {
        std::rotate(rows.begin(), startPiece, rows.end());
        return;
    }
    const std::size_t count = rows.size();
    std::size_t best = 0;
    double longest = -1;
    for (std::size_t first = 0; first < count; ++first) {
        const auto at = [&](std::size_t place) -> const CatalogueEntry& { return catalogue[rows[place % count]]; };
        const auto isPlain = [&](std::size_t place) { return at(place).IsStraight() && !at(place).JoinsSystems(); };
        if (!isPlain(first) || isPlain(first + count - 1)) continue;
        double length = 0;
        for (std::size_t place = first; place < first + count && isPlain(place); ++place)
            length += at(place).Kind.Length;
        if (length > longest) {
            longest = length;
            best = first;
        }
    }
    // Without straights: not on an adapter, whose way round the piece before it decides.
    while (catalogue[rows[best]].JoinsSystems())
        ++best;
    std::rotate(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(best), rows.end());
}

class CircuitPool {
public:
    CircuitPool(const Catalogue& catalogue, const LayingTask& task, const LoopRoom& room)
        : catalogue_(catalogue), task_(task), room_(room) {}

    std::size_t Count() const { return found_.size(); }

    /// How many of different outlines use the whole box.
    int CountOfWhole() const { return static_cast<int>(wholeOutlines_.size()); }

    bool Knows(const Rows& basicRows) const { return keys_.contains(CircuitKey(catalogue_, basicRows)); }

    /// Takes a loop of basic pieces where it is a circuit unlike those that are known. Gives whether it is.
    bool Add(const Rows& basicRows, const SearchPose& start) {
        if (Knows(basicRows)) return false;
        auto rows = WithSpecialPieces(catalogue_, task_.Box, basicRows);
        if (!rows) return false;
        BeginOnStraight(catalogue_, *rows);
        // The rotated chain starts elsewhere, so that it must find its place anew.
        Loop loop{{}, {start.X, start.Y, start.Heading}};
        LaidLoop laid = LayLoop(catalogue_, *rows, loop.Cursor());
        Random random(task_.Seed);
        const auto shift = room_.ShiftInto(laid, random);
        if (!shift) return false;
        loop.Start.X += shift->X;
        loop.Start.Y += shift->Y;
        laid = LayLoop(catalogue_, *rows, loop.Cursor());
        if (!IsClosed(laid) || OverlapsItself(laid, {}) || !room_.Holds(laid)) return false;
        keys_.insert(CircuitKey(catalogue_, basicRows));
        found_.push_back({CircuitOf(*rows, loop.Cursor(), laid), OutlineKey(catalogue_, basicRows)});
        if (found_.back().Circuit.Used == 1) wholeOutlines_.insert(found_.back().Outline);
        return true;
    }

    /// The best ones, those of different outlines before others.
    std::vector<LaidCircuit> Best() {
        std::ranges::stable_sort(found_,
                                 [](const Found& a, const Found& b) { return a.Circuit.Score > b.Circuit.Score; });
        std::set<std::vector<int>> outlines;
        std::stable_partition(found_.begin(), found_.end(),
                              [&](const Found& found) { return outlines.insert(found.Outline).second; });
        const std::size_t count = std::min(found_.size(), static_cast<std::size_t>(task_.Count));
        std::vector<LaidCircuit> best;
        for (std::size_t i = 0; i < count; ++i)
            best.push_back(found_[i].Circuit);
        std::ranges::stable_sort(best, std::ranges::greater(), &LaidCircuit::Score);
        return best;
    }

private:
    struct Found {
        LaidCircuit Circuit;
        std::vector<int> Outline;
    };

    LaidCircuit CircuitOf(const Rows& rows, const BuildCursor& start, const LaidLoop& laid) const {
        LaidCircuit circuit;
        circuit.Track = {{}, start.CursorX, start.CursorY, start.CursorHeading};
        for (const int row : rows)
            circuit.Track.ElementCodes.push_back(catalogue_[row].Code);
        const BuiltLanes lanes = LanesAsBuilt(catalogue_, circuit.Track);
        circuit.Length = (lanes.Lengths[0] + lanes.Lengths[1]) / 2;
        circuit.Gap = laid.Gap;
        circuit.Parts = ScorePartsOf(catalogue_, rows, laid, room_, task_.Box.Total(), circuit.Length,
                                     lanes.Lengths[0] - lanes.Lengths[1]);
        circuit.Used = circuit.Parts.Used;
        circuit.Score = Score(circuit.Parts, task_.Weights);
        return circuit;
    }

    const Catalogue& catalogue_;
    const LayingTask& task_;
    const LoopRoom& room_;
    std::vector<Found> found_;
    std::set<std::vector<int>> keys_, wholeOutlines_;
};

/// One search by growing loops.
class GrowingSearch {
public:
    GrowingSearch(const Catalogue& catalogue, const ShapeCounts& shapes, const LoopRoom& room, std::uint64_t seed,
                  CircuitPool& pool, const JobWatch& watch)
        : growth_(catalogue, shapes, room, seed), random_(~seed), most_(PieceBox{shapes}.Total()), pool_(pool),
          watch_(watch) {}

    /// Adds one loop to the pool, or several. False when there is nothing to be found any more.
    bool Round(int wanted) {
        // Half of the rounds go on from large loops that were found.
        auto loop = parents_.size() < Parents || random_.Happens(1, 2) ? Begun() : Parent();
        if (!loop) return false;
        const std::size_t before = pool_.Count();
        Grow(*loop);
        inVain_ = pool_.Count() > before ? 0 : inVain_ + 1;
        return inVain_ < AlikeRounds && effort_ < MostEffort && pool_.CountOfWhole() < wanted;
    }

private:
    std::optional<Loop> Begun() {
        std::optional<Loop> loop;
        for (const bool ofBoth : {true, false}) {
            for (int tried = 0; tried < MostBeginnings && !loop; ++tried)
                loop = growth_.Begin(ofBoth);
        }
        if (!loop && !parents_.empty()) return Parent();
        return loop;
    }

    /// One of the largest loops, shrunk to about two thirds.
    Loop Parent() {
        Loop loop = parents_[random_.Below(parents_.size())];
        constexpr int changes = 200;
        Heat(loop, static_cast<int>(loop.Steps.size()) * 2 / 3, changes);
        return loop;
    }

    void Change(Loop& loop, int fewest) {
        if (watch_.Stop.stop_requested()) throw Stopped();
        effort_ += static_cast<std::int64_t>(loop.Steps.size());
        growth_.Change(loop, fewest);
    }

    /// Lets it shrink.
    void Heat(Loop& loop, int fewest, int changes) {
        for (; changes > 0; --changes)
            Change(loop, fewest);
    }

    /// Grows a loop as far as it goes, and lets it shrink a little and grow again.
    void Grow(Loop& loop) {
        for (int round = 0;; ++round) {
            int failures = 0;
            int size = SizeOf(loop);
            while (failures < MostFailures && size < most_) {
                Change(loop, size);
                failures = SizeOf(loop) > size ? 0 : failures + 1;
                size = SizeOf(loop);
            }
            Keep(loop);
            if (size == most_ || round == Reheatings) return;
            Heat(loop, size - std::max(size / 10, 2), HotChanges);
        }
    }

    static int SizeOf(const Loop& loop) { return static_cast<int>(loop.Steps.size()); }

    void Keep(const Loop& loop) {
        if (!pool_.Add(RowsOf(growth_.Steps(), loop.Steps), loop.Start)) return;
        parents_.push_back(loop);
        std::ranges::stable_sort(parents_, std::ranges::greater(), SizeOf);
        if (parents_.size() > Parents) parents_.pop_back();
    }

    LoopGrowth growth_;
    Random random_;
    int most_;
    CircuitPool& pool_;
    const JobWatch& watch_;
    std::vector<Loop> parents_; ///< the largest ones
    std::int64_t effort_ = 0;
    int inVain_ = 0;
};

/// All circuits of a small box. False where there would be too much to look at.
bool AddAll(const Catalogue& catalogue, const ShapeCounts& shapes, CircuitPool& pool, const JobWatch& watch) {
    const std::vector<LayingStep> steps = StepsOf(catalogue, shapes);
    if (std::ranges::any_of(steps, &LayingStep::JoinsSystems)) return false;
    const auto loops = EnumerateLoops(steps, shapes);
    if (!loops) return false;
    for (const Run& loop : *loops) {
        if (watch.Stop.stop_requested()) throw Stopped();
        for (const int heading : {0, HeadingCount / 4, HeadingCount / 8, HeadingCount * 3 / 8}) {
            if (pool.Add(RowsOf(steps, loop), {0, 0, heading})) break;
        }
    }
    return true;
}

} // namespace

Laying LayCircuits(const Catalogue& catalogue, const LayingTask& task, const JobWatch& watch,
                   const std::function<bool()>& isTimeUp) {
    const ShapeCounts shapes = ShapesOf(catalogue, task.Box);
    const LoopRoom room(task.Room);
    CircuitPool pool(catalogue, task, room);
    if (PieceBox{shapes}.Total() <= EnumeratedBox && AddAll(catalogue, shapes, pool, watch)) return {pool.Best(), true};
    GrowingSearch search(catalogue, shapes, room, task.Seed, pool, watch);
    do {
        watch.Step(std::min(static_cast<int>(pool.Count()), task.Count), task.Count);
    } while (search.Round(task.Count) && !(isTimeUp && isTimeUp()));
    return {pool.Best(), false};
}

} // namespace pistaro

#include "search/laying.h"

#include "search/circuit_pool.h"
#include "search/loop_enumeration.h"
#include "search/loop_growth.h"
#include "search/special_pieces.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace pistaro {

namespace {

constexpr int MostFailures = 1500;  ///< in a row, before a loop is given up
constexpr int FewFailures = 400;    ///< the same, when only more circuits are looked for
constexpr int Reheatings = 2;       ///< times that a loop which grows no more may shrink again
constexpr int HotChanges = 40;      ///< while it may
constexpr int MostBeginnings = 400; ///< tries at a first loop
constexpr int AlikeRounds = 30;     ///< in a row in vain before a box is taken to have no other circuits
constexpr std::size_t Parents = 4;  ///< of the largest loops, which others are made from

/// The effort of one search, as LoopGrowth counts it.
constexpr std::int64_t MostEffort = 37'000'000;

/// The same where it has not found so many circuits by then as were wished for: others are made from the largest ones.
constexpr std::int64_t MostEffortForMore = MostEffort * 5 / 4;

void ThrowIfStopped(const std::stop_token& stop) {
    if (stop.stop_requested()) throw Stopped();
}

/// One search by growing loops.
class GrowingSearch {
public:
    GrowingSearch(LoopGrowth growth, const ShapeCounts& shapes, std::uint64_t seed, CircuitPool& pool)
        : growth_(std::move(growth)), random_(~seed), most_(PieceBox{shapes}.Total()), pool_(pool) {}

    /// Adds one loop to the pool, or several. False when there is nothing to be found any more.
    bool Round(int wanted, const std::stop_token& stop) {
        auto loop = Begins() ? Begun(stop) : Parent(stop);
        if (!loop) return false;
        const std::size_t before = pool_.Found().size();
        try {
            Grow(*loop, stop);
        } catch (const Stopped&) {
            Keep(*loop); // as far as it has come
            throw;
        }
        inVain_ = pool_.Found().size() > before ? 0 : inVain_ + 1;
        const bool hasEnough = pool_.Found().size() >= static_cast<std::size_t>(wanted);
        const std::int64_t most = hasEnough ? MostEffort : MostEffortForMore;
        return inVain_ < AlikeRounds && Effort() < most && pool_.CountOfWhole() < wanted;
    }

    /// The effort begins anew.
    void Continue() {
        effortBefore_ = growth_.Effort();
        inVain_ = 0;
    }

private:
    /// Whether a round is to begin anew, and not to go on from a large loop that was found.
    bool Begins() {
        if (parents_.empty() || IsLate()) return parents_.empty();
        return parents_.size() < Parents || random_.Happens(1, 2);
    }

    std::optional<Loop> Begun(const std::stop_token& stop) {
        std::optional<Loop> loop;
        for (const bool ofBoth : {true, false}) {
            for (int tried = 0; tried < MostBeginnings && !loop; ++tried) {
                ThrowIfStopped(stop);
                loop = growth_.Begin(ofBoth);
            }
        }
        if (!loop && !parents_.empty()) return Parent(stop);
        return loop;
    }

    /// One of the largest loops, shrunk to about two thirds.
    Loop Parent(const std::stop_token& stop) {
        Loop loop = parents_[random_.Below(parents_.size())];
        constexpr int changes = 200;
        Heat(loop, SizeOf(loop) * 2 / 3, changes, stop);
        return loop;
    }

    std::int64_t Effort() const { return growth_.Effort() - effortBefore_; }
    bool IsLate() const { return Effort() >= MostEffort; }

    void Change(Loop& loop, int fewest, const std::stop_token& stop) {
        ThrowIfStopped(stop);
        growth_.Change(loop, fewest);
    }

    /// Lets it shrink.
    void Heat(Loop& loop, int fewest, int changes, const std::stop_token& stop) {
        for (; changes > 0; --changes)
            Change(loop, fewest, stop);
    }

    /// Grows a loop as far as it goes, and lets it shrink a little and grow again.
    void Grow(Loop& loop, const std::stop_token& stop) {
        for (int round = 0;; ++round) {
            int failures = 0;
            int size = SizeOf(loop);
            while (failures < (IsLate() ? FewFailures : MostFailures) && size < most_) {
                Change(loop, size, stop);
                failures = SizeOf(loop) > size ? 0 : failures + 1;
                size = SizeOf(loop);
            }
            Keep(loop);
            if (size == most_ || round == Reheatings) return;
            Heat(loop, size - std::max(size / 10, 2), HotChanges, stop);
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
    std::vector<Loop> parents_;     ///< the largest ones
    std::int64_t effortBefore_ = 0; ///< it was gone on with
    int inVain_ = 0;
};

/// All circuits of a small box. False where there would be too much to look at.
bool AddAll(const Catalogue& catalogue, const ShapeCounts& shapes, CircuitPool& pool, const std::stop_token& stop) {
    const std::vector<LayingStep> steps = StepsOf(catalogue, shapes);
    if (std::ranges::any_of(steps, &LayingStep::JoinsSystems)) return false;
    const auto loops = EnumerateLoops(steps, shapes);
    if (!loops) return false;
    for (const Run& loop : *loops) {
        ThrowIfStopped(stop);
        for (const int heading : {0, HeadingCount / 4, HeadingCount / 8, HeadingCount * 3 / 8}) {
            if (pool.Add(RowsOf(steps, loop), {0, 0, heading})) break;
        }
    }
    return true;
}

/// The shapes that lie about a part that is kept; its own comes last.
ShapeCounts ShapesAround(const Catalogue& catalogue, ShapeCounts shapes, const std::vector<int>& kept) {
    for (const int row : kept) {
        int& left = shapes[static_cast<std::size_t>(catalogue[row].ShapeIndex)];
        left = std::max(0, left - 1);
    }
    shapes.push_back(1);
    return shapes;
}

using Squares = std::vector<std::pair<int, int>>;

/// How many of the squares that one of two passes the other does, too.
double SharedPart(const Squares& one, const Squares& other) {
    Squares shared;
    std::ranges::set_intersection(one, other, std::back_inserter(shared));
    const std::size_t together = one.size() + other.size() - shared.size();
    return together == 0 ? 1 : static_cast<double>(shared.size()) / static_cast<double>(together);
}

} // namespace

bool CanKeep(const Catalogue& catalogue, const std::vector<int>& rows) {
    return KeptStep(catalogue, rows, catalogue.Count()).has_value();
}

std::vector<std::size_t> BestOf(const std::vector<FoundCircuit>& found, int count, const ScoreWeights& weights) {
    std::vector<double> scores;
    scores.reserve(found.size());
    for (const FoundCircuit& circuit : found)
        scores.push_back(Score(circuit.Circuit.Parts, weights));
    constexpr double mostForNew = 0.2; // of a score, that a circuit unlike all others is preferred by
    std::vector<double> worth = scores;
    std::vector<std::size_t> best;
    while (best.size() < std::min(found.size(), static_cast<std::size_t>(count))) {
        const auto place = static_cast<std::size_t>(std::ranges::max_element(worth) - worth.begin());
        best.push_back(place);
        for (std::size_t other = 0; other < found.size(); ++other) {
            const double likeness = SharedPart(found[place].Squares, found[other].Squares);
            const bool sameOutline = found[place].Outline == found[other].Outline;
            worth[other] = std::min(worth[other], scores[other] - mostForNew * likeness - (sameOutline ? 1 : 0));
        }
        worth[place] = -std::numeric_limits<double>::infinity();
    }
    std::ranges::stable_sort(best, [&](std::size_t a, std::size_t b) { return scores[a] > scores[b]; });
    return best;
}

struct CircuitSearch::State {
    State(const Catalogue& catalogue, LayingTask task)
        : Catalogue(catalogue), Task(std::move(task)), Shapes(ShapesOf(catalogue, Task.Box)),
          Room(Task.Room, Task.Kept ? LoopRoom::UsersTouch : 0), Pool(catalogue, Task, Room), Wanted(Task.Count) {
        if (Task.Kept) Shapes = ShapesAround(catalogue, std::move(Shapes), Task.Kept->Rows);
    }

    bool Round(const std::stop_token& stop) {
        if (IsComplete) return false;
        if (!Growing) {
            IsComplete =
                !Task.Kept && PieceBox{Shapes}.Total() <= EnumeratedBox && AddAll(Catalogue, Shapes, Pool, stop);
            if (IsComplete) return false;
            Growing.emplace(Growth(), Shapes, Task.Seed, Pool);
        }
        return Growing->Round(Wanted, stop);
    }

    LoopGrowth Growth() const {
        if (!Task.Kept) return {Catalogue, Shapes, Room, Task.Seed};
        const BuildCursor& at = Task.Kept->At;
        const auto kept = KeptStep(Catalogue, Task.Kept->Rows, Catalogue.Count());
        return {Catalogue, Shapes,       Room,
                Task.Seed, kept.value(), {at.CursorX, at.CursorY, NearestHeading(at.CursorHeading)}};
    }

    const pistaro::Catalogue& Catalogue;
    const LayingTask Task;
    ShapeCounts Shapes;
    const LoopRoom Room;
    CircuitPool Pool;
    int Wanted;
    std::optional<GrowingSearch> Growing; ///< made by the first round
    bool IsComplete = false;
};

CircuitSearch::CircuitSearch(const Catalogue& catalogue, LayingTask task)
    : state_(std::make_unique<State>(catalogue, std::move(task))) {}
CircuitSearch::~CircuitSearch() = default;

bool CircuitSearch::Round(const JobWatch& watch) { return state_->Round(watch.Stop); }

void CircuitSearch::Continue() {
    state_->Wanted += state_->Task.Count;
    if (state_->Growing) state_->Growing->Continue();
}

const std::vector<FoundCircuit>& CircuitSearch::Found() const { return state_->Pool.Found(); }

bool CircuitSearch::IsComplete() const { return state_->IsComplete; }

Laying LayCircuits(const Catalogue& catalogue, const LayingTask& task, const JobWatch& watch,
                   const std::function<bool()>& isTimeUp, const std::stop_token& ending) {
    CircuitSearch search(catalogue, task);
    std::stop_source both;
    const std::stop_callback onStop(watch.Stop, [&] { both.request_stop(); });
    const std::stop_callback onEnding(ending, [&] { both.request_stop(); });
    bool goesOn = true;
    bool timeWasUp = false;
    while (goesOn && !timeWasUp) {
        try {
            goesOn = search.Round({.Progress = {}, .Stop = both.get_token()});
            timeWasUp = goesOn && isTimeUp && isTimeUp();
        } catch (const Stopped&) {
            timeWasUp = true;
        }
        watch.Step(std::min(static_cast<int>(search.Found().size()), task.Count), task.Count);
    }
    Laying laying{.Circuits = {}, .AreAll = search.IsComplete(), .TimeWasUp = timeWasUp};
    for (const std::size_t place : BestOf(search.Found(), task.Count, task.Weights))
        laying.Circuits.push_back(search.Found()[place].Circuit);
    return laying;
}

} // namespace pistaro

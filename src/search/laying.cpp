#include "search/laying.h"

#include "search/circuit_pool.h"
#include "search/growing_search.h"
#include "search/loop_enumeration.h"
#include "search/special_pieces.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace pistaro {

namespace {

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

/// At least as many of each shape as the circuit that is varied has: it may have more special pieces than are counted
/// on for a new one, such as extensions of its chicanes.
ShapeCounts ShapesWith(const Catalogue& catalogue, ShapeCounts shapes, const std::vector<int>& varied) {
    ShapeCounts its(shapes.size());
    for (const int row : varied)
        ++its[static_cast<std::size_t>(catalogue[row].ShapeIndex)];
    std::ranges::transform(shapes, its, shapes.begin(), [](int a, int b) { return std::max(a, b); });
    return shapes;
}

/// What is kept from the walls is kept by all pieces: none could join one that stays nearer to them.
LoopRoom RoomFor(const LayingTask& task) {
    return LoopRoom(task.Room, (task.Kept ? LoopRoom::UsersTouch : 0) - task.FromWalls, task.Taken);
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
    return BestOf(found, count, scores);
}

std::vector<std::size_t> BestOf(const std::vector<FoundCircuit>& found, int count, const std::vector<double>& scores) {
    constexpr double mostForNew = 0.2; // of a score, that a circuit unlike all others is preferred by
    std::vector<double> worth = scores;
    std::vector<std::size_t> best;
    while (best.size() < std::min(found.size(), static_cast<std::size_t>(count))) {
        const auto place = static_cast<std::size_t>(std::ranges::max_element(worth) - worth.begin());
        best.push_back(place);
        for (std::size_t other = 0; other < found.size(); ++other) {
            const double likeness = Likeness(found[place].Look, found[other].Look);
            const bool lookAlike = LookAlike(found[place].Look, found[other].Look);
            worth[other] = std::min(worth[other], scores[other] - mostForNew * likeness - (lookAlike ? 1 : 0));
        }
        worth[place] = -std::numeric_limits<double>::infinity();
    }
    std::ranges::stable_sort(best, [&](std::size_t a, std::size_t b) { return scores[a] > scores[b]; });
    return best;
}

struct CircuitSearch::State {
    State(const Catalogue& catalogue, LayingTask task)
        : Catalogue(catalogue), Task(std::move(task)), Shapes(ShapesOf(catalogue, Task.Box)), Room(RoomFor(Task)),
          Pool(catalogue, Task, Room), Wanted(Task.Count) {
        if (Task.Varied) Shapes = ShapesWith(catalogue, std::move(Shapes), Task.Varied->Rows);
        if (Task.Kept) Shapes = ShapesAround(catalogue, std::move(Shapes), Task.Kept->Rows);
    }

    bool Round(const std::stop_token& stop) {
        if (IsComplete) return false;
        if (!Growing) {
            IsComplete = !Task.Kept && PieceBox{Shapes}.Total() <= EnumeratedBox &&
                         AddAll(Catalogue, Shapes, Pool, stop) &&
                         Task.Taken.empty(); // beside other pieces one that finds no place at once may have one
            if (IsComplete) return false;
            Growing = Grower();
            if (Task.Varied) Vary(*Task.Varied);
        }
        return Growing->Round(Wanted, stop);
    }

    std::unique_ptr<GrowingSearch> Grower() {
        if (!Task.Kept) return std::make_unique<GrowingSearch>(Catalogue, Shapes, Room, Task.Seed, Pool);
        const auto kept = KeptStep(Catalogue, Task.Kept->Rows, Catalogue.Count());
        return std::make_unique<GrowingSearch>(Catalogue, Shapes, Room, Task.Seed, Pool, kept.value(),
                                               NearestPose(Task.Kept->At));
    }

    void Vary(const TrackPart& circuit) {
        const std::size_t kept = Task.Kept ? Task.Kept->Rows.size() : 0;
        const auto loop = LoopOf(Catalogue, Growing->Steps(), Shapes, circuit.Rows, NearestPose(circuit.At), kept);
        if (loop) Growing->Vary(*loop);
    }

    const pistaro::Catalogue& Catalogue;
    const LayingTask Task;
    ShapeCounts Shapes;
    const LoopRoom Room;
    CircuitPool Pool;
    int Wanted;
    std::unique_ptr<GrowingSearch> Growing; ///< made by the first round
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

double CircuitSearch::Spent() const { return state_->Growing ? state_->Growing->Spent() : 0; }

bool CircuitSearch::IsComplete() const { return state_->IsComplete; }

Laying LayCircuits(const Catalogue& catalogue, const LayingTask& task, const JobWatch& watch,
                   const std::stop_token& ending) {
    CircuitSearch search(catalogue, task);
    std::stop_source both;
    const std::stop_callback onStop(watch.Stop, [&] { both.request_stop(); });
    const std::stop_callback onEnding(ending, [&] { both.request_stop(); });
    bool goesOn = true;
    bool timeWasUp = false;
    while (goesOn && !timeWasUp) {
        try {
            goesOn = search.Round({.Progress = {}, .Stop = both.get_token()});
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

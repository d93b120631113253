#include "search/loop_growth.h"

#include "search/random_steps.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace pistaro {

namespace {

/// Of all the ways to close a loop again so many are looked at.
constexpr std::size_t MostReplacements = 16;
constexpr std::size_t MostRemoved = 5; ///< elements in a row

/// By how much the gap of a loop that is laid differs from that of its steps, cm.
constexpr double LayingSlack = 0.01;

constexpr std::size_t MostRuns = 200'000; ///< of a table

/// Keeps `most` of all that it is shown, each as likely as any other.
template <typename Item>
class Sample {
public:
    Sample(std::size_t most, Random& random) : most_(most), random_(random) {}

    void Show(const Item& item) {
        ++shown_;
        if (Items.size() < most_) {
            Items.push_back(item);
        } else if (const std::size_t place = random_.Below(shown_); place < most_) {
            Items[place] = item;
        }
    }

    std::vector<Item> Items;

private:
    std::size_t most_, shown_ = 0;
    Random& random_;
};

} // namespace

LoopGrowth::LoopGrowth(const Catalogue& catalogue, const ShapeCounts& shapes, const LoopRoom& room, std::uint64_t seed)
    : catalogue_(catalogue), shapes_(shapes), room_(room), random_(seed), steps_(StepsOf(catalogue, shapes)),
      scalextric_(steps_, TrackSystem::Scalextric, shapes, MostRuns, RunTable::StraightsInOrder::One),
      ninco_(steps_, TrackSystem::Ninco, shapes, MostRuns, RunTable::StraightsInOrder::One) {}

LoopGrowth::LoopGrowth(const Catalogue& catalogue, const ShapeCounts& shapes, const LoopRoom& room, std::uint64_t seed,
                       const LayingStep& kept, const SearchPose& at)
    : LoopGrowth(catalogue, shapes, room, seed) {
    steps_.push_back(kept); // no table has a run with it
    keptAt_ = at;
}

const RunTable& LoopGrowth::TableOf(TrackSystem system) const {
    return system == TrackSystem::Ninco ? ninco_ : scalextric_;
}

std::vector<SearchPose> LoopGrowth::PosesOf(const Run& run) const {
    std::vector<SearchPose> poses{SearchPose()};
    for (const std::uint8_t step : run)
        poses.push_back(steps_[step].After(poses.back()));
    return poses;
}

/// Whether the pieces were there to be taken.
bool LoopGrowth::Take(ShapeCounts& left, const Run& run) const {
    for (const std::uint8_t step : run) {
        if (--left[static_cast<std::size_t>(steps_[step].Shape)] < 0) return false;
    }
    return true;
}

/// Whether the run's pieces are among those left, which are as they were afterwards.
bool LoopGrowth::Allows(ShapeCounts& left, const RunTable& table, std::size_t run) const {
    bool allows = true;
    table.ForEachStepOf(run, [&](std::uint8_t step) {
        if (--left[static_cast<std::size_t>(steps_[step].Shape)] < 0) allows = false;
    });
    table.ForEachStepOf(run, [&](std::uint8_t step) { ++left[static_cast<std::size_t>(steps_[step].Shape)]; });
    return allows;
}

/// A few pieces to begin with: of one system, or of both where the box allows it.
Run LoopGrowth::RandomWalk(ShapeCounts& left, bool ofBoth) {
    Run walk;
    constexpr std::size_t mostBefore = 4;
    if (ofBoth && CrossToNinco(steps_, left, random_, walk)) return walk;
    std::size_t scalextric = 0, ninco = 0;
    for (const LayingStep& step : steps_)
        (step.Entry == TrackSystem::Ninco ? ninco : scalextric) +=
            static_cast<std::size_t>(left[static_cast<std::size_t>(step.Shape)]);
    const bool ofNinco = random_.Below(scalextric + ninco) < ninco;
    const TrackSystem system = ofNinco ? TrackSystem::Ninco : TrackSystem::Scalextric;
    AddRandomSteps(steps_, system, 1 + random_.Below(mostBefore), left, random_, walk);
    return walk;
}

/// The part that is kept, and a few pieces behind it.
Run LoopGrowth::KeptWalk(ShapeCounts& left) {
    Run walk{static_cast<std::uint8_t>(steps_.size() - 1)};
    const LayingStep& kept = steps_.back();
    --left[static_cast<std::size_t>(kept.Shape)];
    constexpr std::size_t most = 4;
    AddRandomSteps(steps_, kept.Exit, random_.Below(most + 1), left, random_, walk);
    return walk;
}

std::optional<Loop> LoopGrowth::Begin(bool ofBoth) {
    if (steps_.empty()) return std::nullopt;
    ShapeCounts left = shapes_;
    const Run walk = keptAt_ ? KeptWalk(left) : RandomWalk(left, ofBoth);
    if (walk.empty()) return std::nullopt;
    return Closed(walk);
}

/// The walk closed by two runs of the table of the system that it ends in.
std::optional<Loop> LoopGrowth::Closed(const Run& walk) {
    const RunTable& table = TableOf(steps_[walk.back()].Exit);
    const SearchPose end = PosesOf(walk).back();
    const SearchPose goal = Relative(end, SearchPose());
    constexpr std::size_t mostFirst = 3000;
    constexpr std::int64_t effortOfTry = 3;
    Sample<Run> loops(MostReplacements, random_);
    for (std::size_t tried = 0; tried < mostFirst; ++tried) {
        effort_ += effortOfTry;
        const std::size_t first = random_.Below(table.CountUpTo(table.Depth()));
        table.ForEachTo(Relative(table.PoseOf(first), goal), LoopTolerance - LayingSlack, [&](std::size_t second) {
            Run loop = walk;
            for (const std::size_t run : {first, second})
                std::ranges::copy(table.StepsOfRun(run), std::back_inserter(loop));
            ShapeCounts stock = shapes_;
            if (IsWholeTurn(steps_, loop) && Take(stock, loop)) loops.Show(loop);
        });
        if (loops.Items.size() == MostReplacements) break;
    }
    constexpr std::size_t quarters = 4;
    for (const Run& steps : loops.Items) {
        Loop loop{steps, {0, 0, static_cast<int>(random_.Below(quarters)) * HeadingCount / 4}};
        if (Settle(loop, {})) return loop;
    }
    return std::nullopt;
}

/// Begins the loop at another of its elements.
void LoopGrowth::TurnRound(Loop& loop) {
    const std::size_t first = random_.Below(loop.Steps.size());
    for (std::size_t i = 0; i < first; ++i)
        loop.Start = steps_[loop.Steps[i]].After(loop.Start);
    std::rotate(loop.Steps.begin(), loop.Steps.begin() + static_cast<std::ptrdiff_t>(first), loop.Steps.end());
}

/// Takes out some of the first elements and, `anew`, lays others there at random.
LoopGrowth::Opened LoopGrowth::Open(const Loop& loop, bool anew) {
    const TrackSystem system = steps_[loop.Steps.back()].Exit;
    const std::size_t most = anew ? 2 : MostRemoved;
    const std::size_t wished = random_.Below(std::min(most, loop.Steps.size() - 1) + 1);
    std::size_t removed = 0;
    while (removed < wished && !steps_[loop.Steps[removed]].Stays())
        ++removed;
    Opened opened{.Steps = {}, .NewCount = 0, .Left = shapes_, .Poses = {}, .ToEnd = {}};
    const Run rest(loop.Steps.begin() + static_cast<std::ptrdiff_t>(removed), loop.Steps.end());
    Take(opened.Left, rest);
    constexpr std::size_t mostNew = 3;
    if (anew) AddRandomSteps(steps_, system, random_.Below(mostNew + 1), opened.Left, random_, opened.Steps);
    opened.NewCount = opened.Steps.size();
    std::ranges::copy(rest, std::back_inserter(opened.Steps));
    opened.Poses = PosesOf(opened.Steps);
    for (const SearchPose& pose : opened.Poses)
        opened.ToEnd.push_back(Relative(opened.Poses.back(), pose));
    return opened;
}

/// Ways to close an opened loop, within the tolerance: at its front or, `elsewhere`, in place of some of the elements
/// that stayed.
std::vector<LoopGrowth::Replacement> LoopGrowth::Replacements(Opened& opened, double tolerance, bool elsewhere,
                                                              int fewest) {
    Sample<Replacement> found(MostReplacements, random_);
    const std::size_t count = opened.Steps.size();
    const auto tryAt = [&](std::size_t first, std::size_t removed, ShapeCounts& left) {
        const TrackSystem system = steps_[opened.Steps[(first + count - 1) % count]].Exit;
        const RunTable& table = TableOf(system);
        if (static_cast<int>(count - removed) + table.Depth() < fewest) return;
        ++effort_;
        const SearchPose goal = Relative(opened.Poses[first], opened.ToEnd[first + removed]);
        table.ForEachTo(goal, tolerance - LayingSlack, [&](std::size_t run) {
            const int pieces = static_cast<int>(count - removed) + table.LengthOf(run);
            if (pieces < fewest || pieces > MaxElements) return;
            ++effort_;
            if (Allows(left, table, run)) found.Show({first, removed, &table, run, pieces});
        });
    };
    if (!elsewhere) {
        tryAt(0, 0, opened.Left);
        return found.Items;
    }
    const std::size_t places = count - opened.NewCount;
    const std::size_t begin = random_.Below(std::max<std::size_t>(places, 1));
    for (std::size_t i = 0; i < places && found.Items.size() < MostReplacements; ++i) {
        const std::size_t first = opened.NewCount + (begin + i) % places;
        ShapeCounts left = opened.Left;
        for (std::size_t removed = 0; removed <= MostRemoved && first + removed <= count; ++removed) {
            if (removed > 0) {
                const LayingStep& taken = steps_[opened.Steps[first + removed - 1]];
                if (taken.Stays()) break;
                ++left[static_cast<std::size_t>(taken.Shape)];
            }
            tryAt(first, removed, left);
        }
    }
    return found.Items;
}

bool LoopGrowth::Change(Loop& loop, int fewest) {
    TurnRound(loop);
    effort_ += static_cast<std::int64_t>(loop.Steps.size());
    const bool elsewhere = random_.Happens(2, 3);
    Opened opened = Open(loop, elsewhere);
    if (opened.Steps.empty()) return false;
    std::vector<Replacement> replacements = Replacements(opened, loop.Tolerance, elsewhere, fewest);
    std::ranges::stable_sort(replacements, std::ranges::greater(), &Replacement::Count);
    for (const Replacement& replacement : replacements) {
        const Run run = replacement.Table->StepsOfRun(replacement.NewRun);
        Loop changed{opened.Steps, loop.Start, loop.Tolerance};
        const auto at = changed.Steps.begin() + static_cast<std::ptrdiff_t>(replacement.First);
        changed.Steps.insert(changed.Steps.erase(at, at + static_cast<std::ptrdiff_t>(replacement.Removed)),
                             run.begin(), run.end());
        if (changed.Steps == loop.Steps || !IsWholeTurn(steps_, changed.Steps)) continue;
        if (!keptAt_ && IsTooWide(steps_, changed, room_)) continue;
        // What is new has a part of its own; so has what lies between and what follows.
        std::vector<int> parts(changed.Steps.size());
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const bool isNew = i < opened.NewCount || (i >= replacement.First && i < replacement.First + run.size());
            parts[i] = isNew ? 2 + static_cast<int>(i) : i < replacement.First ? 0 : 1;
        }
        if (!Settle(changed, parts)) continue;
        loop = std::move(changed);
        return true;
    }
    return false;
}

/// The steps' parts, for each of their pieces.
std::vector<int> LoopGrowth::PartsOfRows(const Run& run, const std::vector<int>& parts) const {
    std::vector<int> ofRows;
    for (std::size_t i = 0; i < parts.size(); ++i)
        ofRows.insert(ofRows.end(), std::max<std::size_t>(1, steps_[run[i]].Kept.size()), parts[i]);
    return ofRows;
}

/// Starts the loop so that the part that is kept lies where it lay.
void LoopGrowth::MoveKeptToItsPlace(Loop& loop) const {
    SearchPose kept;
    for (std::size_t i = 0; steps_[loop.Steps[i]].Kept.empty(); ++i)
        kept = steps_[loop.Steps[i]].After(kept);
    loop.Start = Beyond(*keptAt_, Relative(kept, SearchPose()));
}

/// Whether the loop closes as it is really laid, without overlaps, and finds a place in the room, where it then starts.
bool LoopGrowth::Settle(Loop& loop, const std::vector<int>& parts) {
    effort_ += EffortOfSettling(loop.Steps.size());
    if (!keptAt_) return pistaro::Settle(catalogue_, steps_, room_, parts, random_, loop);
    if (HasAdaptersInARow(steps_, loop.Steps)) return false;
    MoveKeptToItsPlace(loop);
    const LaidLoop laid = LayLoop(catalogue_, RowsOf(steps_, loop.Steps), loop.Cursor());
    return IsClosed(laid, loop.Tolerance) && room_.Holds(laid) && !OverlapsItself(laid, PartsOfRows(loop.Steps, parts));
}

} // namespace pistaro

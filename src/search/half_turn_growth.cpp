#include "search/half_turn_growth.h"

#include "search/random_steps.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace pistaro {

namespace {

ShapeCounts HalfOf(ShapeCounts shapes) {
    for (int& count : shapes)
        count /= 2;
    return shapes;
}

} // namespace

HalfTurnGrowth::HalfTurnGrowth(const Catalogue& catalogue, const ShapeCounts& shapes, const LoopRoom& room,
                               std::uint64_t seed)
    : catalogue_(catalogue), room_(room), ofHalf_(HalfOf(shapes)), random_(seed), steps_(StepsOf(catalogue, shapes)) {}

int HalfTurnGrowth::MostPieces() const {
    int scalextric = 0, ninco = 0, adapters = 0;
    ShapeCounts uncounted = ofHalf_;
    for (const LayingStep& step : steps_) {
        int& of = step.JoinsSystems() ? adapters : step.Entry == TrackSystem::Ninco ? ninco : scalextric;
        of += std::exchange(uncounted[static_cast<std::size_t>(step.Shape)], 0);
    }
    return 2 * (adapters < 2 ? std::max(scalextric, ninco) : scalextric + ninco + adapters);
}

std::optional<Loop> HalfTurnGrowth::Begin(bool ofBoth) {
    constexpr std::size_t few = 5;
    ShapeCounts left = ofHalf_;
    Run half;
    TrackSystem system = TrackSystem::Scalextric;
    if (!ofBoth && random_.Happens(1, 2)) system = TrackSystem::Ninco;
    AddRandomSteps(steps_, system, 1 + random_.Below(few), left, random_, half);
    if (ofBoth && !CrossToNinco(steps_, left, random_, half)) return std::nullopt;
    AddRandomSteps(steps_, system, random_.Below(few), left, random_, half);
    ++effort_;
    if (std::abs(TurnOf(steps_, half)) != HeadingCount / 2) return std::nullopt;
    constexpr std::size_t quarters = 4;
    Loop loop{{}, {0, 0, static_cast<int>(random_.Below(quarters)) * HeadingCount / 4}};
    if (!Settle(half, loop)) return std::nullopt;
    return loop;
}

bool HalfTurnGrowth::Change(Loop& loop, int fewest) {
    const Run half(loop.Steps.begin(), loop.Steps.begin() + static_cast<std::ptrdiff_t>(loop.Steps.size() / 2));
    effort_ += static_cast<std::int64_t>(half.size());
    const auto changed = random_.Happens(1, 2) ? Rearranged(half) : Refilled(half, fewest);
    if (!changed || *changed == half || 2 * changed->size() > MaxElements) return false;
    return Settle(*changed, loop);
}

/// The same pieces in another order.
Run HalfTurnGrowth::Rearranged(Run half) {
    enum { Exchange, Shift, Reverse, Rotate, WayCount };
    std::size_t first = random_.Below(half.size());
    std::size_t last = random_.Below(half.size());
    if (first > last) std::swap(first, last);
    const auto from = half.begin() + static_cast<std::ptrdiff_t>(first);
    const auto to = half.begin() + static_cast<std::ptrdiff_t>(last);
    switch (random_.Below(WayCount)) {
    case Exchange:
        std::iter_swap(from, to);
        break;
    case Shift:
        std::rotate(from, from + 1, to + 1);
        break;
    case Reverse:
        std::reverse(from, to + 1);
        break;
    default:
        std::rotate(from, from + static_cast<std::ptrdiff_t>(random_.Below(last - first + 1)), to + 1);
    }
    return half;
}

/// With some pieces taken out and others put in that turn as far. Nothing where this try found none.
std::optional<Run> HalfTurnGrowth::Refilled(Run half, int fewest) {
    constexpr std::size_t mostRemoved = 2, mostMore = 2;
    const int turn = TurnOf(steps_, half);
    ShapeCounts left = ofHalf_;
    for (const std::uint8_t step : half)
        --left[static_cast<std::size_t>(steps_[step].Shape)];
    const std::size_t removed = random_.Below(std::min(mostRemoved, half.size() - 1) + 1);
    for (std::size_t i = 0; i < removed; ++i) {
        const auto taken = half.begin() + static_cast<std::ptrdiff_t>(random_.Below(half.size()));
        if (steps_[*taken].Stays()) return std::nullopt;
        ++left[static_cast<std::size_t>(steps_[*taken].Shape)];
        half.erase(taken);
    }
    const std::size_t least = static_cast<std::size_t>(fewest + 1) / 2;
    const std::size_t fewestAdded = std::max(least, half.size()) - half.size();
    const std::size_t mostAdded = removed + mostMore;
    if (fewestAdded > mostAdded) return std::nullopt;
    return Filled(half, fewestAdded + random_.Below(mostAdded - fewestAdded + 1), turn, left);
}

/// The run with so many of the pieces that are left put in, in one place or each in its own, that turns so far then.
std::optional<Run> HalfTurnGrowth::Filled(const Run& run, std::size_t added, int turn, const ShapeCounts& left) {
    constexpr int tries = 20;
    const bool together = random_.Happens(1, 3);
    const std::size_t place = random_.Below(run.size());
    for (int tried = 0; tried < tries; ++tried) {
        ++effort_;
        Run filled = run;
        ShapeCounts leftThen = left;
        for (std::size_t i = 0; i < added; ++i) {
            const std::size_t after = together ? place + i : random_.Below(filled.size());
            const auto step = RandomStep(steps_, leftThen, steps_[filled[after]].Exit, random_);
            if (!step) return std::nullopt;
            --leftThen[static_cast<std::size_t>(steps_[*step].Shape)];
            filled.insert(filled.begin() + static_cast<std::ptrdiff_t>(after + 1), *step);
        }
        if (TurnOf(steps_, filled) == turn) return filled;
        if (added == 0) return std::nullopt;
    }
    return std::nullopt;
}

/// Whether each piece is of the system that the one before it ends in, the last one being before the first.
bool HalfTurnGrowth::JoinsOneSystem(const Run& half) const {
    TrackSystem system = steps_[half.back()].Exit;
    return std::ranges::all_of(
        half, [&](std::uint8_t step) { return steps_[step].Entry == std::exchange(system, steps_[step].Exit); });
}

/// Makes the loop that of the half laid twice, where that is one.
bool HalfTurnGrowth::Settle(const Run& half, Loop& loop) {
    if (!JoinsOneSystem(half)) return false;
    Loop changed{half, loop.Start};
    changed.Steps.insert(changed.Steps.end(), half.begin(), half.end());
    if (IsTooWide(steps_, changed, room_)) return false;
    effort_ += EffortOfSettling(changed.Steps.size());
    if (!pistaro::Settle(catalogue_, steps_, room_, {}, random_, changed)) return false;
    loop = std::move(changed);
    return true;
}

} // namespace pistaro

#include "search/random_steps.h"

#include <algorithm>

namespace pistaro {

std::optional<std::uint8_t> RandomStep(const std::vector<LayingStep>& steps, const ShapeCounts& left,
                                       TrackSystem system, Random& random) {
    const auto weight = [&](const LayingStep& step) {
        const bool usable = step.Entry == system && step.Exit == system;
        return usable ? static_cast<std::size_t>(left[static_cast<std::size_t>(step.Shape)]) : 0;
    };
    std::size_t all = 0;
    for (const LayingStep& step : steps)
        all += weight(step);
    if (all == 0) return std::nullopt;
    std::size_t place = random.Below(all);
    for (std::size_t step = 0;; ++step) {
        if (place < weight(steps[step])) return static_cast<std::uint8_t>(step);
        place -= weight(steps[step]);
    }
}

void AddRandomSteps(const std::vector<LayingStep>& steps, TrackSystem system, std::size_t count, ShapeCounts& left,
                    Random& random, Run& run) {
    for (; count > 0; --count) {
        const auto step = RandomStep(steps, left, system, random);
        if (!step) return;
        run.push_back(*step);
        --left[static_cast<std::size_t>(steps[*step].Shape)];
    }
}

bool CrossToNinco(const std::vector<LayingStep>& steps, ShapeCounts& left, Random& random, Run& run) {
    const auto adapter = [&](TrackSystem entry) {
        return std::ranges::find_if(steps,
                                    [&](const LayingStep& step) { return step.JoinsSystems() && step.Entry == entry; });
    };
    const auto into = adapter(TrackSystem::Scalextric);
    if (into == steps.end()) return false;
    const auto isThere = [&](TrackSystem system) {
        return std::ranges::any_of(steps,
                                   [&](const LayingStep& step) { return step.Entry == system && step.Exit == system; });
    };
    if (!isThere(TrackSystem::Ninco) || !isThere(TrackSystem::Scalextric)) return false;
    int& adapters = left[static_cast<std::size_t>(into->Shape)];
    if (adapters < 2) return false;
    adapters -= 2;
    run.push_back(static_cast<std::uint8_t>(into - steps.begin()));
    constexpr std::size_t fewest = 2, most = 12;
    AddRandomSteps(steps, TrackSystem::Ninco, fewest + random.Below(most), left, random, run);
    run.push_back(static_cast<std::uint8_t>(adapter(TrackSystem::Ninco) - steps.begin()));
    return true;
}

} // namespace pistaro

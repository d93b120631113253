#include "search/circuit_order.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace pistaro {

namespace {

/// Those that weigh nothing until somebody asks for them.
constexpr std::array Asked{&ScoreParts::Length, &ScoreParts::Speed, &ScoreParts::Winding, &ScoreParts::Likeness};

} // namespace

std::vector<double> ScoresBesideEachOther(const std::vector<FoundCircuit>& found, const ScoreWeights& weights) {
    constexpr double leastSpread = 0.05; // less than that nobody sees
    std::vector<ScoreParts> scaled;
    scaled.reserve(found.size());
    for (const FoundCircuit& circuit : found)
        scaled.push_back(circuit.Circuit.Parts);
    for (double ScoreParts::*const part : Asked) {
        const auto valueOf = [&](const ScoreParts& parts) { return parts.*part; };
        if (scaled.empty()) break;
        const auto [least, most] = std::ranges::minmax(scaled, {}, valueOf);
        const double from = least.*part;
        const double spread = std::max(leastSpread, most.*part - from);
        for (ScoreParts& parts : scaled)
            parts.*part = (parts.*part - from) / spread;
    }
    std::vector<double> scores;
    scores.reserve(found.size());
    for (const ScoreParts& parts : scaled)
        scores.push_back(Score(parts, weights));
    return scores;
}

std::vector<RankedCircuit> OneOfEachShape(const std::vector<FoundCircuit>& found, const std::vector<double>& scores,
                                          int count) {
    std::vector<RankedCircuit> shapes;
    const auto shapeOf = [&](std::size_t place) {
        return std::ranges::find_if(
            shapes, [&](const RankedCircuit& shape) { return LookAlike(found[shape.Place].Look, found[place].Look); });
    };
    for (const std::size_t place : BestOf(found, count, scores)) {
        if (shapeOf(place) == shapes.end()) shapes.push_back({place, {}, -1}); // it is counted itself, too
    }
    for (std::size_t place = 0; place < found.size(); ++place) {
        const auto shape = shapeOf(place);
        if (shape != shapes.end()) ++shape->Others;
    }
    return shapes;
}

std::vector<RankedCircuit> Ranked(const std::vector<FoundCircuit>& found, const std::vector<std::size_t>& places) {
    std::vector<RankedCircuit> different, related;
    for (const std::size_t place : places) {
        const auto isRelated = [&](const RankedCircuit& before) {
            return LookRelated(found[before.Place].Look, found[place].Look);
        };
        const auto first = std::ranges::find_if(different, isRelated);
        if (first == different.end()) {
            different.push_back({place});
        } else {
            related.push_back({place, static_cast<std::size_t>(first - different.begin())});
        }
    }
    std::ranges::stable_sort(related, {}, &RankedCircuit::Like);
    different.insert(different.end(), related.begin(), related.end());
    return different;
}

std::vector<RankedCircuit> InOrder(const std::vector<std::size_t>& places) {
    std::vector<RankedCircuit> ranked;
    ranked.reserve(places.size());
    for (const std::size_t place : places)
        ranked.push_back({place});
    return ranked;
}

std::vector<RankedCircuit> InWishedOrder(const std::vector<FoundCircuit>& found, const OrderWish& wish,
                                         const std::function<bool(std::size_t)>& isClear) {
    const std::vector<double> scores = ScoresBesideEachOther(found, wish.Weights);
    std::vector<RankedCircuit> shown =
        wish.OneOfEachShape ? OneOfEachShape(found, scores, wish.Count) : InOrder(BestOf(found, wish.Count, scores));
    std::stable_partition(shown.begin(), shown.end(),
                          [&](const RankedCircuit& circuit) { return isClear(circuit.Place); });
    if (wish.Weights.Likeness > 0) return shown;
    std::vector<std::size_t> places;
    std::ranges::transform(shown, std::back_inserter(places), &RankedCircuit::Place);
    std::vector<RankedCircuit> ranked = Ranked(found, places);
    for (RankedCircuit& circuit : ranked)
        circuit.Others = std::ranges::find(shown, circuit.Place, &RankedCircuit::Place)->Others;
    return ranked;
}

} // namespace pistaro

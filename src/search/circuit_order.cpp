#include "search/circuit_order.h"

#include <algorithm>
#include <array>
#include <numeric>

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
                                          int count,
                                          bool (*isSameShape)(const CircuitLook& one, const CircuitLook& other)) {
    std::vector<std::size_t> places(found.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::ranges::stable_sort(places, [&](std::size_t a, std::size_t b) { return scores[a] > scores[b]; });
    std::vector<RankedCircuit> shapes;
    for (const std::size_t place : places) {
        const auto same = std::ranges::find_if(shapes, [&](const RankedCircuit& shape) {
            return isSameShape(found[shape.Place].Look, found[place].Look);
        });
        if (same != shapes.end()) {
            ++same->Others;
        } else if (shapes.size() < static_cast<std::size_t>(count)) {
            shapes.push_back({place});
        }
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
    const bool isLikeOneDesign = wish.Weights.Likeness > 0; // and so like each other, too
    if (wish.OneOfEachShape) {
        auto shapes = OneOfEachShape(found, scores, wish.Count, isLikeOneDesign ? LookAlike : LookRelated);
        std::stable_partition(shapes.begin(), shapes.end(),
                              [&](const RankedCircuit& shape) { return isClear(shape.Place); });
        return shapes;
    }
    std::vector<std::size_t> best = BestOf(found, wish.Count, scores);
    std::stable_partition(best.begin(), best.end(), isClear);
    return isLikeOneDesign ? InOrder(best) : Ranked(found, best);
}

} // namespace pistaro

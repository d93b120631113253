#include "search/circuit_order.h"

#include <algorithm>

namespace pistaro {

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

} // namespace pistaro

// The order in which found circuits are shown: what looks different first, and behind it what is related to those.
#pragma once

#include "search/laying.h"

#include <optional>
#include <vector>

namespace pistaro {

struct RankedCircuit {
    std::size_t Place = 0;                ///< among those found
    std::optional<std::size_t> Like = {}; ///< the rank of the better one that it is related to

    bool operator==(const RankedCircuit&) const = default;
};

/// These places in the same order, but those that are related to one before them behind all others: first what is
/// related to the first, then what is related to the second, and so on.
std::vector<RankedCircuit> Ranked(const std::vector<FoundCircuit>& found, const std::vector<std::size_t>& places);

/// These places in the same order, whatever they are related to.
std::vector<RankedCircuit> InOrder(const std::vector<std::size_t>& places);

} // namespace pistaro

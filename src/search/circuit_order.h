// The order in which found circuits are shown: what looks different first, and behind it what is related to those.
#pragma once

#include "search/laying.h"

#include <functional>
#include <optional>
#include <vector>

namespace pistaro {

struct RankedCircuit {
    std::size_t Place = 0;                ///< among those found
    std::optional<std::size_t> Like = {}; ///< the rank of the better one that it is related to
    int Others = 0;                       ///< that look like it, and have no place of their own

    bool operator==(const RankedCircuit&) const = default;
};

/// How good each of them is by these weights beside the others: in the parts of the score that count only for who asks
/// for them the worst counts as 0 and the best as 1, but where all are about the same. So what is asked for tells them
/// apart, however close the plain figures lie together.
std::vector<double> ScoresBesideEachOther(const std::vector<FoundCircuit>& found, const ScoreWeights& weights);

/// The best by these scores, so many at most, but of those that look alike one, with how many others there are.
std::vector<RankedCircuit> OneOfEachShape(const std::vector<FoundCircuit>& found, const std::vector<double>& scores,
                                          int count);

/// What of those that were found is shown.
struct OrderWish {
    ScoreWeights Weights;
    int Count = 10;
    bool OneOfEachShape = false;
};

/// The best ones, those that are not clear behind all others, and so is what is related to a better one; but where
/// likeness to one design counts, as they all are related then.
std::vector<RankedCircuit> InWishedOrder(const std::vector<FoundCircuit>& found, const OrderWish& wish,
                                         const std::function<bool(std::size_t)>& isClear);

/// These places in the same order, but those that are related to one before them behind all others: first what is
/// related to the first, then what is related to the second, and so on.
std::vector<RankedCircuit> Ranked(const std::vector<FoundCircuit>& found, const std::vector<std::size_t>& places);

/// These places in the same order, whatever they are related to.
std::vector<RankedCircuit> InOrder(const std::vector<std::size_t>& places);

} // namespace pistaro

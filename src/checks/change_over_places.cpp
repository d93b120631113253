#include "checks/change_over_places.h"

#include <algorithm>
#include <cstdlib>

namespace pistaro {

ChangeOverPlaces::ChangeOverPlaces(const Catalogue& catalogue, const Track& track)
    : size_(track.ElementLastIndex() + 1) {
    for (int element = 0; element < size_; ++element) {
        const CatalogueEntry* const piece = catalogue.Find(track.ElementCodes[static_cast<std::size_t>(element)]);
        if (piece == nullptr) continue;
        if (piece->LaneChange) standing_.push_back(element);
        if (piece->Kind.Marks == PieceMarks::ReverseStart) starts_.push_back(element);
    }
    if (starts_.empty()) starts_.push_back(0);
}

int ChangeOverPlaces::Awkwardness(std::span<const int> put, std::span<const int> replaced) const {
    int awkward = 0;
    for (const int place : put) {
        const auto isNear = [&](int other) { return other != place && AreNear(place, other); };
        const auto stays = [&](int other) { return std::ranges::find(replaced, other) == replaced.end(); };
        const bool isBesideOne = std::ranges::any_of(put, isNear) || std::ranges::any_of(standing_, [&](int other) {
                                     return isNear(other) && stays(other);
                                 });
        const bool isAtStart = std::ranges::any_of(starts_, [&](int start) { return AreNear(place, start); });
        awkward += (isBesideOne ? 2 : 0) + (isAtStart ? 1 : 0);
    }
    return awkward;
}

/// Whichever way round.
bool ChangeOverPlaces::AreNear(int one, int other) const {
    constexpr int near = 2; // pieces
    const int apart = std::abs(one - other);
    return std::min(apart, size_ - apart) <= near;
}

} // namespace pistaro

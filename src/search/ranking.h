// In which order suggestions come.
#pragma once

#include "search/closing.h"
#include "search/open_ends.h"

#include <algorithm>
#include <tuple>
#include <vector>

namespace pistaro {

/// Whether two ends that lie together belong together.
inline bool FitsTogether(const OpenEnds& ends) {
    return ends.EndSystem == ends.GoalSystem && !(ends.AfterAdapter && ends.BeforeAdapter);
}

/// What is less of the better suggestion: free of faults, then fewest pieces, then cheapest; of those the ones that are
/// owned, then by the pieces in the order of the catalogue.
inline auto RankOf(const Catalogue& catalogue, const Suggestion& suggestion) {
    std::vector<int> rows;
    for (const std::string& code : suggestion.Edit.Insert)
        rows.push_back(catalogue.FindRow(code));
    std::vector<int> sorted = rows;
    std::ranges::sort(sorted);
    return std::tuple(!suggestion.IsFree(), suggestion.Count(), suggestion.Price, !suggestion.IsOwned, sorted, rows);
}

} // namespace pistaro

#include "search/unlike_pieces.h"

#include <algorithm>
#include <utility>

namespace pistaro {

std::vector<int> PiecesUnlike(const std::vector<int>& circuit, const std::vector<int>& other) {
    constexpr std::size_t leastRun = 6;
    const std::size_t count = circuit.size();
    std::vector<bool> isLike(count);
    // Both twice round, so that no run is broken where a lap begins.
    std::vector<std::size_t> runs(2 * other.size() + 1), before(runs.size()); // that end at a place of the other one
    for (std::size_t i = 0; i < 2 * count; ++i) {
        std::swap(runs, before);
        for (std::size_t j = 0; j < 2 * other.size(); ++j) {
            const bool isSame = circuit[i % count] == other[j % other.size()];
            runs[j + 1] = isSame ? std::min(before[j] + 1, count) : 0;
            if (runs[j + 1] < leastRun) continue;
            for (std::size_t back = 0; back < runs[j + 1]; ++back)
                isLike[(i + count - back) % count] = true;
        }
    }
    std::vector<int> unlike;
    for (std::size_t i = 0; i < count; ++i) {
        if (!isLike[i]) unlike.push_back(static_cast<int>(i));
    }
    return unlike;
}

} // namespace pistaro

#include "search/unlike_pieces.h"

#include <algorithm>
#include <utility>

namespace pistaro {

namespace {

/// Of each piece, the same for a special one and a plain one in whose place it fits.
std::vector<std::pair<int, char>> ShapesOfRows(const Catalogue& catalogue, const std::vector<int>& rows) {
    std::vector<std::pair<int, char>> shapes;
    shapes.reserve(rows.size());
    for (const int row : rows) {
        if (row < 0)
            shapes.emplace_back(row, '\0');
        else
            shapes.emplace_back(catalogue[row].ShapeIndex, Hand(catalogue[row].Code));
    }
    return shapes;
}

} // namespace

std::vector<int> PiecesUnlike(const Catalogue& catalogue, const std::vector<int>& circuit,
                              const std::vector<int>& other) {
    constexpr std::size_t leastRun = 6;
    const std::size_t count = circuit.size();
    const std::size_t others = other.size();
    const auto shapes = ShapesOfRows(catalogue, circuit);
    const auto otherShapes = ShapesOfRows(catalogue, other);
    std::vector<bool> isLike(count);
    // Both twice round, so that no run is broken where a lap begins.
    std::vector<std::size_t> runs(2 * others + 1), before(runs.size()); // that end at a place of the other one
    for (std::size_t i = 0; i < 2 * count; ++i) {
        std::swap(runs, before);
        for (std::size_t j = 0; j < 2 * others; ++j) {
            const bool isSame = shapes[i % count] == otherShapes[j % others];
            const std::size_t run = isSame ? std::min({before[j] + 1, count, others}) : 0;
            runs[j + 1] = run;
            if (run < leastRun) continue;
            for (std::size_t back = 0; back < run; ++back) {
                const std::size_t at = (i + count - back) % count;
                if (circuit[at] == other[(j + 2 * others - back) % others]) isLike[at] = true;
            }
        }
    }
    std::vector<int> unlike;
    for (std::size_t i = 0; i < count; ++i) {
        if (!isLike[i]) unlike.push_back(static_cast<int>(i));
    }
    return unlike;
}

} // namespace pistaro

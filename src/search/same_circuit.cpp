#include "search/same_circuit.h"

#include <algorithm>
#include <string>

namespace pistaro {

namespace {

/// The basic piece of the same shape and hand.
int BasicRow(const Catalogue& catalogue, int row) {
    const std::string& code = catalogue[row].Code;
    const char hand = Hand(code);
    std::string basic(ProductCode(catalogue[catalogue[row].ShapeIndex].Code));
    if (hand != 0) basic += hand;
    return catalogue.FindRow(basic);
}

int OtherHand(const Catalogue& catalogue, int row) {
    const std::string& code = catalogue[row].Code;
    const char hand = Hand(code);
    if (hand == 0) return row;
    return catalogue.FindRow(std::string(ProductCode(code)) + (hand == 'L' ? 'R' : 'L'));
}

/// The least of all that begin elsewhere.
std::vector<int> LeastTurned(const std::vector<int>& rows) {
    std::vector<int> least = rows;
    std::vector<int> turned = rows;
    for (std::size_t i = 1; i < rows.size(); ++i) {
        std::rotate(turned.begin(), turned.begin() + 1, turned.end());
        least = std::min(least, turned);
    }
    return least;
}

} // namespace

std::vector<int> CircuitKey(const Catalogue& catalogue, const std::vector<int>& rows) {
    std::vector<int> forward, mirrored;
    for (const int row : rows) {
        forward.push_back(BasicRow(catalogue, row));
        mirrored.push_back(OtherHand(catalogue, forward.back()));
    }
    // Backwards each curve has the other hand, and mirrored then its own again.
    const std::vector<int> backwards(mirrored.rbegin(), mirrored.rend());
    const std::vector<int> both(forward.rbegin(), forward.rend());
    return std::min({LeastTurned(forward), LeastTurned(mirrored), LeastTurned(backwards), LeastTurned(both)});
}

} // namespace pistaro

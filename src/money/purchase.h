// The cheapest way to buy what is missing: from boxed sets and single pieces.
#pragma once

#include "model/boxed_set.h"
#include "model/job.h"
#include "model/stock.h"

#include <optional>
#include <vector>

namespace pistaro {

/// How many pieces of each product the circuit uses, by head row; both hands of a curve are one product.
std::vector<int> CountUsedByProduct(const Catalogue& catalogue, const Circuit& circuit);

/// How many pieces of each product the circuit uses beyond the owned ones, by head row.
std::vector<int> MissingPieces(const Catalogue& catalogue, const Stock& stock, const Circuit& circuit);

/// Owned pieces that the circuit does not use, by head row.
std::vector<int> UnusedPieces(const Catalogue& catalogue, const Stock& stock, const Circuit& circuit);

struct Purchase {
    std::vector<int> Sets;    ///< how many of each set
    std::vector<int> Singles; ///< how many single pieces of each product, by head row
    std::vector<int> Surplus; ///< pieces of the sets that are not missing, by head row
    std::vector<int> NotSold; ///< missing pieces that are in no set and have no price, by head row
    Cents Total = 0;
    Cents Bound = 0; ///< nothing is cheaper than this; the total itself where the purchase is proven the cheapest

    bool IsProven() const { return Bound == Total; }
};

/// Up to so many sets every purchase is proven the cheapest.
inline constexpr int MostProvenSets = 30;

/// The cheapest purchase that holds all missing pieces, by head row. A single piece without a price is not sold alone.
/// With more than MostProvenSets sets the search ends after a while, and the bound tells how much cheaper another
/// purchase could be at best. Throws Stopped when the watch says so.
Purchase CheapestPurchase(const std::vector<int>& missing, const Stock& prices, const BoxedSets& sets,
                          const JobWatch& watch = {});

} // namespace pistaro

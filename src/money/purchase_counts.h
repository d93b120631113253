// Counts by head row, walked through by whoever tells of a purchase.
#pragma once

#include "model/money.h"
#include "model/project.h"

#include <string>
#include <vector>

namespace pistaro {

/// Calls visit(row, count) for each product of which there are some.
template <typename Visit>
void ForEachCount(const std::vector<int>& counts, Visit visit) {
    for (std::size_t row = 0; row < counts.size(); ++row) {
        if (counts[row] > 0) visit(row, counts[row]);
    }
}

inline Cents PriceOf(const Project& project, std::size_t row) {
    return CentsOf(project.Stock[static_cast<int>(row)].Price);
}

/// The product code of a head row.
inline std::string CodeOf(const Catalogue& catalogue, std::size_t row) {
    return std::string(ProductCode(catalogue[static_cast<int>(row)].Code));
}

} // namespace pistaro

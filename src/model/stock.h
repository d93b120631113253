// What the user owns and pays, and which pieces of a circuit that covers.
#pragma once

#include "catalogue/catalogue.h"
#include "model/circuit.h"

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace pistaro {

/// Of one product.
struct ProductStock {
    std::int16_t OwnedCount = 0;
    float Price = 0; ///< the best that the user knows for one piece

    bool operator==(const ProductStock&) const = default;
};

struct Stock {
    std::vector<ProductStock> Products; ///< by catalogue row, on head rows

    /// Of the product of a head row; nothing owned and no price where the list ends before it.
    ProductStock operator[](int row) const;

    /// The same to be changed.
    ProductStock& Of(int row);

    bool operator==(const Stock&) const = default;
};

/// How many pieces of each product the circuit uses, by catalogue row, on head rows.
using UsedCounts = std::vector<int>;
UsedCounts CountUsed(const Catalogue& catalogue, const Circuit& circuit);

/// How many elements of each code the catalogue does not hold.
std::map<std::string, int> CountUnknownCodes(const Catalogue& catalogue, const Circuit& circuit);

/// For each element of each track: whether it is covered by the owned stock. Unknown codes count as covered.
using StockColours = std::array<std::vector<bool>, TrackCount>;

/// Tells which elements are within the owned stock, counted along tracks 1, 2 and 3 in that order.
StockColours AssignStockColours(const Catalogue& catalogue, const Stock& stock, const Circuit& circuit);

} // namespace pistaro

// The pieces that a circuit may be laid from.
#pragma once

#include "catalogue/catalogue.h"
#include "model/stock.h"

#include <string>
#include <string_view>
#include <vector>

namespace pistaro {

struct PieceBox {
    std::vector<int> Counts; ///< by catalogue row, on head rows

    int Total() const;

    bool operator==(const PieceBox&) const = default;
};

/// What the user owns.
PieceBox OwnedBox(const Catalogue& catalogue, const Stock& stock);

/// How many pieces of a product, told by one of its codes, a box holds.
int CountOfProduct(const Catalogue& catalogue, const PieceBox& box, std::string_view code);

/// The most pieces of a product that a box may hold.
inline constexpr int MostOfProduct = 501;

/// "C160=8,C151=8": product codes with counts, each once. Throws std::invalid_argument, which says what is wrong.
PieceBox BoxOf(const Catalogue& catalogue, std::string_view text);

/// The box as a text of which BoxOf makes the same box, if there is anything in it: "C151L=8,C160=4".
std::string TextOf(const Catalogue& catalogue, const PieceBox& box);

} // namespace pistaro

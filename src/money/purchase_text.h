// A purchase told to a person.
#pragma once

#include "model/project.h"
#include "money/purchase.h"

#include <string>
#include <vector>

namespace pistaro {

/// So many of a box or of a single piece, at a price each.
struct PurchaseLine {
    int Count = 0;
    std::string Name; ///< that of the box, or the piece's code and name
    Cents Price = 0;
};

/// What is bought: the sets, then the single pieces.
std::vector<PurchaseLine> PurchaseLines(const Catalogue& catalogue, const Project& project, const BoxedSets& sets,
                                        const Purchase& purchase);

/// "the cheapest there is.", or "at most 2.50 EUR above the cheapest there is.".
std::string PurchaseProof(const Purchase& purchase, const std::string& currency);

/// What cannot be bought, what is left over from the sets, what is owned and not used, and which codes are not counted
/// as the catalogue does not hold them: a line each where there is such.
std::string PurchaseRemarks(const Catalogue& catalogue, const Project& project, const Purchase& purchase);

/// A line for each set and each product, the total, and what is left over. Columns are for a font of one width.
std::string PurchaseText(const Catalogue& catalogue, const Project& project, const BoxedSets& sets,
                         const Purchase& purchase);

} // namespace pistaro

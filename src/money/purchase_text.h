// A purchase told to a person.
#pragma once

#include "model/project.h"
#include "money/purchase.h"

#include <string>
#include <vector>

namespace pistaro {

/// What a box brings of a product, and how much of that is needed.
struct BoxContent {
    int Count = 0;
    std::string Name;
    int Needed = 0; ///< the others are left over

    bool operator==(const BoxContent&) const = default;
};

/// So many of a box or of a single piece, at a price each.
struct PurchaseLine {
    int Count = 0;
    std::string Name; ///< that of the box, or the piece's code and name
    Cents Price = 0;
    std::vector<BoxContent> Contents = {}; ///< of all boxes of the line together; of a single piece none
};

/// A purchase as it is told, with the prices and the pieces of the project that it is for.
struct PurchaseReport {
    std::vector<PurchaseLine> Lines; ///< the sets, then the single pieces
    Cents Total = 0;
    Cents AboveBound = 0; ///< by how much another purchase could be cheaper at most; 0 where this is the cheapest
    std::string Currency;
    std::vector<PurchaseLine> Unsold; ///< what is missing, but in no set and without a price
    std::string UnsoldRemark;         ///< the same as a line of text; empty where there is none

    Cents Singly = 0;  ///< what the same costs in single pieces alone, as far as they have a price
    int NotSingly = 0; ///< how many of them have none
    std::vector<std::string> BoxedCodes = {}; ///< the products of these: without a price only boxes bring them

    /// What is left over from the sets, what is owned and not used, and which codes are not counted as the catalogue
    /// does not hold them: a line each where there is such.
    std::string Remarks;
};

PurchaseReport ReportOf(const Catalogue& catalogue, const Project& project, const BoxedSets& sets,
                        const Purchase& purchase);

/// A line for each set and each product, the total, and what is left over. Columns are for a font of one width. `rank`
/// ends the sentence of the total; without it, that tells how far it is proven the cheapest.
std::string PurchaseText(const PurchaseReport& report, const std::string& rank = {});

} // namespace pistaro

// A purchase told to a person.
#pragma once

#include "model/project.h"
#include "money/purchase.h"

#include <string>

namespace pistaro {

/// A line for each set and each product, the total, and what is left over. Columns are for a font of one width.
std::string PurchaseText(const Catalogue& catalogue, const Project& project, const BoxedSets& sets,
                         const Purchase& purchase);

} // namespace pistaro

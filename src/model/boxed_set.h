// A box with several pieces, as shops sell them.
#pragma once

#include "model/money.h"

#include <map>
#include <string>
#include <vector>

namespace pistaro {

struct BoxedSet {
    std::string Name;
    Cents Price = 0;
    std::map<int, int> Pieces; ///< by head row, how many of each product

    bool operator==(const BoxedSet&) const = default;
};

using BoxedSets = std::vector<BoxedSet>;

} // namespace pistaro

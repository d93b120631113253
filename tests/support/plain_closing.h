// What the closing search is held against: every chain of pieces tried one after the other, and grounds compared point
// by point. Slow, and short enough to be believed.
#pragma once

#include "layout/ground.h"
#include "model/project.h"

#include <optional>
#include <string>
#include <vector>

namespace pistaro {

std::vector<Ground> GroundsOf(const Track& track);

/// Whether no pieces of a closed track but neighbours overlap.
bool IsFreeOfOverlaps(const Track& track);

/// The square cm that both cover, by counting points a quarter of a cm apart.
double CountedOverlap(const Ground& a, const Ground& b);

/// What is wrong with the pieces from `first` on of a closed track of a circuit; empty when nothing is. An overlap
/// between half a square cm and two may be told or not.
struct PlainFaults {
    bool Overlaps = false, Outside = false, IsUnsure = false;
};
PlainFaults FaultsFrom(const Design& design, int track, int first);

struct PlainClosing {
    int Count = 0;
    double Price = 0; ///< of the cheapest pieces of these shapes
};

/// The fewest pieces, up to `most`, that close track 1 free of faults, and of the fewest the cheapest. Nothing where
/// none do, or where the answer hangs on an overlap that is hard to tell.
struct PlainAnswer {
    std::optional<PlainClosing> Best;
    bool IsUnsure = false;
    int FewestAtAll = 0; ///< with faults too; 0 where none close it
};
PlainAnswer CloseByTrying(const Project& project, int most);

} // namespace pistaro

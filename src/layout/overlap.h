// Where two placed pieces cover the same ground.
#pragma once

#include "catalogue/catalogue.h"
#include "layout/ground.h"

namespace pistaro {

/// What two pieces may share before they are said to overlap, cm²: neighbouring tracks touch, and touch a little
/// askew after hundreds of pieces.
inline constexpr double OverlapTolerance = 1;

/// The area that both cover, cm²; of curves to a few hundredths.
double OverlapArea(const Ground& a, const Ground& b);

/// The same, but 0 where a few comparisons tell that it is no more than OverlapTolerance.
double SharedArea(const Ground& a, const Ground& b);

/// Whether both cover more than OverlapTolerance. Tells in a fraction of a microsecond that pieces which do not meet do
/// not.
bool Overlaps(const Ground& a, const Ground& b);

/// Whether two overlapping pieces are a bridge and a straight that passes below it from side to side. A bridge stands
/// over one straight only: with a second one it is an overlap like any other.
bool PassesUnder(const CatalogueEntry& a, const Ground& groundA, const CatalogueEntry& b, const Ground& groundB);

} // namespace pistaro

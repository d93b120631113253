// Closings by taking some neighbouring pieces out of a track and laying others there.
#pragma once

#include "search/closing.h"

namespace pistaro {

/// Of every run of up to options.MostRemoved pieces, what else closes the track there with at most one piece more; best
/// first, at most options.Limit of those free of faults, and only so many others as it takes. No two hold the same
/// pieces. Whether one is the shortest is not told.
std::vector<Suggestion> MendTrack(const ClosingTables& tables, const Catalogue& catalogue, const Design& design,
                                  const Stock& stock, int track, const ClosingOptions& options, const JobWatch& watch);

} // namespace pistaro

// Draws pieces from what a box still holds.
#pragma once

#include "search/random.h"
#include "search/run_table.h"

#include <optional>
#include <vector>

namespace pistaro {

/// A step within the system, of a shape that is left: the more pieces of it, the likelier.
std::optional<std::uint8_t> RandomStep(const std::vector<LayingStep>& steps, const ShapeCounts& left,
                                       TrackSystem system, Random& random);

/// Appends up to so many of them to the run, which are no longer left then.
void AddRandomSteps(const std::vector<LayingStep>& steps, TrackSystem system, std::size_t count, ShapeCounts& left,
                    Random& random, Run& run);

/// Appends an adapter, a few Ninco pieces and another adapter. False where the box has not got them.
bool CrossToNinco(const std::vector<LayingStep>& steps, ShapeCounts& left, Random& random, Run& run);

} // namespace pistaro

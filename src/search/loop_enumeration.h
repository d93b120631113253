// All closed chains that a small box allows.
#pragma once

#include "search/loop.h"

#include <optional>
#include <vector>

namespace pistaro {

/// Boxes of up to so many pieces are enumerated.
inline constexpr int EnumeratedBox = 12;

/// All chains of these steps that close after a full turn to the left, some of them more than once; right-hand ones are
/// their mirror images. Chains that join both systems are left out. Nothing where there would be too much to look at.
std::optional<std::vector<Run>> EnumerateLoops(const std::vector<LayingStep>& steps, const ShapeCounts& shapes);

} // namespace pistaro

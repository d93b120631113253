// Where one run of track crosses another, several of its pieces overlap several of the other's: that is one thing to
// mend, and told as one.
#pragma once

#include "checks/finding.h"
#include "model/circuit.h"
#include "model/view_settings.h"

#include <string>
#include <string_view>
#include <vector>

namespace pistaro {

/// What ends the text of a track's last overlap where further ones were not looked for.
inline constexpr std::string_view MoreOverlaps = " There may be more; they are left out.";

/// "C160 (0) and C160 (4) of track 2 overlap by 90 cm².": the names of those of its pieces that lie on each other.
std::string OverlapText(const std::string& first, const std::string& second, const Finding& finding,
                        const Units& units);

/// The findings with those overlaps as one, at the place of the first, whose pieces are the same or neighbours on both
/// sides: all their pieces, and their areas summed up.
std::vector<Finding> CrossingsTogether(const Circuit& circuit, const std::vector<Finding>& findings,
                                       const Units& units);

} // namespace pistaro

// Changes, each made by a click, that mend what a rule has found.
#pragma once

#include "catalogue/catalogue.h"
#include "checks/finding.h"
#include "model/design.h"
#include "model/stock.h"

#include <optional>
#include <string>

namespace pistaro {

struct Mend {
    std::string Caption;      ///< of the button, and of the step of undo
    std::string Text;         ///< what is done, as a sentence without its stop
    pistaro::Circuit Circuit; ///< as it then is
};

/// Of a lap counter or a start section that is missing: one in place of the track's first plain straight of its length
/// and system, one that is owned and not used rather than another. Of an overlap: a bridge in place of a plain straight
/// that then may lie over the other. Of pieces outside the room: the whole track moved not much further than it must
/// be, to where it lies within the room and over no other track, or all tracks together. None for other findings, and
/// where there is no such straight and no such place.
std::optional<Mend> MendOf(const Catalogue& catalogue, const Design& design, const Stock& stock,
                           const Finding& finding);

} // namespace pistaro

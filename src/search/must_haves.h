// What a circuit must have, whatever else it is laid from.
#pragma once

#include "search/piece_box.h"

#include <string>
#include <vector>

namespace pistaro {

struct MustHaves {
    bool LapCounter = false;
    bool BankedCurve = false;
    bool ChangeOvers = false; ///< a pair of them
    bool Chicane = false;     ///< complete: both its ends

    bool operator==(const MustHaves&) const = default;
};

/// Whether a circuit of these rows has all of them.
bool HasAll(const Catalogue& catalogue, const std::vector<int>& rows, const MustHaves& mustHave);

/// What a circuit of these rows has of all that can be asked for.
MustHaves MustHavesOf(const Catalogue& catalogue, const std::vector<int>& rows);

/// Whether the box holds the pieces for all of them, in whatever circuits these can stand.
bool HoldsAll(const Catalogue& catalogue, const PieceBox& box, const MustHaves& mustHave);

/// "The box holds no lap counter.": the first of them that no circuit of the box can have, or which two of them none
/// can have together; empty where there is nothing of the kind.
std::string WhyNot(const Catalogue& catalogue, const PieceBox& box, const MustHaves& mustHave);

/// What makes circuits with all of them rare: a lap counter, half a straight, where the box has no other straight that
/// could make up for it on the way back; empty where it is nothing of the kind.
std::string WhyRare(const Catalogue& catalogue, const PieceBox& box, const MustHaves& mustHave);

} // namespace pistaro

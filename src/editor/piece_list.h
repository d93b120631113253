// Lists of pieces as people write them to each other: "C160 x3, C151L x4".
#pragma once

#include "model/design.h"
#include "model/edit_state.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace pistaro {

/// The codes in order, neighbours that are alike counted: "C160 x3, C151L".
std::string PieceListText(const std::vector<std::string>& codes);

/// The products that a list names as ReadPieceList reads it, where hands do not matter: "8 C151, C160 x4" counts by
/// head row. Faults: nothing in it; words that are no piece's code, which are told together; more pieces than a track
/// holds.
std::map<int, int> ParseProductList(const Catalogue& catalogue, std::string_view text);

/// Lays pieces at the end of the current track, and selects the last. Fault when the track has no room for all; nothing
/// changes then.
void AppendPieces(Design& design, EditState& edit, const std::vector<std::string>& codes);

} // namespace pistaro

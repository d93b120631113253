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

/// The codes that a list names, each as often as it says. They are parted by commas, semicolons, blanks or lines, in
/// capital or small letters; "x3" behind a code or "3", "3x" before it is its count ("×" and "*" are "x", too). Faults:
/// nothing in it; words that are no piece's code, which are told together, with the codes that the first without its
/// hand may have meant; more pieces than a track holds.
std::vector<std::string> ParsePieceList(const Catalogue& catalogue, std::string_view text);

/// Whether one of a text's words is a piece's code, so that it may be meant as such a list.
bool NamesPiece(const Catalogue& catalogue, std::string_view text);

/// The products that such a list names, where hands do not matter: "8 C151, C160 x4" counts by head row.
std::map<int, int> ParseProductList(const Catalogue& catalogue, std::string_view text);

/// Lays pieces at the end of the current track, and selects the last. Fault when the track has no room for all; nothing
/// changes then.
void AppendPieces(Design& design, EditState& edit, const std::vector<std::string>& codes);

} // namespace pistaro

// What the palette tells of pieces and finds among them: names, special pieces of a shape, what is left of them.
#pragma once

#include "model/project.h"

#include <string>
#include <string_view>
#include <vector>

namespace pistaro {

/// What stands below a piece's code: "standard curve 45°".
std::string PieceName(const CatalogueEntry& piece);

/// The rows of the special pieces that have a basic piece's shape and hand, in the order of the menu.
std::vector<int> SpecialsOf(const Catalogue& catalogue, const CatalogueEntry& basic);

/// What is left of the owned pieces where so many are used, below 0 where there are too few: of a basic piece its whole
/// shape together, of a special piece itself alone.
int LeftInBox(const Catalogue& catalogue, const UsedCounts& used, const Stock& stock, const CatalogueEntry& piece);

/// "3 left"; where nothing at all is owned, "3 to buy" instead of what lacks.
std::string LeftText(const Stock& stock, int left);

/// The rows of the pieces, special ones among them, that have all of these words in their code, name, hand or angle,
/// however they are written; those of the system in use first. None for no word.
std::vector<int> FindPieces(const Catalogue& catalogue, std::string_view words, TrackSystem inUse);

} // namespace pistaro

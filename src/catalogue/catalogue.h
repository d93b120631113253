// The fixed table of every track piece of both systems, with the counts that the current circuit and its user add.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace pistaro {

enum class TrackSystem : std::int16_t { Scalextric = 1, Ninco = 2 };

/// One row: a piece, or one hand of it.
struct CatalogueEntry {
    TrackSystem System{};
    std::string_view Code;       ///< the element code; a final "L" or "R" marks the hand
    std::string_view ShortName;  ///< for lists
    std::string_view LongName;   ///< for reports, UTF-8
    std::int16_t ShapeIndex = 0; ///< row of the basic piece whose outline this piece uses
    std::int16_t StockIndex = 0; ///< row of the product that this piece is counted as
    float LaneLength1 = 0;       ///< cm
    float LaneLength2 = 0;       ///< cm
    bool LaneChange = false;     ///< cars may swap lanes here
    std::int16_t UsedCount = 0;  ///< pieces of this product in the circuit, on head rows
    std::int16_t OwnedCount = 0; ///< pieces of this product that the user owns, on head rows
    float Price = 0;             ///< the user's best price for one, on head rows
};

/// Rows 0..27 are the basic shapes, the others borrow one of them. There are as many products: statistics and settings
/// look at that many of the 29 head rows' lines.
inline constexpr int CatalogueShapeCount = 28;
inline constexpr int CatalogueCount = 39; ///< rows in use; no loop runs past them

/// Rows 0..38 are filled, rows 39..50 stay empty.
using Catalogue = std::array<CatalogueEntry, 51>;

/// The catalogue with every count and price at zero.
Catalogue InitCatalogue();

/// The entry of a row, which must be one of the catalogue's.
inline CatalogueEntry& Entry(Catalogue& catalogue, int row) { return catalogue[static_cast<std::size_t>(row)]; }
inline const CatalogueEntry& Entry(const Catalogue& catalogue, int row) {
    return catalogue[static_cast<std::size_t>(row)];
}

/// The first row whose code equals `code`, or -1.
int FindRow(const Catalogue& catalogue, std::string_view code);

/// The first head row whose code, with blanks behind it, begins with a product's name as settings and windows write it
/// ("C151" finds the row of "C151L", "C8010" its left hand), or -1.
int FindHeadRow(const Catalogue& catalogue, std::string_view product);

/// Whether `row` is a product's head row: the one that carries its counts and its price.
inline bool IsHeadRow(const Catalogue& catalogue, int row) { return Entry(catalogue, row).StockIndex == row; }

/// 'L' or 'R' where the code names a hand, else 0.
char Hand(std::string_view code);

/// The code without its hand: "C151" for "C151R", "C160" for "C160".
std::string_view ProductCode(std::string_view code);

/// Whether the piece belongs to the system, as its code's first letter tells ("C" or "N"); unknown codes belong to
/// none.
bool IsOfSystem(std::string_view code, TrackSystem system);

} // namespace pistaro

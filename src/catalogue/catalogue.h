// The table of every track piece of both systems. It is made once and never changes.
#pragma once

#include "catalogue/piece_kind.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace pistaro {

enum class TrackSystem : std::int16_t { Scalextric = 1, Ninco = 2 };

/// One row: a piece, or one hand of it, with all that is known of it.
struct CatalogueEntry {
    TrackSystem System = TrackSystem::Scalextric;
    std::string Code;        ///< the element code; a final "L" or "R" marks the hand
    std::string ShortName;   ///< for lists
    std::string LongName;    ///< for reports, UTF-8
    int ShapeIndex = 0;      ///< row of the basic piece whose outline this piece uses
    int StockIndex = 0;      ///< row of the product that this piece is counted as
    float LaneLength1 = 0;   ///< cm, as the product's maker gives it
    float LaneLength2 = 0;   ///< cm
    bool LaneChange = false; ///< cars may swap lanes here
    PieceKind Kind;          ///< how it is laid
    std::string BoxName;     ///< what the loose-track dialog calls the product
    std::string CountName;   ///< what the statistics call it beside its count
    std::string Specials;    ///< of a basic piece: what the special ones of its shape are called together
    int SpecialsPlace = 0;   ///< at which the statistics tell of them
    int Place = 0;           ///< among the pieces of its frame, in the palette and in the loose-track dialog
    int VariantPlace = 0;    ///< among the pieces by which an element can be replaced
    bool Banked = false;     ///< its buttons stand in a frame of their own
    bool IsCounted = true;   ///< by the statistics

    /// Whether it has an outline of its own; a special piece borrows that of a basic one.
    bool IsBasic() const { return ShapeIndex == StockIndex; }
    bool IsStraight() const { return Kind.Shape == PieceShape::Straight; }
    /// Whether it joins Scalextric track to Ninco track.
    bool JoinsSystems() const { return Kind.Marks == PieceMarks::Adapter; }
    /// Whether another track may pass below it.
    bool IsBridge() const { return Kind.Marks == PieceMarks::HumpBackBridge; }
    /// Whether it opens or closes a chicane: it leads the lanes together, or apart again.
    bool IsChicane() const { return Kind.Marks == PieceMarks::NarrowingLanes; }
    /// Whether it keeps the lanes together, so that it belongs between two chicanes.
    bool IsChicaneExtension() const;
};

class Catalogue {
public:
    /// Throws std::logic_error when a row's shape or product is no row of the table, or when a search by the product's
    /// name would find another one that begins like it.
    explicit Catalogue(std::vector<CatalogueEntry> rows);

    int Count() const { return static_cast<int>(rows_.size()); }

    /// The entry of a row, which must be one of the catalogue's.
    const CatalogueEntry& operator[](int row) const { return rows_[static_cast<std::size_t>(row)]; }

    std::vector<CatalogueEntry>::const_iterator begin() const { return rows_.begin(); }
    std::vector<CatalogueEntry>::const_iterator end() const { return rows_.end(); }

    /// The row whose code equals `code`, the first if there are several, or -1.
    int FindRow(std::string_view code) const;

    /// The entry of that row, or null.
    const CatalogueEntry* Find(std::string_view code) const;

    /// The first head row whose code, with blanks after it, begins with a product's name as settings and windows write
    /// it ("C151" finds the row of "C151L", "C8010" its left hand), or -1.
    int FindHeadRow(std::string_view product) const;

    /// Whether `row` is a product's head row: the one that carries its owned count and its price.
    bool IsHeadRow(int row) const { return (*this)[row].StockIndex == row; }

    /// All head rows, in the catalogue's order.
    const std::vector<int>& HeadRows() const { return headRows_; }

    /// The head rows that a product is looked for in: of a product with a head row for each hand, the first.
    const std::vector<int>& ProductRows() const { return productRows_; }

    /// The products by which an element can be replaced: those of a shape that several have, by their places.
    const std::vector<int>& VariantRows() const { return variantRows_; }

private:
    /// Codes are short, and looked for by the thousand: less work than the library's hash of long texts.
    struct HashCode {
        using is_transparent = void;
        std::size_t operator()(std::string_view code) const noexcept {
            std::size_t hash = 0;
            for (const char c : code)
                hash = hash * 31 + static_cast<unsigned char>(c);
            return hash;
        }
    };

    std::vector<CatalogueEntry> rows_;
    std::unordered_map<std::string, int, HashCode, std::equal_to<>> rowOf_;
    std::vector<int> headRows_, productRows_, variantRows_;
};

/// The rows of the pieces that are sold.
std::vector<CatalogueEntry> PieceTable();

/// The catalogue of these rows.
inline Catalogue InitCatalogue() { return Catalogue(PieceTable()); }

/// 'L' or 'R' where the code names a hand, else 0.
char Hand(std::string_view code);

/// The code without its hand: "C151" for "C151R", "C160" for "C160".
std::string_view ProductCode(std::string_view code);

/// The same piece bent the other way; a code without a hand as it is.
std::string SwappedHand(std::string_view code);

/// Whether the piece belongs to the system, as its code's first letter tells ("C" or "N"); unknown codes belong to
/// none.
bool IsOfSystem(std::string_view code, TrackSystem system);

} // namespace pistaro

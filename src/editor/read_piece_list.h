// Lists of pieces out of messages, tables and notes: what of a text names pieces, and what of it cannot be understood.
#pragma once

#include "catalogue/catalogue.h"

#include <string>
#include <string_view>
#include <vector>

namespace pistaro {

/// Words of a list as they were written, and the line where they stand, from 1.
struct StrangeWords {
    std::string Text;
    int Line = 1;

    bool operator==(const StrangeWords&) const = default;
};

struct PieceListReading {
    std::vector<std::string> Codes; ///< each as often as the list says, in its order; no more than a track holds
    std::vector<StrangeWords> NotUnderstood;
    bool TooMany = false;   ///< they are more than a track holds
    bool HasBeyond = false; ///< one of those not understood names a piece more often than a track takes it
    std::string LacksHand;  ///< the first code that is a piece's but for the L or R behind it
    bool HasLines = false;  ///< the text has more than one

    /// `"C151 x2" (line 2), "XYZ" (line 4) and 3 others`, the lines where there are several.
    std::string StrangeText() const;
    /// "C151 is C151L to the left and C151R to the right"; empty where none lacks its hand.
    std::string HandText() const;
};

enum class Hands { Needed, Optional }; ///< whether "C151" names no piece, or C151L

/// Reads a list line by line, in capital or small letters. Pieces are parted by commas, semicolons, tabs, bars or
/// blanks; how many of one is "x3" or "3" behind it, "3x" or "3" before it, glued to it or not ("×" and "*" are "x"),
/// or the number beside it in a row of a table. Bullets, prices, lengths and descriptions behind the only piece of a
/// line are passed over; what may be meant in several ways, as "2–3", is not understood.
PieceListReading ReadPieceList(const Catalogue& catalogue, std::string_view text, Hands hands = Hands::Needed);

} // namespace pistaro

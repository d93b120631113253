// The words of a list of pieces: which of them name a piece, which say how many, and which measure or price something.
#pragma once

#include "editor/read_piece_list.h"

namespace pistaro {

struct ListWord {
    enum class Kind { Piece, Unknown, Count, Sign, Measure, Dash, Other };
    enum class Place { Anywhere, Behind, Ahead }; ///< of a count: of which side the "x" tells

    Kind What = Kind::Other;
    std::string Text; ///< as it was written
    std::string Code; ///< of a piece
    int Count = 0;    ///< 0 where it may be several: "2–3", "35 x 16"
    Place Side = Place::Anywhere;

    bool IsCode() const { return What == Kind::Piece || What == Kind::Unknown; }
    bool IsBareCount() const { return What == Kind::Count && Side == Place::Anywhere; }
};

using ListWords = std::vector<ListWord>;

inline constexpr char DecimalComma = '\x1F'; ///< in place of one, while a text is read

bool IsDigit(char c);
bool IsCapital(char c);
char Capital(char c);

std::string_view Trimmed(std::string_view text, std::string_view edges = " \t\r");

/// At each of the partings, trimmed.
std::vector<std::string_view> Split(std::string_view text, std::string_view partings);

/// In capital letters, with "X" for each sign of multiplication, without bullets and brackets around it.
std::string PlainWord(std::string_view text);

/// No dashes, and no number at its beginning that only counts lines. A piece's name without L or R is unknown unless
/// the hands are optional.
ListWords WordsOfList(const Catalogue& catalogue, std::string_view text, Hands hands);

} // namespace pistaro

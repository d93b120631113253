#include "editor/palette_pieces.h"

#include "text/minus_text.h"
#include "text/number_text.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <sstream>

namespace pistaro {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string InSmallLetters(std::string_view text) {
    std::string small(text);
    for (char& c : small)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return small;
}

/// "45", "22.5"; empty for a straight.
std::string AngleOf(const CatalogueEntry& piece) {
    if (piece.IsStraight()) return "";
    return NumberText(std::round(piece.Kind.Turn * 180 / std::numbers::pi * 100) / 100);
}

/// All that a piece can be found by.
std::string SearchedText(const CatalogueEntry& piece) {
    const char* const hand = Hand(piece.Code) == 'L' ? " left " : Hand(piece.Code) == 'R' ? " right " : " ";
    return InSmallLetters(piece.Code + " " + PieceName(piece) + " " + piece.LongName + hand + AngleOf(piece));
}

std::vector<std::string> WordsIn(std::string_view text) {
    std::istringstream parted(InSmallLetters(text));
    std::vector<std::string> words;
    for (std::string word; parted >> word;)
        words.push_back(word);
    return words;
}

} // namespace

std::string PieceName(const CatalogueEntry& piece) {
    return piece.BoxName + (!piece.IsStraight() && IsDigit(piece.BoxName.back()) ? "°" : "");
}

std::vector<int> SpecialsOf(const Catalogue& catalogue, const CatalogueEntry& basic) {
    std::vector<int> rows;
    for (int row = 0; row < catalogue.Count(); ++row) {
        const CatalogueEntry& piece = catalogue[row];
        if (!piece.IsBasic() && piece.ShapeIndex == basic.ShapeIndex && Hand(piece.Code) == Hand(basic.Code))
            rows.push_back(row);
    }
    std::ranges::sort(rows, {}, [&](int row) { return catalogue[row].VariantPlace; });
    return rows;
}

int LeftInBox(const Catalogue& catalogue, const UsedCounts& used, const Stock& stock, const CatalogueEntry& piece) {
    int left = 0;
    for (const int row : catalogue.HeadRows()) {
        const bool counts = piece.IsBasic() ? catalogue[row].ShapeIndex == piece.ShapeIndex : row == piece.StockIndex;
        if (counts) left += stock[row].OwnedCount - used[static_cast<std::size_t>(row)];
    }
    return left;
}

std::string LeftText(const Stock& stock, int left) {
    const bool ownsAny = std::ranges::any_of(stock.Products, [](const ProductStock& of) { return of.OwnedCount > 0; });
    if (left < 0 && !ownsAny) return std::to_string(-left) + " to buy";
    return WithMinus(std::to_string(left)) + " left";
}

std::vector<int> FindPieces(const Catalogue& catalogue, std::string_view words, TrackSystem inUse) {
    const std::vector<std::string> wanted = WordsIn(words);
    std::vector<int> found;
    if (wanted.empty()) return found;
    for (int row = 0; row < catalogue.Count(); ++row) {
        const std::string text = SearchedText(catalogue[row]);
        const auto stands = [&](const std::string& word) { return text.find(word) != std::string::npos; };
        if (std::ranges::all_of(wanted, stands)) found.push_back(row);
    }
    std::ranges::stable_sort(found, {}, [&](int row) { return catalogue[row].System != inUse; });
    return found;
}

} // namespace pistaro

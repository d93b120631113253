#include "search/piece_box.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <stdexcept>

namespace pistaro {

namespace {

/// The head row of a product, or of the one hand of it that is a product of its own; -1 for anything else.
int HeadRowOf(const Catalogue& catalogue, std::string_view product) {
    for (const int row : catalogue.ProductRows()) {
        if (ProductCode(catalogue[row].Code) == product) return row;
    }
    const int row = catalogue.FindRow(product);
    return row >= 0 && catalogue.IsHeadRow(row) ? row : -1;
}

int CountIn(std::string_view entry, std::string_view text) {
    int count = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    if (error != std::errc() || stop != text.data() + text.size() || count < 0 || count > MostOfProduct)
        throw std::invalid_argument("\"" + std::string(entry) + "\" has no count from 0 to " +
                                    std::to_string(MostOfProduct));
    return count;
}

} // namespace

int PieceBox::Total() const { return std::accumulate(Counts.begin(), Counts.end(), 0); }

PieceBox OwnedBox(const Catalogue& catalogue, const Stock& stock) {
    PieceBox box{std::vector<int>(static_cast<std::size_t>(catalogue.Count()))};
    for (int row = 0; row < catalogue.Count(); ++row) {
        if (!catalogue.IsHeadRow(row)) continue;
        box.Counts[static_cast<std::size_t>(row)] = std::clamp<int>(stock[row].OwnedCount, 0, MostOfProduct);
    }
    return box;
}

int CountOfProduct(const Catalogue& catalogue, const PieceBox& box, std::string_view code) {
    int count = 0;
    for (int row = 0; row < catalogue.Count(); ++row) {
        if (ProductCode(catalogue[row].Code) == ProductCode(code)) count += box.Counts[static_cast<std::size_t>(row)];
    }
    return count;
}

PieceBox BoxOf(const Catalogue& catalogue, std::string_view text) {
    PieceBox box{std::vector<int>(static_cast<std::size_t>(catalogue.Count()))};
    std::vector<bool> named(box.Counts.size());
    while (true) {
        const std::size_t comma = text.find(',');
        const std::string_view entry = text.substr(0, comma);
        const std::size_t equals = entry.find('=');
        const int row = HeadRowOf(catalogue, entry.substr(0, equals));
        if (equals == std::string_view::npos || row < 0)
            throw std::invalid_argument("\"" + std::string(entry) + "\" is no product and its count, as in C160=8");
        const auto place = static_cast<std::size_t>(row);
        if (named[place]) throw std::invalid_argument("\"" + std::string(entry) + "\" is a product named before");
        named[place] = true;
        box.Counts[place] = CountIn(entry, entry.substr(equals + 1));
        if (comma == std::string_view::npos) return box;
        text.remove_prefix(comma + 1);
    }
}

std::string TextOf(const Catalogue& catalogue, const PieceBox& box) {
    std::string text;
    for (int row = 0; row < catalogue.Count(); ++row) {
        const int count = box.Counts[static_cast<std::size_t>(row)];
        if (count > 0) text += (text.empty() ? "" : ",") + catalogue[row].Code + "=" + std::to_string(count);
    }
    return text;
}

} // namespace pistaro

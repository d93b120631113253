#include "commands/piece_texts.h"

#include "editor/owned_track.h"

#include <algorithm>

namespace pistaro {

std::string Listed(const std::vector<std::string>& words) {
    std::string list;
    for (const std::string& word : words)
        list += (list.empty() ? "" : ", ") + word;
    return list;
}

std::string CountedPiece(const Session& session, int headRow, int count) {
    const std::string product(ProductCode(session.Catalogue[headRow].Code));
    return count == 1 ? product : std::to_string(count) + " × " + product;
}

std::string PriceText(const Session& session, Cents price, int unpriced) {
    std::string text = MoneyText(price, session.Project.Preferences.Units.Currency, session.MoneyMarks);
    if (unpriced > 0) text += " + " + std::to_string(unpriced) + " without a price";
    return text;
}

std::string MoreToBuyText(const Session& session, const Circuit& then) {
    const Stock& stock = session.Project.Stock;
    const UsedCounts now = CountUsed(session.Catalogue, session.Project.Design.Circuit);
    const UsedCounts used = CountUsed(session.Catalogue, then);
    std::vector<std::string> pieces;
    Cents price = 0;
    int unpriced = 0;
    for (const int row : session.Catalogue.HeadRows()) {
        const auto at = static_cast<std::size_t>(row);
        const int owned = stock[row].OwnedCount;
        const int more = std::max(0, used[at] - owned) - std::max(0, now[at] - owned);
        if (more <= 0) continue;
        pieces.push_back(CountedPiece(session, row, more));
        price += more * CentsOf(stock[row].Price);
        if (stock[row].Price == 0) unpriced += more;
    }
    if (pieces.empty()) return "";
    return Listed(pieces) + "; " + (price == 0 ? "price unknown" : PriceText(session, price, unpriced));
}

} // namespace pistaro

#include "commands/piece_texts.h"

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

} // namespace pistaro

#include "money/purchase_text.h"

#include "money/purchase_counts.h"
#include "text/utf8.h"

#include <algorithm>

namespace pistaro {

namespace {

/// A count and its name to the left, the price and the sum of all to the right.
std::string PricedLine(int count, const std::string& name, Cents price) {
    const auto right = [](const std::string& text, std::size_t width) {
        return std::string(width - std::min(width, text.size()), ' ') + text;
    };
    constexpr std::size_t nameWidth = 40;
    const std::size_t filler = nameWidth - std::min(nameWidth, CharacterCount(name));
    return right(std::to_string(count), 5) + " x " + name + std::string(filler, ' ') + right(MoneyText(price), 12) +
           right(MoneyText(price * count), 12) + '\n';
}

std::string CountLines(const Catalogue& catalogue, const std::vector<int>& counts, const std::string& heading) {
    std::string lines;
    ForEachCount(counts, [&](std::size_t row, int count) {
        lines += (lines.empty() ? "" : ", ") + std::to_string(count) + " " + CodeOf(catalogue, row);
    });
    return lines.empty() ? "" : heading + lines + '\n';
}

} // namespace

std::string PurchaseText(const Catalogue& catalogue, const Project& project, const BoxedSets& sets,
                         const Purchase& purchase) {
    std::string table;
    ForEachCount(purchase.Sets,
                 [&](std::size_t set, int count) { table += PricedLine(count, sets[set].Name, sets[set].Price); });
    ForEachCount(purchase.Singles, [&](std::size_t row, int count) {
        const std::string name = CodeOf(catalogue, row) + " " + catalogue[static_cast<int>(row)].LongName;
        table += PricedLine(count, name, PriceOf(project, row));
    });
    const std::string notSold = CountLines(catalogue, purchase.NotSold, "In no set and without a price: ");
    if (table.empty() && !notSold.empty()) return "What is missing has no price yet.\n" + notSold;
    const std::string& currency = project.Preferences.Units.Currency;
    table += "Total " + MoneyText(purchase.Total) + " " + currency +
             (purchase.IsProven() ? ", the cheapest there is.\n"
                                  : ", at most " + MoneyText(purchase.Total - purchase.Bound) + " " + currency +
                                        " above the cheapest there is.\n");
    return table + notSold + CountLines(catalogue, purchase.Surplus, "Left over from the sets: ") +
           CountLines(catalogue, UnusedPieces(catalogue, project.Stock, project.Design.Circuit),
                      "Owned and not used: ");
}

} // namespace pistaro

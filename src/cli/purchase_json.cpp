#include "cli/purchase_json.h"

#include "text/utf8.h"

#include <algorithm>

namespace pistaro {

namespace {

Json Money(Cents cents) { return Number(static_cast<double>(cents) / 100); }

Cents PriceOf(const Project& project, std::size_t row) { return CentsOf(project.Stock[static_cast<int>(row)].Price); }

std::string CodeOf(const Catalogue& catalogue, std::size_t row) {
    return std::string(ProductCode(catalogue[static_cast<int>(row)].Code));
}

/// Calls visit(row, count) for each product of which there are some.
template <typename Visit>
void ForEachCount(const std::vector<int>& counts, Visit visit) {
    for (std::size_t row = 0; row < counts.size(); ++row) {
        if (counts[row] > 0) visit(row, counts[row]);
    }
}

Json CountsJson(const Catalogue& catalogue, const std::vector<int>& counts) {
    Json all = Json::array();
    ForEachCount(counts, [&](std::size_t row, int count) {
        all.push_back({{"code", CodeOf(catalogue, row)}, {"count", count}});
    });
    return all;
}

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

Json PurchaseJson(const Catalogue& catalogue, const Project& project, const BoxedSets& sets, const Purchase& purchase) {
    Json boxes = Json::array();
    ForEachCount(purchase.Sets, [&](std::size_t set, int count) {
        boxes.push_back({{"name", sets[set].Name},
                         {"count", count},
                         {"price", Money(sets[set].Price)},
                         {"sum", Money(sets[set].Price * count)}});
    });
    Json singles = Json::array();
    ForEachCount(purchase.Singles, [&](std::size_t row, int count) {
        singles.push_back({{"code", CodeOf(catalogue, row)},
                           {"count", count},
                           {"price", Money(PriceOf(project, row))},
                           {"sum", Money(PriceOf(project, row) * count)}});
    });
    return {{"currency", project.Preferences.DisplayUnits.Currency},
            {"sets", std::move(boxes)},
            {"singles", std::move(singles)},
            {"notSold", CountsJson(catalogue, purchase.NotSold)},
            {"surplus", CountsJson(catalogue, purchase.Surplus)},
            {"unused", CountsJson(catalogue, UnusedPieces(catalogue, project.Stock, project.Design.Circuit))},
            {"total", Money(purchase.Total)},
            {"bound", Money(purchase.Bound)},
            {"proven", purchase.IsProven()}};
}

std::string PurchaseTable(const Catalogue& catalogue, const Project& project, const BoxedSets& sets,
                          const Purchase& purchase) {
    std::string table;
    ForEachCount(purchase.Sets,
                 [&](std::size_t set, int count) { table += PricedLine(count, sets[set].Name, sets[set].Price); });
    ForEachCount(purchase.Singles, [&](std::size_t row, int count) {
        const std::string name = CodeOf(catalogue, row) + " " + catalogue[static_cast<int>(row)].LongName;
        table += PricedLine(count, name, PriceOf(project, row));
    });
    const std::string& currency = project.Preferences.DisplayUnits.Currency;
    table += "Total " + MoneyText(purchase.Total) + " " + currency +
             (purchase.IsProven() ? ", the cheapest there is.\n"
                                  : ", at most " + MoneyText(purchase.Total - purchase.Bound) + " " + currency +
                                        " above the cheapest there is.\n");
    return table + CountLines(catalogue, purchase.NotSold, "In no set and without a price: ") +
           CountLines(catalogue, purchase.Surplus, "Left over from the sets: ") +
           CountLines(catalogue, UnusedPieces(catalogue, project.Stock, project.Design.Circuit),
                      "Owned and not used: ");
}

} // namespace pistaro

#include "cli/purchase_json.h"

#include "money/purchase_counts.h"

namespace pistaro {

namespace {

Json Money(Cents cents) { return Number(static_cast<double>(cents) / 100); }

Json CountsJson(const Catalogue& catalogue, const std::vector<int>& counts) {
    Json all = Json::array();
    ForEachCount(counts, [&](std::size_t row, int count) {
        all.push_back({{"code", CodeOf(catalogue, row)}, {"count", count}});
    });
    return all;
}

Json UnknownJson(const std::map<std::string, int>& unknown) {
    Json all = Json::array();
    for (const auto& [code, count] : unknown)
        all.push_back({{"code", code}, {"count", count}});
    return all;
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
    return {{"currency", project.Preferences.Units.Currency},
            {"sets", std::move(boxes)},
            {"singles", std::move(singles)},
            {"notSold", CountsJson(catalogue, purchase.NotSold)},
            {"surplus", CountsJson(catalogue, purchase.Surplus)},
            {"unused", CountsJson(catalogue, UnusedPieces(catalogue, project.Stock, project.Design.Circuit))},
            {"total", Money(purchase.Total)},
            {"bound", Money(purchase.Bound)},
            {"proven", purchase.IsProven()},
            {"unknown", UnknownJson(CountUnknownCodes(catalogue, project.Design.Circuit))}};
}

} // namespace pistaro

#include "model/stock.h"

namespace pistaro {

namespace {

/// Calls visit(track, row) for each element in order, where row is that of its product, or -1 for an unknown code.
template <typename Visit>
void ForEachProduct(const Catalogue& catalogue, const Circuit& circuit, Visit visit) {
    for (std::size_t track = 0; track < circuit.Tracks.size(); ++track) {
        for (const std::string& code : circuit.Tracks[track].ElementCodes) {
            const CatalogueEntry* const piece = catalogue.Find(code);
            visit(track, piece == nullptr ? -1 : piece->StockIndex);
        }
    }
}

} // namespace

ProductStock Stock::operator[](int row) const {
    const auto at = static_cast<std::size_t>(row);
    return at < Products.size() ? Products[at] : ProductStock();
}

ProductStock& Stock::Of(int row) {
    const auto at = static_cast<std::size_t>(row);
    if (at >= Products.size()) Products.resize(at + 1);
    return Products[at];
}

UsedCounts CountUsed(const Catalogue& catalogue, const Circuit& circuit) {
    UsedCounts used(static_cast<std::size_t>(catalogue.Count()));
    ForEachProduct(catalogue, circuit, [&](std::size_t, int row) {
        if (row >= 0) ++used[static_cast<std::size_t>(row)];
    });
    return used;
}

std::map<std::string, int> CountUnknownCodes(const Catalogue& catalogue, const Circuit& circuit) {
    std::map<std::string, int> unknown;
    for (const Track& track : circuit.Tracks) {
        for (const std::string& code : track.ElementCodes) {
            if (catalogue.Find(code) == nullptr) ++unknown[code];
        }
    }
    return unknown;
}

StockColours AssignStockColours(const Catalogue& catalogue, const Stock& stock, const Circuit& circuit) {
    UsedCounts used(static_cast<std::size_t>(catalogue.Count()));
    StockColours colours;
    ForEachProduct(catalogue, circuit, [&](std::size_t track, int row) {
        colours[track].push_back(row < 0 || ++used[static_cast<std::size_t>(row)] <= stock[row].OwnedCount);
    });
    return colours;
}

} // namespace pistaro

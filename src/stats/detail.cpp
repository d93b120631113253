#include "stats/detail.h"

#include "stats/frames.h"
#include "stats/limits.h"
#include "stats/measure.h"

#include <algorithm>

namespace pistaro {

namespace {

void LeaveOutOwned(const Catalogue& catalogue, const Stock& stock, StockTally& tally) {
    for (TallyRow& row : tally) {
        if (!row.IsCounted) continue;
        const int owned = stock[catalogue.FindHeadRow(row.StockCode)].OwnedCount;
        row.TrackCount = std::max<std::int16_t>(0, Count(row.TrackCount - owned));
    }
}

std::int16_t CountOf(const StockTally& tally, std::string_view stockCode) {
    const TallyRow* const row = FindTallyRow(tally, stockCode);
    return row != nullptr ? row->TrackCount : std::int16_t{0};
}

float TotalPriceOf(const Catalogue& catalogue, const Stock& stock, const StockTally& tally) {
    float total = 0;
    for (const int row : catalogue.HeadRows()) {
        const std::int16_t count = CountOf(tally, ProductCode(catalogue[row].Code));
        total = Single(total + static_cast<double>(count) * stock[row].Price);
    }
    return total;
}

/// One label a product, where the tally has a row for each head row.
std::vector<CountLabel> LabelsOf(const Catalogue& catalogue, const StockTally& tally) {
    std::vector<CountLabel> labels;
    int index = 0;
    for (const TallyRow& row : tally) {
        const CatalogueEntry& product = catalogue[catalogue.FindHeadRow(row.StockCode)];
        const std::string tag(row.StockCode);
        if (labels.empty() || labels.back().Tag != tag)
            labels.push_back({index, tag, tag + " - " + product.CountName, &product, CountOf(tally, tag)});
        ++index;
    }
    return labels;
}

} // namespace

Detail ShowDetail(const Catalogue& catalogue, const Stock& stock, const Circuit& circuit, int track,
                  bool includeOwned) {
    StockTally tally = Measure(catalogue, stock, circuit, track).Tally;
    if (!includeOwned) LeaveOutOwned(catalogue, stock, tally);
    return {track, includeOwned, LabelsOf(catalogue, tally), TotalPriceOf(catalogue, stock, tally)};
}

std::string DetailCaption(const Detail& detail) {
    return FrameName(detail.Track) + (detail.IncludeOwned ? ": all pieces" : ": pieces to buy");
}

} // namespace pistaro

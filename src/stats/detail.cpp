// A measurement's tally less the owned pieces.
#include "stats/detail.h"

#include "stats/frames.h"
#include "stats/limits.h"
#include "stats/measure.h"

#include <algorithm>

namespace pistaro {

namespace {

void LeaveOutOwned(const Catalogue& catalogue, StockTally& tally) {
    for (auto row = tally.begin(); row != tally.begin() + CatalogueShapeCount; ++row) {
        const int owned = Entry(catalogue, FindHeadRow(catalogue, row->StockCode)).OwnedCount;
        row->TrackCount = std::max<std::int16_t>(0, Count(row->TrackCount - owned));
    }
}

std::int16_t CountOf(const StockTally& tally, std::string_view stockCode) {
    const TallyRow* const row = FindTallyRow(tally, stockCode);
    return row != nullptr ? row->TrackCount : std::int16_t{0};
}

float TotalPriceOf(const Catalogue& catalogue, const StockTally& tally) {
    float total = 0;
    for (int row = 0; row < CatalogueCount; ++row) {
        if (!IsHeadRow(catalogue, row)) continue;
        const CatalogueEntry& product = Entry(catalogue, row);
        total = Single(total + static_cast<double>(CountOf(tally, ProductCode(product.Code))) * product.Price);
    }
    return total;
}

} // namespace

Detail ShowDetail(const Project& project, int track, bool includeOwned) {
    StockTally tally = Measure(project, track).Tally;
    if (!includeOwned) LeaveOutOwned(project.Pieces, tally);
    Detail detail{track, includeOwned, {}, TotalPriceOf(project.Pieces, tally)};
    std::transform(CountLabels.begin(), CountLabels.end(), detail.Counts.begin(),
                   [&](const CountLabel& label) { return CountOf(tally, label.Tag); });
    return detail;
}

std::string DetailCaption(const Detail& detail) {
    return FrameName(detail.Track) + (detail.IncludeOwned ? ": all pieces" : ": pieces to buy");
}

} // namespace pistaro

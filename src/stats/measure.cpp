// Two searches an element: the catalogue by its whole code, the tally by the code's beginning.
#include "stats/measure.h"

#include "stats/limits.h"

#include <algorithm>

namespace pistaro {

namespace {

/// Counts the element for the first product whose code it begins with, so that both hands and unknown pieces of a
/// known product count.
void CountPiece(StockTally& tally, std::string_view code) {
    const auto row = std::ranges::find_if(
        tally, [&](const TallyRow& product) { return product.IsCounted && code.starts_with(product.StockCode); });
    if (row != tally.end()) row->TrackCount = Count(row->TrackCount + 1);
}

} // namespace

StockTally ResetStockTally(const Catalogue& catalogue) {
    StockTally tally;
    for (const int row : catalogue.HeadRows())
        tally.push_back({ProductCode(catalogue[row].Code), catalogue[row].IsCounted});
    return tally;
}

const TallyRow* FindTallyRow(const StockTally& tally, std::string_view stockCode) {
    const auto row = std::ranges::find_if(
        tally, [&](const TallyRow& product) { return product.IsCounted && product.StockCode == stockCode; });
    return row != tally.end() ? &*row : nullptr;
}

void MeasureTrack(const Catalogue& catalogue, const Stock& stock, const Track& track, Measurement& sum) {
    bool lanesSwapped = false;
    float left = 0;
    float right = 0;
    for (const std::string& code : track.ElementCodes) {
        if (const CatalogueEntry* const piece = catalogue.Find(code)) {
            sum.TrackPrice = Single(static_cast<double>(sum.TrackPrice) + stock[piece->StockIndex].Price);
            if (piece->LaneChange) lanesSwapped = !lanesSwapped;
            left = piece->LaneLength1;
            right = piece->LaneLength2;
        }
        CountPiece(sum.Tally, code);
        sum.LeftLength += lanesSwapped ? right : left;
        sum.RightLength += lanesSwapped ? left : right;
    }
}

Measurement Measure(const Catalogue& catalogue, const Stock& stock, const Circuit& circuit, int track) {
    Measurement sum;
    sum.Tally = ResetStockTally(catalogue);
    const bool all = track == AllTracks;
    for (int each = all ? 0 : track; each < (all ? TrackCount : track + 1); ++each)
        MeasureTrack(catalogue, stock, circuit.Tracks[static_cast<std::size_t>(each)], sum);
    return sum;
}

} // namespace pistaro

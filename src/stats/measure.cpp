// Two searches an element: the catalogue by its whole code, the tally by the code's beginning.
#include "stats/measure.h"

#include "stats/limits.h"

#include <algorithm>

namespace pistaro {

namespace {

/// Rows behind these belong to no search.
template <typename Rows>
auto ScannedEnd(Rows& tally) {
    return tally.begin() + CatalogueShapeCount;
}

/// Counts the element for the first product whose code it begins with, so that both hands and unknown pieces of a
/// known product count.
void CountPiece(StockTally& tally, std::string_view code) {
    const auto row = std::find_if(tally.begin(), ScannedEnd(tally),
                                  [&](const TallyRow& product) { return code.starts_with(product.StockCode); });
    if (row != ScannedEnd(tally)) row->TrackCount = Count(row->TrackCount + 1);
}

} // namespace

StockTally ResetStockTally(const Catalogue& catalogue) {
    StockTally tally;
    for (int row = 0; row < CatalogueCount; ++row) {
        if (IsHeadRow(catalogue, row)) tally.push_back({ProductCode(Entry(catalogue, row).Code)});
    }
    return tally;
}

const TallyRow* FindTallyRow(const StockTally& tally, std::string_view stockCode) {
    const auto row = std::find_if(tally.begin(), ScannedEnd(tally),
                                  [&](const TallyRow& product) { return product.StockCode == stockCode; });
    return row != ScannedEnd(tally) ? &*row : nullptr;
}

void MeasureTrack(const Project& project, int track, Measurement& sum) {
    const Catalogue& catalogue = project.Pieces;
    bool lanesSwapped = false;
    float left = 0;
    float right = 0;
    for (const std::string& code : project.Layout.Tracks[static_cast<std::size_t>(track)].ElementCodes) {
        if (const int row = FindRow(catalogue, code); row >= 0) {
            const CatalogueEntry& piece = Entry(catalogue, row);
            const CatalogueEntry& product = Entry(catalogue, piece.StockIndex);
            sum.TrackPrice = Single(static_cast<double>(sum.TrackPrice) + product.Price);
            if (piece.LaneChange) lanesSwapped = !lanesSwapped;
            left = piece.LaneLength1;
            right = piece.LaneLength2;
        }
        CountPiece(sum.Tally, code);
        sum.LeftLength += lanesSwapped ? right : left;
        sum.RightLength += lanesSwapped ? left : right;
    }
}

Measurement Measure(const Project& project, int track) {
    Measurement sum;
    sum.Tally = ResetStockTally(project.Pieces);
    const bool all = track == AllTracks;
    for (int each = all ? 0 : track; each < (all ? TrackCount : track + 1); ++each)
        MeasureTrack(project, each, sum);
    return sum;
}

} // namespace pistaro

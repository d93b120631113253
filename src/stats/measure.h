// Lane lengths, prices and piece counts of tracks.
#pragma once

#include "catalogue/catalogue.h"
#include "model/stock.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace pistaro {

/// One physical product and how many of its pieces were counted.
struct TallyRow {
    std::string_view StockCode; ///< the product code
    bool IsCounted = true;      ///< false for the Ninco change-over alone
    std::int16_t TrackCount = 0;
};

/// One row a head row of the catalogue, in its order: 29 rows, "C8010" twice, "N10111" last.
using StockTally = std::vector<TallyRow>;

/// A tally with every count at 0.
StockTally ResetStockTally(const Catalogue& catalogue);

/// The first row of that product code, or null. So the second "C8010" is never found; nor is "N10111", which is not
/// counted.
const TallyRow* FindTallyRow(const StockTally& tally, std::string_view stockCode);

/// What one track or several add up to.
struct Measurement {
    float LeftLength = 0; ///< cm
    float RightLength = 0;
    float TrackPrice = 0;
    StockTally Tally;
};

/// Adds a track piece by piece. After an odd number of lane changers left and right are crossed, from the changer's
/// own lengths on; an unknown code repeats the lengths of the element before it. Fault when a sum overflows.
void MeasureTrack(const Catalogue& catalogue, const Stock& stock, const Track& track, Measurement& sum);

/// Track 0..2 alone, or with AllTracks the sum that runs through all three.
Measurement Measure(const Catalogue& catalogue, const Stock& stock, const Circuit& circuit, int track);

} // namespace pistaro

// Lane lengths, prices and piece counts of tracks.
#pragma once

#include "model/project.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace pistaro {

/// One physical product and how many of its pieces were counted.
struct TallyRow {
    std::string_view StockCode; ///< the product code
    std::int16_t TrackCount = 0;
};

/// One row a head row of the catalogue, in its order: 29 rows, "C8010" twice, "N10111" last.
using StockTally = std::vector<TallyRow>;

/// A tally with every count at 0.
StockTally ResetStockTally(const Catalogue& catalogue);

/// The first row of that product code among the first 28, or null. So the second "C8010" is never found, nor "N10111":
/// no statistics have ever counted the Ninco change-over.
const TallyRow* FindTallyRow(const StockTally& tally, std::string_view stockCode);

/// What one track or several add up to.
struct Measurement {
    float LeftLength = 0; ///< cm
    float RightLength = 0;
    float TrackPrice = 0;
    StockTally Tally;
};

/// Adds track 0..2 piece by piece. Behind an odd number of lane changers left and right are crossed, from the changer's
/// own lengths on; an unknown code repeats the lengths of the element before it. Fault when a sum overflows.
void MeasureTrack(const Project& project, int track, Measurement& sum);

/// Track 0..2 alone, or with AllTracks the sum that runs through all three.
Measurement Measure(const Project& project, int track);

} // namespace pistaro

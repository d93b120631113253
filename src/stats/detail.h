// How many pieces of each product a track or the circuit needs, and what they cost.
#pragma once

#include "model/stock.h"

#include <cstdint>
#include <string>
#include <vector>

namespace pistaro {

/// A product's count label with the text beside it.
struct CountLabel {
    int Index;       ///< the product's row in the tally
    std::string Tag; ///< the product code
    std::string Description;
    const CatalogueEntry* Product; ///< its head row
    std::int16_t Count = 0;        ///< that of "N10111" stays 0
};

/// What the detail area shows.
struct Detail {
    int Track = AllTracks; ///< 0..2, or AllTracks
    bool IncludeOwned = false;
    std::vector<CountLabel> Labels; ///< in the order in which they are shown
    float TotalPrice = 0;
};

/// The pieces of track 0..2 or of AllTracks; without `includeOwned` only those beyond the owned ones. A product with a
/// head row for each hand ("C8010") has one label, and the total prices its count at each hand's price. Fault when a
/// count or the total overflows.
Detail ShowDetail(const Catalogue& catalogue, const Stock& stock, const Circuit& circuit, int track, bool includeOwned);

/// "Track 1: pieces to buy", or "Complete Circuit: all pieces" with the owned ones.
std::string DetailCaption(const Detail& detail);

} // namespace pistaro

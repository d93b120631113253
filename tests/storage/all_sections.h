// A whole settings file's sections.
#pragma once

#include "storage/settings_sections.h"

namespace pistaro {

inline std::vector<Section> AllSections(const Settings& settings) {
    std::array<double, CatalogueCount> owned{};
    std::array<double, CatalogueCount> prices{};
    for (std::size_t row = 0; row < owned.size(); ++row) {
        owned[row] = settings.Stocks[row].Owned;
        prices[row] = settings.Stocks[row].Price;
    }
    return {WorkingDirectoryOf(settings.WorkingDirectory),
            ViewOf(settings.MidX, settings.MidY, settings.Zoom, settings.MWid),
            UnitsOf(settings.DisplayUnits),
            GridOf(settings.Grid),
            RoomOf(settings.Room),
            LooseTrackOf(owned),
            BestPricesOf(prices),
            ColoursOf(settings.Colours)};
}

} // namespace pistaro

// A whole settings file's sections.
#pragma once

#include "storage/settings_sections.h"
#include "support/pieces.h"

namespace pistaro {

inline std::vector<Section> AllSections(const Settings& settings) {
    std::vector<double> owned;
    std::vector<double> prices;
    for (int row = 0; row < Pieces().Count(); ++row) {
        owned.push_back(settings.Stock[row].OwnedCount);
        prices.push_back(settings.Stock[row].Price);
    }
    return {WorkingDirectoryOf(settings.Preferences.WorkingDirectory),
            ViewOf(settings.MidX, settings.MidY, settings.Zoom, settings.Preferences.MWid),
            UnitsOf(settings.Preferences.Units),
            GridOf(settings.Preferences.Grid),
            RoomOf(settings.Room),
            LooseTrackOf(Pieces(), owned),
            BestPricesOf(Pieces(), prices),
            ColoursOf(settings.Preferences.Colours)};
}

} // namespace pistaro

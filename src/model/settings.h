// The values of the settings file: the user's defaults, owned track and prices.
#pragma once

#include "catalogue/catalogue.h"
#include "model/colour_scheme.h"
#include "model/prompts.h"
#include "model/room_polygon.h"
#include "model/view_settings.h"

#include <array>
#include <string>
#include <vector>

namespace pistaro {

/// What the user owns of a product and pays for it.
struct Stock {
    std::int16_t Owned = 0;
    float Price = 0;
};

/// A value whose section is missing is zero; without a view section the view is the default one.
struct Settings {
    std::string WorkingDirectory; ///< ends in a folder separator
    float MidX = 0;               ///< cm
    float MidY = 0;
    double Zoom = 320; ///< the view's width, cm
    float MWid = 160;
    Units DisplayUnits;
    GridSettings Grid;
    RoomPolygon Room;
    std::array<Stock, CatalogueCount> Stocks; ///< by catalogue row, on head rows
    ColourScheme Colours;
    std::vector<Message> Messages; ///< the warnings that reading gave
};

} // namespace pistaro

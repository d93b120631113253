// The values of the settings file: the user's defaults, owned track and prices.
#pragma once

#include "model/preferences.h"
#include "model/prompts.h"
#include "model/room_polygon.h"
#include "model/stock.h"

#include <vector>

namespace pistaro {

/// A value whose section is missing is zero; without a view section the view is the default one.
struct Settings {
    float MidX = 0; ///< cm
    float MidY = 0;
    double Zoom = 320; ///< the view's width, cm
    RoomPolygon Room;
    pistaro::Preferences Preferences;
    pistaro::Stock Stock;
    std::vector<Message> Messages; ///< the warnings that reading gave

    bool operator==(const Settings&) const = default;
};

} // namespace pistaro

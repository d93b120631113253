// How a person likes to work: colours, grid, units, and the folder that files go to.
#pragma once

#include "model/colour_scheme.h"
#include "model/view_settings.h"

#include <string>

namespace pistaro {

struct Preferences {
    ColourScheme Colours;
    GridSettings Grid;
    pistaro::Units Units;
    float MWid = 160;             ///< how far the scroll bars of a new design reach from its centre, cm
    std::string WorkingDirectory; ///< ends in a folder separator

    bool operator==(const Preferences&) const = default;
};

} // namespace pistaro

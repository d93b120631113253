// A design with what stands around it while somebody works on it.
#pragma once

#include "model/design.h"
#include "model/edit_state.h"
#include "model/preferences.h"
#include "model/scaled_background.h"
#include "model/settings.h"
#include "model/stock.h"

namespace pistaro {

struct Project {
    pistaro::Design Design;
    pistaro::Stock Stock;
    pistaro::Preferences Preferences;
    pistaro::EditState EditState;
    std::shared_ptr<const ScaledBackground> Background = {}; ///< under the circuit; null where there is none

    bool operator==(const Project&) const = default;
};

/// A project as the program starts with it: three empty tracks, the settings' view, room, preferences and stock.
Project StartUp(const Settings& settings);

/// Empties the circuit and brings back the default view of 320 x 320 cm, with the scroll bars of a start with such a
/// view. The start points' Y, the room, the track system, Insert mode, preferences and stock stay; a picture under the
/// circuit goes.
void NewProject(Project& project);

} // namespace pistaro

// Selecting an element by a click on the drawing.
#pragma once

#include "catalogue/catalogue.h"
#include "layout/shapes.h"
#include "model/edit_state.h"

namespace pistaro {

inline constexpr int MostClickableElements = 201; ///< the distance table's size; a longer track cannot be clicked

/// Selects the element of the current track whose label lies nearest to the point (cm), the lower index where two are
/// as near, and offers the system of the element before it. Does nothing with all tracks chosen or on an empty track.
/// Fault on a track of more than MostClickableElements.
void SelectNearestElement(const Catalogue& catalogue, const Circuit& circuit, EditState& edit, WorldPoint click);

} // namespace pistaro

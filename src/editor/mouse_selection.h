// Selecting an element by a click on the drawing.
#pragma once

#include "catalogue/catalogue.h"
#include "editor/picking.h"
#include "layout/shapes.h"
#include "model/edit_state.h"

namespace pistaro {

inline constexpr int MostClickableElements = 201; ///< the distance table's size; a longer track cannot be clicked

/// Selects the element of the current track whose label lies nearest to the point (cm), the lower index where two are
/// as near, and offers the system of the element before it. Does nothing with all tracks chosen or on an empty track.
/// Fault on a track of more than MostClickableElements.
void SelectNearestElement(const Catalogue& catalogue, const Circuit& circuit, EditState& edit, WorldPoint click);

/// Selects a piece of any track, which becomes the current one, and offers the system of the piece before it.
void SelectPiece(const Catalogue& catalogue, const Circuit& circuit, EditState& edit, const PieceAddress& piece);

/// What a click in the window selects: the piece whose ground alone holds the point, else the nearest element. Does
/// nothing with all tracks chosen.
void SelectAt(const Catalogue& catalogue, const Circuit& circuit, EditState& edit, const PickMap& pieces,
              WorldPoint click);

} // namespace pistaro

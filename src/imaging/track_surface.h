// Tracks as they look: an asphalt bed with slots, rails and kerbs under the described lines, whose colours it tells by
// patterns, too.
#pragma once

#include "imaging/painter_surface.h"
#include "imaging/track_look.h"
#include "model/project.h"
#include "render/redraw.h"

namespace pistaro {

inline constexpr Colour AsphaltColour = Rgb(0x6E, 0x74, 0x7C);
inline constexpr Colour LeftLaneColour = Rgb(0xFF, 0xD5, 0x4A);
inline constexpr Colour RightLaneColour = Rgb(0x7F, 0xD6, 0xFF);

/// The grid's colour under such tracks: close to the background's.
Colour RecedingGridColour(Colour background);

/// What DrawCircuit draws, on beds. The painter must be the surface's, which shows the view.
void DrawCircuitSurface(const Catalogue& catalogue, const Project& project, QPainter& painter, PainterSurface& surface);

/// What tells a piece of that standing from others on its bed: for a legend. Fills the polygon.
void PaintBed(QPainter& painter, const QPolygonF& polygon, PieceStanding standing, const ColourScheme& colours);

} // namespace pistaro

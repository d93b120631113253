// The only repaint: the whole picture from the data, in the order in which things lie on top of each other.
#pragma once

#include "model/project.h"
#include "render/surface.h"

namespace pistaro {

inline constexpr double NormalFont = 8.25; ///< points, of the texts in drawings

/// Clears the surface and draws grid, area label, tracks and room; recounts the used pieces on the way.
void RedrawCircuit(Project& project, Surface& surface);

/// Draws one piece's strokes in these colours.
void DrawPiece(const PiecePlacement& placement, Colour outline, Colour rail, Surface& surface);

/// Draws the grid over the view and one step beyond it on each side.
void DrawGrid(const Project& project, Surface& surface);

/// Where a point of the room lies, turned by the room's angle, cm.
WorldPoint RoomCorner(const RoomPolygon& room, const RoomPoint& point);

/// The square that shows the whole room with a margin around it; for a room without extent, 100 cm around its place.
ViewRectangle RoomRectangle(const RoomPolygon& room);

/// Draws the room's sides whose line flag is 1, turned by the room's angle.
void DrawRoom(const RoomPolygon& room, Surface& surface);

} // namespace pistaro

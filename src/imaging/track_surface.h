// Tracks as they look: an asphalt bed with slots, rails and kerbs within their outlines, whose colours it tells
// by patterns, too.
#pragma once

#include "imaging/painter_surface.h"
#include "imaging/track_look.h"
#include "layout/bridges.h"
#include "model/project.h"
#include "render/redraw.h"
#include "render/track_bed.h"

namespace pistaro {

/// Something of both colours: all of one where `part` is 0, of the other where it is 1.
Colour Mixed(Colour one, Colour other, double part);

/// The grid's colour under such tracks: close to the background's.
Colour RecedingGridColour(Colour background);

/// Draws the grid under such tracks, as DrawGrid does, but so that it recedes.
void DrawRecedingGrid(const Preferences& preferences, const ViewRectangle& covered, double viewWidth,
                      PainterSurface& surface);

/// What DrawCircuit draws, on beds. The painter must be the surface's, which shows the view; `bridges` are the
/// circuit's.
void DrawCircuitSurface(const Catalogue& catalogue, const Project& project, const std::set<PieceAddress>& bridges,
                        QPainter& painter, PainterSurface& surface);

/// The bed of a piece of that standing, for a legend: what tells it from others.
void PaintSampleBed(QPainter& painter, const QRectF& place, PieceStanding standing, const ColourScheme& colours);

/// How wide the edges of a piece of that standing are, pixels.
double EdgeWidth(PieceStanding standing);

} // namespace pistaro

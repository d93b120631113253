// The elements' numbers on tracks that are drawn as they look.
#pragma once

#include "imaging/painter_surface.h"
#include "render/redraw.h"

namespace pistaro {

/// Writes the number with a halo that keeps it readable: between the lanes where it keeps clear of them, else beside
/// the piece.
void PaintNumber(const StandingPiece& piece, Colour background, QPainter& painter, const PainterSurface& surface);

} // namespace pistaro

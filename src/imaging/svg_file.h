// A drawing as SVG: true arcs, and each piece a group that says which it is.
#pragma once

#include "paper/sheets.h"

#include <string>

namespace pistaro {

class ScaledBackdrop;

/// The plan's one sheet, over the picture of the drawing's background where one is given, which the file then holds.
/// Coordinates are cm of the world with y downwards; the picture's size is that of the sheet. A piece is a group with
/// its code, index and track (from 1) as data-code, data-index and data-track.
std::string SvgOf(const CircuitDrawing& drawing, const SheetPlan& plan, const ScaledBackdrop* backdrop = nullptr);

} // namespace pistaro

// A drawing as DXF, for programs that construct.
#pragma once

#include "paper/circuit_drawing.h"

#include <string>

namespace pistaro {

/// AC1015 in centimetres at full size: lines, arcs, ellipses and texts on the layers OUTLINES, LANES, MARKS, NUMBERS,
/// ROOM and GRID.
std::string DxfOf(const CircuitDrawing& drawing);

} // namespace pistaro

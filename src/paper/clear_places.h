// Where words stand clear of what is drawn.
#pragma once

#include "paper/circuit_drawing.h"

#include <vector>

namespace pistaro {

/// Whether no wall runs through a box.
bool IsClearOfWalls(const RoomPolygon& room, const Box& box);

/// Whether no stroke of pieces and room runs through a box.
bool IsClearOfStrokes(const CircuitDrawing& drawing, const Box& box);

/// The first of some boxes that is clear of strokes and meets nothing that is taken already; else the first.
Box ClearestOf(const std::vector<Box>& boxes, const CircuitDrawing& drawing, const std::vector<Box>& taken);

} // namespace pistaro

// Strokes in the path language of SVG: absolute commands, arcs as arcs, y downwards.
#pragma once

#include "layout/strokes.h"

#include <string>

namespace pistaro {

inline constexpr int PathDecimals = 5; ///< of a cm

void AppendPath(std::string& path, const LineSegment& line);
void AppendPath(std::string& path, const ArcSegment& arc);
void AppendPath(std::string& path, const Ellipse& ellipse);

std::string PathOf(const PiecePlacement& placement, Strokes strokes = Strokes::All);

} // namespace pistaro

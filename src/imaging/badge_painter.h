// Numbers on grounds of their own, painted.
#pragma once

#include "imaging/painter_surface.h"
#include "paper/number_badges.h"

namespace pistaro {

/// Where so many dots are a cm of paper.
void PaintBadges(const std::vector<NumberBadge>& badges, QPainter& painter, PainterSurface& surface, double dotsPerCm);

} // namespace pistaro

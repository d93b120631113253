// A piece's strokes in the order of drawing, for whatever treats them alike.
#pragma once

#include "layout/placement.h"

namespace pistaro {

enum class Strokes { All, AllButOutline };

/// Calls visit with each line, arc and ellipse.
template <typename Visit>
void ForEachStroke(const PiecePlacement& placement, Strokes strokes, Visit visit) {
    for (const Lane& lane : placement.Lanes) {
        for (const Segment& segment : lane.Path)
            std::visit(visit, segment);
    }
    if (strokes == Strokes::All) {
        for (const Segment& segment : placement.Outline)
            std::visit(visit, segment);
    }
    for (const Mark& mark : placement.Marks)
        std::visit(visit, mark.Shape);
}

} // namespace pistaro

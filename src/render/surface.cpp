#include "render/surface.h"

namespace pistaro {

void Surface::DrawGridLines(const GridLines& columns, const GridLines& rows, Colour colour) {
    for (int i = 0; i < columns.Count(); ++i)
        Draw(LineSegment{{columns.At(i), rows.End()}, {columns.At(i), rows.Begin()}}, colour);
    for (int i = rows.Count() - 1; i >= 0; --i)
        Draw(LineSegment{{columns.Begin(), rows.At(i)}, {columns.End(), rows.At(i)}}, colour);
}

void Surface::DrawGridDots(const GridLines& columns, const GridLines& rows, double radius, Colour colour) {
    for (int i = 0; i < columns.Count(); ++i) {
        for (int j = rows.Count() - 1; j >= 0; --j)
            Draw(Ellipse{{columns.At(i), rows.At(j)}, radius, 1}, colour);
    }
}

} // namespace pistaro

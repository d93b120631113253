// Grids on pictures, whose ten thousand dots or pixels of lines are drawn once where they look alike, and laid over the
// picture by hand.
#pragma once

#include <QLineF>
#include <QList>
#include <QPainter>

#include <vector>

namespace pistaro {

/// The picture that a painter draws on, where all of its pixels can be blended by hand; else null.
QImage* OpenPicture(const QPainter& painter);

/// Draws lines that run straight down and straight across, in the painter's pen; to the pixel as the painter would.
/// False, and nothing drawn, unless all of them cross the picture from edge to edge.
bool DrawCrossingLines(QImage& picture, const QPainter& painter, const QList<QLineF>& down,
                       const QList<QLineF>& across);

constexpr int Eighths = 8; ///< of a pixel

/// Draws a circle wherever one of the columns and one of the rows cross, in a pen that suits it. They are counted in
/// eighths of pixels.
void DrawCircles(QImage& picture, const QPainter& painter, double radius, const std::vector<int>& columns,
                 const std::vector<int>& rows);

/// Draws one circle in such a pen.
void PaintCircle(QPainter& painter, QPointF centre, double radius);

inline constexpr double SmallestRing = 2; ///< pixels; a smaller circle is drawn as a dot

} // namespace pistaro

// The legend in a corner of the drawing: what its colours and patterns mean.
#pragma once

#include "imaging/track_surface.h"

#include <QFontMetricsF>
#include <QRectF>

#include <string>
#include <variant>
#include <vector>

namespace pistaro {

/// A line of it: a piece's standing or a lane's colour, and what that means.
struct LegendEntry {
    std::variant<PieceStanding, Colour> Sample;
    std::string Words;
};

/// What tells a piece's standing.
std::vector<LegendEntry> StandingLegend();

/// Where it stands on a drawing of that size: in the corner where it hides the fewest of these places, the upper left
/// one before others.
QRectF LegendPlace(QSizeF drawing, const QFontMetricsF& letters, const std::vector<LegendEntry>& entries,
                   const std::vector<QPointF>& busy);

/// Paints it there, for tracks drawn in that way.
void PaintLegend(QPainter& painter, const QRectF& plate, const std::vector<LegendEntry>& entries,
                 const ColourScheme& colours, TrackLook look);

} // namespace pistaro

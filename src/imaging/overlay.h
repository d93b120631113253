// What lies above the circuit for a while: ghosts of pieces, marked places, coloured lanes. All in world coordinates,
// cm; widths in pixels of the screen.
#pragma once

#include "imaging/canvas_frame.h"
#include "layout/placement.h"
#include "model/colour_scheme.h"
#include "model/project.h"

#include <QPainter>

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace pistaro {

/// Lines and arcs, such as a thick edge, a lane, or the dashed way from an end to a start.
struct OverlayPath {
    std::vector<Segment> Path = {};
    Colour InkColour = 0;
    double Pixels = 2;
    bool Dashed = false;
    double Centimetres = 0; ///< it is so wide in the world where that is more
    bool Cased = false;     ///< on a pale band, so that it is told from track of its own colour
};

/// A polygon that need not repeat its first point, such as the ground that two pieces share.
struct OverlayArea {
    std::vector<WorldPoint> Polygon = {};
    Colour InkColour = 0;
    bool Hatched = false; ///< else tinted
    bool Cased = false;   ///< its edge thicker and on a pale band, its hatches on a pale ground
};

enum class PieceLook {
    Ghost, ///< to be laid: tinted and lined
    Light, ///< laid elsewhere, where they would come to lie: an outline
    Faded, ///< laid there: what they look like shines through the ink
};

/// Pieces that are not laid there yet, or not for long, the first at a pose.
struct OverlayPieces {
    std::vector<std::string> Codes = {};
    BuildCursor Start = {};
    std::string CodeBefore = {}; ///< of the piece that they would follow; empty where there is none
    Colour InkColour = 0;
    PieceLook Look = PieceLook::Ghost;
};

/// A round handle to take hold of.
struct OverlayHandle {
    WorldPoint Place = {};
    Colour InkColour = 0;
    double Pixels = 7; ///< radius
    bool Filled = true;
};

/// A few words on a plate of their own, beside a place.
struct OverlayText {
    WorldPoint Place = {};
    std::string Text = {};
    Colour InkColour = 0;
    /// Of the track that ends there, radians: the words stand ahead of it, and on none of it.
    std::optional<double> Heading = {};
};

using OverlayItem = std::variant<OverlayPath, OverlayArea, OverlayPieces, OverlayHandle, OverlayText>;
using Overlay = std::vector<OverlayItem>; ///< in the order of drawing

/// Paints the items where the view has them on the canvas, texts in the painter's font.
void PaintOverlay(const Overlay& overlay, const Catalogue& catalogue, const ViewSettings& view,
                  const CanvasFrame& frame, QPainter& painter);

} // namespace pistaro

// A circuit as it is drawn on paper and into files for other programs: its pieces where they lie, in their colours.
#pragma once

#include "catalogue/catalogue.h"
#include "layout/placement.h"
#include "model/edit_state.h"
#include "model/project.h"
#include "paper/box.h"
#include "render/surface.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pistaro {

/// What of a circuit is drawn.
struct DrawnParts {
    int Track = AllTracks; ///< 0..2, or AllTracks
    bool Numbers = false;
    bool Grid = false;
    bool Room = false;
    bool Surface = false;               ///< tracks as they look, under their lines
    bool BlackAndWhite = false;         ///< areas in grey
    bool Background = false;            ///< the picture that lies under the circuit to scale
    bool StockColours = true;           ///< pieces in the colours of owned ones and of those to buy; else all in ink
    std::optional<ElementRun> Run = {}; ///< of the one track; else all of it

    bool operator==(const DrawnParts&) const = default;
};

struct DrawnPiece {
    int Track = 0; ///< from 0
    int Index = 0;
    std::string Code;
    PiecePlacement Placement;
    Colour Outline = 0;
    Box Extent; ///< of its strokes
};

/// Without unknown codes, which lie nowhere.
struct CircuitDrawing {
    std::string Name; ///< of the project
    std::vector<DrawnPiece> Pieces;
    RoomPolygon Room; ///< without points when it is not drawn
    pistaro::Preferences Preferences;
    DrawnParts Parts;
    Box Extent; ///< of all strokes and numbers' places; of an empty drawing a square of 100 cm
    std::shared_ptr<const ScaledBackground> Background = {}; ///< null when none is drawn
    Box BackgroundExtent = {};                               ///< what it covers; empty until somebody has decoded it

    /// Of strokes and background.
    Box Whole() const;
};

/// The pieces of the chosen tracks, each in the colour that it takes when its track is being edited and it is not
/// selected. On paper the background is white: where the user's is dark, colours that show on it are replaced by those
/// of a first run. Fault: the drawing reaches further than numbers do.
CircuitDrawing DrawingOf(const Catalogue& catalogue, const Project& project, const DrawnParts& parts);

/// A piece as its drawing shows it: its bed, where surfaces are drawn, and its lines.
void DrawPieceOf(const CircuitDrawing& drawing, const DrawnPiece& piece, Surface& surface);

/// The font's size of numbers, cm of the world, where a cm of it takes so many pixels of 1/96 inch: never smaller on
/// paper than other words.
double NumberSize(double pixelsPerCm);

/// The ground that a number of so many digits stands on where surfaces are drawn, whose asphalt is as dark as it;
/// `fontSize` in cm of the world.
std::vector<WorldPoint> NumberPlate(WorldPoint label, std::size_t digits, double fontSize);

/// Draws what of the drawing but for the numbers lies within a part of the world, pieces whole, onto a surface that
/// shows that part.
void DrawStrokes(const CircuitDrawing& drawing, const Box& part, Surface& surface);

/// The same with the numbers.
void DrawPart(const CircuitDrawing& drawing, const Box& part, Surface& surface);

/// The grid as the preferences have it; lines every 10 cm or 10 in where they have none.
GridSettings GridToDraw(const Preferences& preferences);

} // namespace pistaro

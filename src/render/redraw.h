// The only repaint: the whole picture from the data, in the order in which things lie on top of each other. Each part
// can be drawn alone.
#pragma once

#include "catalogue/catalogue.h"
#include "layout/placement.h"
#include "layout/room_fit.h"
#include "model/project.h"
#include "render/surface.h"

#include <functional>

namespace pistaro {

inline constexpr double NormalFont = 8.25; ///< points, of the texts in drawings

/// Clears the surface and draws the view: the ground, and the circuit on it.
void RedrawCircuit(const Catalogue& catalogue, const Project& project, Surface& surface);

/// Lays the view over the surface and sets its texts' size.
void ShowView(const ViewSettings& view, Surface& surface);

/// Clears the surface, shows the view and draws what lies under the tracks: grid and area label.
void DrawGround(const Preferences& preferences, const ViewSettings& view, Surface& surface);

/// Draws tracks (with their numbers, if they are shown) and room onto a surface that shows the view.
void DrawCircuit(const Catalogue& catalogue, const Project& project, Surface& surface);

/// What its outline's colour tells of a piece.
enum class PieceStanding { Inactive, Active, Owned, NonOwned };

Colour OutlineColour(PieceStanding standing, const ColourScheme& colours);

/// A piece of the circuit as it is drawn.
struct StandingPiece {
    int Track, Element;
    const PiecePlacement& Placement;
    PieceStanding Standing;
};

/// What of the tracks is drawn.
struct TrackParts {
    bool Pieces = true;
    bool Numbers = true;                                  ///< each element's index, at its label
    std::function<void(const StandingPiece&)> Under = {}; ///< draws what lies under each piece's lines; may be empty
};

/// Draws the tracks element by element, the one being edited above the others.
void DrawTracks(const Catalogue& catalogue, const Project& project, const TrackParts& parts, Surface& surface);

/// Draws one piece's lanes, outline and marks in these colours.
void DrawPiece(const PiecePlacement& placement, Colour outline, Colour rail, Surface& surface);

/// Draws the grid over the rectangle and one step beyond it on each side, its dots as large as a view of that width
/// (cm) has them. Where its step would take less than six pixels, every 2nd, 5th, 10th … line or dot only.
void DrawGrid(const Preferences& preferences, const ViewRectangle& covered, double viewWidth, Surface& surface,
              Colour colour = GridColour);

/// Prints the rectangle's size at its lower left.
void DrawAreaLabel(const Preferences& preferences, const ViewRectangle& shown, Surface& surface);

/// The square that shows the whole room with a margin around it; for a room without extent, 100 cm around its place.
ViewRectangle RoomRectangle(const RoomPolygon& room);

/// Draws the room's sides whose line flag is 1, turned by the room's angle.
void DrawRoom(const RoomPolygon& room, Surface& surface, Colour colour = RoomColour);

} // namespace pistaro

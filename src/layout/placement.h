// Where a piece lies: its corners, lanes, outline, marks, label and the cursor after it, from the cursor before it
// alone.
#pragma once

#include "catalogue/catalogue.h"
#include "layout/bounded_list.h"
#include "layout/exit.h"
#include "layout/shapes.h"
#include "model/circuit.h"

#include <array>
#include <optional>
#include <string_view>

namespace pistaro {

/// Corners 1 to 4: entry and exit on the reference edge, exit and entry on the other edge.
struct Corners {
    WorldPoint Entry, Exit, OtherExit, OtherEntry;

    std::array<WorldPoint, 4> InOrder() const { return {Entry, Exit, OtherExit, OtherEntry}; }
};

/// The side of the track on which a lane enters a piece; the reference edge is the left one.
enum class LaneSide { Left, Right };

/// A lane's slot through a piece, in the order of travel. Arcs run anticlockwise, whichever way the cars go.
struct Lane {
    LaneSide Side = LaneSide::Left;
    BoundedList<Segment, 3> Path;
};

enum class Ink { Rail, Outline };

/// What a special piece shows besides lanes and outline.
struct Mark {
    pistaro::Ink Ink = pistaro::Ink::Rail;
    pistaro::Shape Shape;
};

/// Lists in the order of drawing: lanes lie under the outline, marks above it.
struct PiecePlacement {
    pistaro::Corners Corners;
    std::array<Lane, 2> Lanes; ///< of a curve the inner one first
    BoundedList<Segment, 4> Outline;
    BoundedList<Mark, 5> Marks;
    WorldPoint Label; ///< 5 cm left and 4 cm above the middle of the diagonal from corner 2 to corner 4
    Pose Exit;
};

/// What of the element before it a piece depends on: the standard chicane and the adapter turn round after some.
struct Predecessor {
    bool IsNinco = false;       ///< its code begins with "N"
    bool LanesTogether = false; ///< it is a chicane or its extension
};

/// Of the element before in its track; an empty code stands for none, no piece for an unknown code.
Predecessor PredecessorOf(std::string_view code, const CatalogueEntry* piece);

/// Lays a piece of this kind at the cursor.
PiecePlacement PlacePiece(const PieceKind& kind, const Pose& entry, const Predecessor& before);

/// The same by codes; nothing for an unknown code, which leaves the cursor where it was.
std::optional<PiecePlacement> PlacePiece(const Catalogue& catalogue, std::string_view code, const BuildCursor& cursor,
                                         std::string_view previousCode);

/// Calls visit(index, placement, entry) for each element of a track in order, where placement is null for an unknown
/// code and entry the cursor before the element; gives the cursor after the last.
template <typename Visit>
BuildCursor WalkTrack(const Catalogue& catalogue, const Track& track, Visit visit) {
    Pose pose = track.Start();
    Predecessor before;
    for (int index = 0; index <= track.ElementLastIndex(); ++index) {
        const std::string& code = track.ElementCodes[static_cast<std::size_t>(index)];
        const CatalogueEntry* const piece = catalogue.Find(code);
        if (piece != nullptr) {
            const PiecePlacement placement = PlacePiece(piece->Kind, pose, before);
            visit(index, &placement, pose);
            pose = placement.Exit;
        } else {
            visit(index, static_cast<const PiecePlacement*>(nullptr), pose);
        }
        before = PredecessorOf(code, piece);
    }
    return pose;
}

} // namespace pistaro

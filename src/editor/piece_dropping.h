// Laying a piece by hand: where a piece that is held over the drawing would go, and what that comes to.
#pragma once

#include "layout/placement.h"
#include "model/project.h"

#include <optional>
#include <string>
#include <vector>

namespace pistaro {

/// A joint of a track, at which a piece can be put in.
struct DropPlace {
    int Track = 0;
    int Element = 0;        ///< the place that the piece gets in its track
    BuildCursor At;         ///< where it would lie
    std::string CodeBefore; ///< of the piece before it; empty where there is none
    bool Replaces = false;  ///< the piece that lies there

    bool operator==(const DropPlace&) const = default;
};

/// A piece that is held in hand, once or as often as a digit says.
struct HeldPiece {
    std::string Code = {};
    int Times = 1;
};

/// Where a press of the piece's button would lay it: at the open end of the current track, before the selected element
/// in Insert mode, or, one special piece, in the selected element's place where it fits. Nothing with all tracks
/// chosen, and behind the last piece of a closed track.
std::optional<DropPlace> ButtonPlace(const Catalogue& catalogue, const Project& project, const HeldPiece& piece);

/// Before the selected element, or in its place; nothing where none is selected.
std::optional<DropPlace> SelectedPlace(const Catalogue& catalogue, const Project& project, bool replaces);

/// The joint nearest to a point of all tracks: an end, a start, before which the piece then comes to lie, or between
/// two pieces. Where none is within `reach` (cm), the nearest open end; nothing where all tracks are closed, or all are
/// chosen. Of empty tracks the current one's start alone.
std::optional<DropPlace> NearestPlace(const Catalogue& catalogue, const Project& project, const HeldPiece& held,
                                      WorldPoint point, double reach);

/// Puts a piece in, which becomes the selected one of its track. Before the start it takes the start back, so that all
/// others stay where they lie. Fault when the track has no room for it; nothing changes then.
void DropPiece(const Catalogue& catalogue, Project& project, const DropPlace& place, const HeldPiece& held);

/// The pieces that make room for what is put in there, in their order; those before it stay where they lie. None at a
/// track's end, before its start, and where a piece is replaced.
std::vector<std::string> DisplacedPieces(const Project& project, const DropPlace& place);

/// What is left of the owned pieces when it has been laid there, counted as LeftInBox does.
int LeftWith(const Catalogue& catalogue, const Project& project, const DropPlace& place, const HeldPiece& held);

/// The track's gap with the piece laid there.
std::string GapWith(const Catalogue& catalogue, const Project& project, const DropPlace& place, const HeldPiece& held);

} // namespace pistaro

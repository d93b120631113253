// Commands on a whole track or the room: delete, move, rotate, mirror, invert, choose, select.
#pragma once

#include "catalogue/catalogue.h"
#include "layout/shapes.h"
#include "model/design.h"
#include "model/edit_state.h"

namespace pistaro {

/// Removes the current track's selected element, and all after it where the selection reaches so far; the selection
/// stays on the same place, or on the new last element. Does nothing where nothing is selected.
void DeleteElement(Design& design, EditState& edit);

/// Moves the start of the current track, or of all tracks when all are chosen, by steps of one track width.
void MoveTracks(Design& design, EditState& edit, int stepsRight, int stepsUp);

enum class Rotation { Left, Right };

/// Turns the current track about its start by a sixteenth of the circle constant; with all tracks chosen, the room by a
/// thirty-second.
void Rotate(Design& design, EditState& edit, Rotation rotation);

/// Swaps left and right hands along the current track.
void MirrorTrack(Design& design, EditState& edit);

/// Lays the current track in the opposite order with swapped hands, from the same start.
void InvertTrack(Design& design, EditState& edit);

/// Swaps left and right hands from the selected element on.
void MirrorFromSelected(Design& design, EditState& edit);

/// Whether the track's end meets its start, so that it may begin at any of its pieces: within a centimetre and a
/// degree.
bool IsRing(const Catalogue& catalogue, const Track& track);

/// Makes the selected element of a ring its first one, where it lies: the others follow in the order of travel.
void StartAtSelected(const Catalogue& catalogue, Design& design, EditState& edit);

/// A start moved by so many cm, to the millimetre.
BuildCursor Moved(const BuildCursor& start, double right, double up);

/// A start turned about a point by so many steps of a track's rotation, anticlockwise.
BuildCursor TurnedAbout(const BuildCursor& start, WorldPoint middle, int steps);

/// "12.5, −3.1 cm": how far a start is moved to the right and up, in the user's unit.
std::string MoveText(const BuildCursor& from, const BuildCursor& to, const Units& units);

/// "22.5° left", for so many steps of a track's rotation, anticlockwise.
std::string TurnText(int steps);

/// Puts the current track's start there.
void PlaceStart(Design& design, EditState& edit, const BuildCursor& start);

/// Makes track 0..2 the one being edited, in Build mode.
void ChooseTrack(EditState& edit, int track);

/// Chooses all tracks: they move together, and rotation turns the room.
void ChooseAllTracks(EditState& edit);

/// Selects an element of the current track. Fault when there is none of that index.
void SelectElement(const Circuit& circuit, EditState& edit, int index);

/// Makes a run of the elements from where `before` had its run begin, or its selected element, to the one that is
/// selected now, where both are of the same track.
void ExtendSelection(EditState& edit, const EditState& before);

} // namespace pistaro

// Rules on where pieces lie: over each other, outside the room, too near to a wall or to another track.
#pragma once

#include "checks/checked_circuit.h"

namespace pistaro {

/// Two pieces that share more than a square centimetre; a bridge may cross one straight piece below it.
std::vector<Finding> FindOverlaps(const CheckedCircuit& circuit);
/// Pieces that reach out of the room, or into one of its pillars.
std::vector<Finding> FindPiecesOutside(const CheckedCircuit& circuit);
/// Pieces inside the room that are nearer than 5 cm to its wall.
std::vector<Finding> FindPiecesNearWalls(const CheckedCircuit& circuit);
/// Curves whose outer edge, over which cars slide, is nearer than 10 cm to another track.
std::vector<Finding> FindSlidesIntoTracks(const CheckedCircuit& circuit);

} // namespace pistaro

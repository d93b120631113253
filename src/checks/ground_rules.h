// Rules on where pieces lie: over each other, outside the room, too near to a wall or to another track.
#pragma once

#include "checks/checked_circuit.h"

namespace pistaro {

std::vector<Finding> FindOverlaps(const CheckedCircuit& circuit);
std::vector<Finding> FindPiecesOutside(const CheckedCircuit& circuit);
std::vector<Finding> FindPiecesNearWalls(const CheckedCircuit& circuit);
std::vector<Finding> FindSlidesIntoTracks(const CheckedCircuit& circuit);

} // namespace pistaro

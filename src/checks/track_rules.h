// Rules on the order of a track's pieces.
#pragma once

#include "checks/checked_circuit.h"

namespace pistaro {

std::vector<Finding> FindUnknownCodes(const CheckedCircuit& circuit);
/// Tracks of three pieces or more whose ends do not meet: a warning up to 2 cm and 3 degrees, which real track gives,
/// an error beyond.
std::vector<Finding> FindOpenTracks(const CheckedCircuit& circuit);
/// Joints of the two systems, whose tracks have different widths, without the adapter.
std::vector<Finding> FindUnconvertedJoints(const CheckedCircuit& circuit);
std::vector<Finding> FindReversedAdapters(const CheckedCircuit& circuit);
std::vector<Finding> FindOddChangeOvers(const CheckedCircuit& circuit);
/// Lanes as built that differ by more than 1 %.
std::vector<Finding> FindUnequalLanes(const CheckedCircuit& circuit);
/// Straight runs of more than 2.5 m that lead into a curve of their system's smallest radius.
std::vector<Finding> FindFastCorners(const CheckedCircuit& circuit);
/// Of lap counters, then of start sections: none on a track that has Scalextric pieces, or more than one.
std::vector<Finding> FindLapCounters(const CheckedCircuit& circuit);
std::vector<Finding> FindStartSections(const CheckedCircuit& circuit);

} // namespace pistaro

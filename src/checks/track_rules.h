// Rules on the order of a track's pieces.
#pragma once

#include "checks/checked_circuit.h"

namespace pistaro {

std::vector<Finding> FindUnknownCodes(const CheckedCircuit& circuit);
std::vector<Finding> FindOpenTracks(const CheckedCircuit& circuit);
std::vector<Finding> FindUnconvertedJoints(const CheckedCircuit& circuit);
std::vector<Finding> FindReversedAdapters(const CheckedCircuit& circuit);
std::vector<Finding> FindOddChangeOvers(const CheckedCircuit& circuit);
std::vector<Finding> FindUnequalLanes(const CheckedCircuit& circuit);
std::vector<Finding> FindFastCorners(const CheckedCircuit& circuit);
std::vector<Finding> FindLapCounters(const CheckedCircuit& circuit);
std::vector<Finding> FindStartSections(const CheckedCircuit& circuit);

} // namespace pistaro

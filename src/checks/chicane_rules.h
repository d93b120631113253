// Rules on chicanes: which of them belong together, and what stands between the two.
#pragma once

#include "checks/checked_circuit.h"

namespace pistaro {

std::vector<Finding> FindLoneChicanes(const CheckedCircuit& circuit);
std::vector<Finding> FindStrangersInChicanes(const CheckedCircuit& circuit);

} // namespace pistaro

// Rules on chicanes: which of them belong together, and what stands between the two.
#pragma once

#include "checks/checked_circuit.h"

namespace pistaro {

/// Chicanes without a second one to lead the lanes apart again, and chicane extensions outside a pair.
std::vector<Finding> FindLoneChicanes(const CheckedCircuit& circuit);
/// Pieces other than chicane extensions between the two chicanes of a pair.
std::vector<Finding> FindStrangersInChicanes(const CheckedCircuit& circuit);

} // namespace pistaro

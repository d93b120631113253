// Rules on what is owned and what must be bought. A user who has told of no owned piece is not told of any to buy.
#pragma once

#include "checks/checked_circuit.h"

namespace pistaro {

std::vector<Finding> FindUnownedPieces(const CheckedCircuit& circuit);
std::vector<Finding> FindUnusedSpecials(const CheckedCircuit& circuit);

} // namespace pistaro

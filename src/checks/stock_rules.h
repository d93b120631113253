// Rules on what is owned and what must be bought. They find nothing until the user has entered an owned piece.
#pragma once

#include "checks/checked_circuit.h"

namespace pistaro {

/// More pieces of a product than are owned: which, how many, at what price.
std::vector<Finding> FindUnownedPieces(const CheckedCircuit& circuit);
/// An owned special piece that is not used while a plain one of its size must be bought.
std::vector<Finding> FindUnusedSpecials(const CheckedCircuit& circuit);

} // namespace pistaro

// The table of rules by which designs are checked.
#pragma once

#include "checks/checked_circuit.h"
#include "checks/finding.h"

#include <array>
#include <span>

namespace pistaro {

/// A row of the table.
struct Rule {
    const char* Id;
    Severity Worst;   ///< the gravest that it finds
    const char* Text; ///< what it finds, in a few words
    const char* Why;  ///< why that matters, for the manual
    std::vector<Finding> (*Find)(const CheckedCircuit&);
};

/// All rules, in the order in which they are told.
std::span<const Rule> Rules();

} // namespace pistaro

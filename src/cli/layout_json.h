// Where every piece of the three tracks lies, as JSON.
#pragma once

#include "cli/json.h"
#include "model/circuit.h"

namespace pistaro {

Json LayoutJson(const Circuit& circuit);

} // namespace pistaro

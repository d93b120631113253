// Where every piece of the three tracks lies, as JSON.
#pragma once

#include "catalogue/catalogue.h"
#include "exchange/json.h"
#include "model/circuit.h"

namespace pistaro {

/// {"tracks":[...]}: each track's start, elements, end and gap, in cm and radians. An unknown code has neither corners
/// nor label and leaves the cursor where it was; an empty track has no gap.
Json LayoutJson(const Catalogue& catalogue, const Circuit& circuit);

} // namespace pistaro

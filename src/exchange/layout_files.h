// Where every piece lies, as files for other programs.
#pragma once

#include "catalogue/catalogue.h"
#include "model/circuit.h"

#include <string>

namespace pistaro {

/// The layout as one line of JSON; of one track alone (0..2) the list of tracks holds that one.
std::string LayoutJsonFile(const Catalogue& catalogue, const Circuit& circuit, int track);

/// A table of comma-separated values, UTF-8 with CR LF: a line of names, then a line a piece with its track and index,
/// its code and name, the cursor before and after it, and its corners 1 to 4; cm and radians, digits as in the JSON.
/// An unknown code has neither name nor corners.
std::string LayoutCsvFile(const Catalogue& catalogue, const Circuit& circuit, int track);

} // namespace pistaro

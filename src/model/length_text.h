// Lengths as sentences and tables tell them, in display units.
#pragma once

#include "model/view_settings.h"

#include <string>

namespace pistaro {

/// To a tenth of a millimetre, or a thousandth of an inch, without the unit: "812.36".
std::string FineLength(double centimetres, const Units& units);

/// To a millimetre, or a hundredth of an inch, with the unit: "17.5 cm".
std::string LengthText(double centimetres, const Units& units);

} // namespace pistaro

// Numbers with a fixed count of decimals, as measured figures are told.
#pragma once

#include <string>

namespace pistaro {

/// "12.50" for 12.5 with two decimals: always a point, whatever the desktop's language; no minus before a zero.
std::string FixedText(double value, int decimals);

} // namespace pistaro

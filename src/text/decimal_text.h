// Numbers for other programs' formats: plain decimals with a point, whatever the system's language.
#pragma once

#include <string>

namespace pistaro {

/// Appends a finite value with at most so many decimals, without zeros at its end and without a minus before zero.
void AppendDecimal(std::string& text, double value, int decimals);

} // namespace pistaro

// The PDF writer puts the time into its files, which would make each one another.
#pragma once

#include <string>

namespace pistaro {

/// A PDF without its creation date, with the offsets of its cross-reference table set to where the objects then are.
std::string WithoutDate(std::string pdf);

} // namespace pistaro

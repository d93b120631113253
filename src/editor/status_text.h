// The line that tells how the design stands.
#pragma once

#include "model/project.h"

#include <string>

namespace pistaro {

/// "Track 1 · 24 pieces · gap 0.4 cm · unsaved": the chosen track, its pieces, how far it is from closing in display
/// units, and whether the circuit has changes not yet saved. With all tracks chosen the pieces of all.
std::string StatusText(const Project& project);

} // namespace pistaro

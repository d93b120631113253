// The rows of the palette's special pieces and its search, of the tour and of the samples.
#pragma once

#include "commands/commands.h"

namespace pistaro {

void AddPaletteCommands(std::vector<Command>& rows, const Catalogue& catalogue);

} // namespace pistaro

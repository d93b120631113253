// The rows that came with the drawing as a place to work in: the view's, those of a piece under the pointer, and the
// window's looks.
#pragma once

#include "commands/commands.h"

namespace pistaro {

void AddCanvasCommands(std::vector<Command>& rows);

} // namespace pistaro

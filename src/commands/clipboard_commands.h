// The circuit on the clipboard, and pieces from it.
#pragma once

#include "commands/session.h"

namespace pistaro {

/// Puts a picture of the circuit (PNG and SVG) and the list of its pieces on the clipboard: of the current track, or of
/// each track a line when all are chosen.
void CopyCommand(Session& session);

/// Lays the pieces that a list on the clipboard names at the end of the current track; where that is closed and another
/// one empty, on that one after a question. Faults: it is no such list; the
/// track has no room for them.
void PasteCommand(Session& session);

} // namespace pistaro

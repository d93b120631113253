// The circuit on the clipboard, and pieces from it.
#pragma once

#include "commands/session.h"

namespace pistaro {

/// Puts a picture of pieces (PNG and SVG) and their list on the clipboard: of the selected ones where they are several,
/// else of the current track, or of each track a line when all are chosen.
void CopyCommand(Session& session);

/// Lays the pieces that a list on the clipboard names (after a question where some of its words name none) at the end
/// of the current track; where that is closed and another one empty, on that one after a question. On an empty track
/// they lie on free floor, and what this program copied is turned as it was. All of them are selected and in view, and
/// their user is told of those outside the room. Faults: it names no piece; the track has no room for them.
void PasteCommand(Session& session);

} // namespace pistaro

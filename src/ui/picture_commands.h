// The menu's work with pictures: the background, the saved drawing, and the design guide.
#pragma once

#include "ui/circuit_view.h"
#include "ui/workbench.h"

namespace pistaro {

/// Asks for a picture file and lays it behind the circuit. A cancelled dialog, or a fault because the file is no
/// picture, leaves the background that there was.
void SelectBackground(Workbench& workbench, CircuitView& view);

/// Writes the drawing as it is shown into the working directory as "track.bmp", over an older one. Faults of writing.
void SavePicture(const Project& project, CircuitView& view);

/// Writes the design guide while a dialog tells how far it is, and opens it. Faults: no working directory; a page that
/// cannot be written; no viewer.
void ShowGuide(Workbench& workbench, CircuitView& view);

} // namespace pistaro

// The commands that read and write pictures: the background, the saved drawing, and the design guide.
#pragma once

#include "commands/session.h"
#include "report/guide.h"

namespace pistaro {

/// Asks for a picture file and lays it behind the circuit. A cancelled dialog, or a fault because the file is no
/// picture, leaves the background that there was.
void SelectBackgroundCommand(Session& session);

/// Writes the drawing as it is shown into the working directory as "track.bmp", over an older one. Faults of writing.
void SavePictureCommand(Session& session);

/// Draws the guide's pictures as GIFs, the layout's so wide and high and over the background (if any). The catalogue
/// must outlive them.
GuidePictures GuidePicturesOf(const Catalogue& catalogue, int pixels, const std::optional<Picture>& background);

/// Draws the design guide in a job; at its end writes it into the working directory, tells where it is, asks whether to
/// view it, and opens it after either answer, as it always has. Faults: no working directory; a page that cannot be
/// written; no viewer.
void GuideCommand(Session& session);

} // namespace pistaro

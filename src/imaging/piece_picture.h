// The pictures of single pieces, for callers that know nothing of windows or Qt.
#pragma once

#include "catalogue/catalogue.h"
#include "imaging/picture_format.h"
#include "model/colour_scheme.h"
#include "model/view_settings.h"

#include <string>
#include <string_view>

namespace pistaro {

/// The piece that `code` names, alone in the view and entered from below, its outline centred: the middle of
/// that drawing with the code below it, as a picture file in that format. At the same width of
/// the view all pieces are drawn to one scale. Faults: no such piece; a picture that cannot be made.
std::string PiecePicture(const Catalogue& catalogue, std::string_view code, const ViewSettings& view,
                         const ColourScheme& colours, PictureFormat format);

} // namespace pistaro

// The pictures of single pieces, for callers that know nothing of windows or Qt.
#pragma once

#include "model/project.h"

#include <string>
#include <string_view>

namespace pistaro {

/// The piece that `code` names, alone in the project's view and entered from below, its outline centred: the middle of
/// that drawing with the code below it, as a picture file in a format that PictureFormatOf gives. At the same width of
/// the view all pieces are drawn to one scale. Faults: no such piece; a picture that cannot be made.
std::string PiecePicture(const Project& project, std::string_view code, const std::string& format);

} // namespace pistaro

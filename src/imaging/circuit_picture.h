// Pictures of circuits for callers that know nothing of windows or Qt.
#pragma once

#include "imaging/picture.h"
#include "imaging/picture_format.h"
#include "imaging/track_look.h"
#include "model/project.h"

#include <memory>
#include <optional>
#include <string>

namespace pistaro {

/// What drawing text needs, without a display: to be kept while pictures are made. Does nothing inside the designer,
/// which has it already.
class OffscreenGraphics {
public:
    OffscreenGraphics();
    ~OffscreenGraphics();
    OffscreenGraphics(const OffscreenGraphics&) = delete;
    OffscreenGraphics& operator=(const OffscreenGraphics&) = delete;

private:
    struct Application;
    std::unique_ptr<Application> application_;
};

inline constexpr int DefaultPicturePixels = 700;

/// The drawing as the designer shows it, `pixels` wide and high, over the background (if any), as a picture file in
/// that format, by its lines or as the tracks look. Fault: no memory for the picture.
std::string CircuitPicture(const Catalogue& catalogue, const Project& project, int pixels,
                           const std::optional<Picture>& background, PictureFormat format,
                           TrackLook look = TrackLook::Lines);

} // namespace pistaro

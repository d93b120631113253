// Pictures of circuits for callers that know nothing of windows or Qt.
#pragma once

#include "model/project.h"

#include <filesystem>
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

/// The picture format that a file's ending names: "bmp", "png", "gif" or "jpg". Fault for any other ending.
std::string PictureFormatOf(const std::filesystem::path& file);

inline constexpr std::size_t MostPictureBytes = 256 << 20; ///< no floor plan comes near it

/// A picture file that lies behind the drawing.
struct PictureBackground {
    std::string Bytes;
    std::string Name; ///< for faults
};

/// The drawing as the designer shows it, `pixels` wide and high, over the background (if any), as a picture file in
/// that format. Faults: no picture in the background, or no memory for the picture.
std::string CircuitPicture(Project& project, int pixels, const std::optional<PictureBackground>& background,
                           const std::string& format);

} // namespace pistaro

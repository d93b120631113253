// The design guide as files: every piece's picture, the layout's picture, and the page that shows them.
#pragma once

#include "model/project.h"
#include "model/prompts.h"

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace pistaro {

/// Who draws the guide's pictures. Both give the bytes of a GIF file, or a fault.
struct GuidePictures {
    std::function<std::string(const Project&, std::string_view code)> Piece;
    std::function<std::string(Project&)> Circuit;
};

/// Told before each picture: how many of them are done.
using GuideProgress = std::function<void(int done, int total)>;

/// A picture that could not be made or written; the page is then not written.
class PictureProblem : public std::runtime_error {
public:
    /// All that users are told.
    static constexpr const char* Told = "Problem with BMP2GIF.OCX!";

    PictureProblem(const std::string& file, const std::string& reason)
        : std::runtime_error(std::string(Told) + " " + file + " not written: " + reason) {}
};

/// Writes the 39 piece pictures, then the layout's picture, then the page into the project's working directory, and
/// gives their paths in that order. A failed piece picture leaves the project with the view of piece pictures: 250 cm
/// wide, without numbers. Faults: PictureProblem; no such folder; a page that cannot be written, which leaves the old
/// one.
std::vector<std::filesystem::path> WriteGuide(Project& project, const GuidePictures& pictures,
                                              const GuideProgress& progress);

/// The same for the window: tells where the guide is, asks whether to view it, and opens it after either answer, as it
/// always has.
void GuideCommand(Project& project, Prompts& prompts, const GuidePictures& pictures, const GuideProgress& progress);

} // namespace pistaro

// The design guide as files: every piece's picture, the layout's picture, and the page that shows them.
#pragma once

#include "catalogue/catalogue.h"
#include "model/job.h"
#include "model/project.h"

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
    std::function<std::string(const Project&)> Circuit;
};

/// A picture that could not be made or written; the page is then not written.
class PictureProblem : public std::runtime_error {
public:
    /// All that users are told.
    static constexpr const char* Told = "Problem with BMP2GIF.OCX!";

    PictureProblem(const std::string& file, const std::string& reason, bool ofPiece)
        : std::runtime_error(std::string(Told) + " " + file + " not written: " + reason), OfPiece(ofPiece) {}

    const bool OfPiece; ///< rather than of the layout
};

struct GuideFile {
    std::string Name;
    std::string Bytes;
    bool ShowsPiece = false;
};

/// Draws a picture of every piece of the catalogue, then the layout's, then makes the page: in memory, so that a guide
/// that cannot be drawn leaves the old one as it was. Throws PictureProblem, or Stopped.
std::vector<GuideFile> DrawGuide(const Catalogue& catalogue, const Project& project, const GuidePictures& pictures,
                                 const JobWatch& watch);

/// The file of the page. Fault where its folder, which is that of the pictures too, is not there.
std::filesystem::path GuidePageFile(const Preferences& preferences);

/// Puts the files into the working directory, the page last, and gives their paths. All are on disk under other names
/// before the first takes its place, so that one that cannot be written leaves the old guide whole. Throws
/// PictureProblem; faults: no such folder; a page that cannot be written.
std::vector<std::filesystem::path> WriteGuide(const Preferences& preferences, const std::vector<GuideFile>& files);

/// Gives the project the view of piece pictures, 250 cm wide and without numbers, in which a failed one leaves it.
void SetPieceView(Project& project);

} // namespace pistaro

#include "report/guide.h"

#include "model/working_directory.h"
#include "platform/fault.h"
#include "platform/files.h"
#include "report/guide_page.h"

#include <list>

namespace pistaro {

namespace {

constexpr float PieceWindowWidth = 250; ///< cm

/// Draws pictures one after the other.
class GuideDrawing {
public:
    GuideDrawing(int pictures, const JobWatch& watch) : pictures_(pictures), watch_(watch) {}

    template <typename Draw>
    void Add(const std::string& name, bool showsPiece, Draw draw) {
        watch_.Step(static_cast<int>(files_.size()), pictures_);
        try {
            files_.push_back({name, draw(), showsPiece});
        } catch (const std::exception& reason) {
            throw PictureProblem(name, reason.what(), showsPiece);
        }
    }

    std::vector<GuideFile> With(const std::string& page) && {
        watch_.Step(pictures_, pictures_);
        files_.push_back({GuidePageName, page, false});
        return std::move(files_);
    }

private:
    int pictures_;
    const JobWatch& watch_;
    std::vector<GuideFile> files_;
};

/// Does something with a file of the guide on disk. Only a picture's fault is a problem of its own.
template <typename Work>
void NamingPicture(const GuideFile& file, Work work) {
    try {
        work();
    } catch (const std::exception& reason) {
        if (file.Name == GuidePageName) throw;
        throw PictureProblem(file.Name, reason.what(), file.ShowsPiece);
    }
}

} // namespace

void SetPieceView(Project& project) {
    project.Design.View.Width = PieceWindowWidth;
    project.EditState.ShowNumbers = false;
}

std::vector<GuideFile> DrawGuide(const Catalogue& catalogue, const Project& project, const GuidePictures& pictures,
                                 const JobWatch& watch) {
    GuideDrawing drawing(catalogue.Count() + 1, watch);
    Project pieces = project;
    SetPieceView(pieces);
    for (const CatalogueEntry& piece : catalogue)
        drawing.Add(PiecePictureName(piece.Code), true, [&] { return pictures.Piece(pieces, piece.Code); });
    drawing.Add(TrackPictureName, false, [&] { return pictures.Circuit(project); });
    return std::move(drawing).With(GuidePage(project.Design.Circuit, ProjectName(project.EditState)));
}

std::filesystem::path GuidePageFile(const Preferences& preferences) {
    std::filesystem::path file = PathFromText(InWorkingDirectory(preferences, GuidePageName));
    std::error_code unreachable;
    if (!std::filesystem::is_directory(file.parent_path(), unreachable)) {
        throw Fault("Path not found", preferences.WorkingDirectory);
    }
    return file;
}

std::vector<std::filesystem::path> WriteGuide(const Preferences& preferences, const std::vector<GuideFile>& files) {
    GuidePageFile(preferences);
    std::vector<std::filesystem::path> paths;
    std::list<WrittenFile> written; // all of them before the first takes its place
    for (const GuideFile& file : files) {
        paths.push_back(PathFromText(InWorkingDirectory(preferences, file.Name)));
        NamingPicture(file, [&] { written.emplace_back(paths.back(), file.Bytes); });
    }
    for (const GuideFile& file : files) {
        NamingPicture(file, [&] { written.front().TakePlace(); });
        written.pop_front();
    }
    return paths;
}

} // namespace pistaro

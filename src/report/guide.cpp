// Pictures first: a page without them would be worth nothing.
#include "report/guide.h"

#include "model/working_directory.h"
#include "platform/fault.h"
#include "platform/files.h"
#include "report/guide_page.h"
#include "report/viewer.h"

namespace pistaro {

namespace {

constexpr int PictureCount = CatalogueCount + 1;
constexpr float PieceWindowWidth = 250; ///< cm

/// The file of the page. Fault where its folder, which is that of the pictures too, is not there.
std::filesystem::path PageFile(const Project& project) {
    std::filesystem::path file = PathFromText(InWorkingDirectory(project, GuidePageName));
    std::error_code unreachable;
    if (!std::filesystem::is_directory(file.parent_path(), unreachable)) {
        throw Fault("Path not found", project.WorkingDirectory);
    }
    return file;
}

/// Writes the pictures of a guide one after the other.
class PictureWriter {
public:
    PictureWriter(const Project& project, const GuideProgress& progress) : project_(project), progress_(progress) {}

    template <typename Make>
    void Write(const std::string& name, Make make) {
        progress_(static_cast<int>(written_.size()), PictureCount);
        const std::filesystem::path file = PathFromText(InWorkingDirectory(project_, name));
        try {
            ReplaceFile(file, make());
        } catch (const std::exception& reason) {
            throw PictureProblem(name, reason.what());
        }
        written_.push_back(file);
    }

    std::vector<std::filesystem::path> Written() && { return std::move(written_); }

private:
    const Project& project_;
    const GuideProgress& progress_;
    std::vector<std::filesystem::path> written_;
};

/// The view of piece pictures.
void SetPieceView(Project& project) {
    project.View.Width = PieceWindowWidth;
    project.ShowNumbers = false;
}

/// The project itself gets the pieces' view only when one fails: in between, the window may have to draw it.
void WritePiecePictures(Project& project, const GuidePictures& pictures, PictureWriter& writer) {
    Project shown = project;
    SetPieceView(shown);
    try {
        for (int row = 0; row < CatalogueCount; ++row) {
            const std::string_view code = Entry(shown.Pieces, row).Code;
            writer.Write(PiecePictureName(code), [&] { return pictures.Piece(shown, code); });
        }
    } catch (const PictureProblem&) {
        SetPieceView(project);
        throw;
    }
}

} // namespace

std::vector<std::filesystem::path> WriteGuide(Project& project, const GuidePictures& pictures,
                                              const GuideProgress& progress) {
    const std::filesystem::path page = PageFile(project);
    PictureWriter writer(project, progress);
    WritePiecePictures(project, pictures, writer);
    writer.Write(TrackPictureName, [&] { return pictures.Circuit(project); });
    progress(PictureCount, PictureCount);
    ReplaceFile(page, GuidePage(project));
    std::vector<std::filesystem::path> written = std::move(writer).Written();
    written.push_back(page);
    return written;
}

void GuideCommand(Project& project, Prompts& prompts, const GuidePictures& pictures, const GuideProgress& progress) {
    try {
        WriteGuide(project, pictures, progress);
    } catch (const PictureProblem&) {
        prompts.Tell({Icon::Exclamation, PictureProblem::Told});
        return;
    }
    const std::string page = project.WorkingDirectory + GuidePageName;
    prompts.Ask("Guide written to " + page + "!\nView now?", Buttons::YesNo);
    OpenInViewer(page);
}

} // namespace pistaro

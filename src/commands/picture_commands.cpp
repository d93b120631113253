#include "commands/picture_commands.h"

#include "imaging/circuit_picture.h"
#include "imaging/piece_picture.h"
#include "model/working_directory.h"
#include "platform/files.h"
#include "report/guide_page.h"
#include "report/viewer.h"

namespace pistaro {

namespace {

constexpr const char* SavedPictureName = "track.bmp";

void TellProblem(Session& session, bool ofPiece) {
    if (ofPiece) SetPieceView(session.Project);
    session.Prompts.Tell({Icon::Exclamation, PictureProblem::Told});
}

/// Into the folder that was the working directory when the guide was begun.
void FinishGuide(Session& session, const Preferences& preferences, const std::vector<GuideFile>& files) {
    try {
        WriteGuide(preferences, files);
    } catch (const PictureProblem& problem) {
        return TellProblem(session, problem.OfPiece);
    }
    const std::string page = preferences.WorkingDirectory + GuidePageName;
    session.Prompts.Ask("Guide written to " + page + "!\nView now?", Buttons::YesNo);
    OpenInViewer(page);
}

} // namespace

void SelectBackgroundCommand(Session& session) {
    const auto file = session.Prompts.ChooseFile({.Saving = false,
                                                  .Title = "Select Background Image (334 x 334 pixel)",
                                                  .Filter = "All files (*.bmp,*.gif,*.jpg)|*.bmp;*.gif;*.jpg|"
                                                            "Windows Bitmap (*.bmp)|*.bmp|GIF (*.gif)|*.gif|"
                                                            "JPEG File Interchange Format (*.jpg)|*.jpg",
                                                  .DefaultName = "",
                                                  .Folder = session.Project.Preferences.WorkingDirectory});
    if (file) session.Background = Picture::Read(*file);
}

void SavePictureCommand(Session& session) {
    const std::string file = InWorkingDirectory(session.Project.Preferences, SavedPictureName);
    ReplaceFile(PathFromText(file), CircuitPicture(session.Catalogue, session.Project, session.PicturePixels,
                                                   session.Background, PictureFormat::Bmp));
}

GuidePictures GuidePicturesOf(const Catalogue& catalogue, int pixels, const std::optional<Picture>& background) {
    return {.Piece =
                [&catalogue](const Project& project, std::string_view code) {
                    return PiecePicture(catalogue, code, project.Design.View, project.Preferences.Colours,
                                        PictureFormat::Gif);
                },
            .Circuit =
                [&catalogue, pixels, background](const Project& project) {
                    return CircuitPicture(catalogue, project, pixels, background, PictureFormat::Gif);
                }};
}

void GuideCommand(Session& session) {
    GuidePageFile(session.Project.Preferences); // a folder that is not there is told before forty pictures are drawn
    const Catalogue& catalogue = session.Catalogue;
    const GuidePictures pictures = GuidePicturesOf(catalogue, session.PicturePixels, session.Background);
    const auto draw = [&session, &catalogue, project = session.Project, pictures](const JobWatch& watch) -> JobEnd {
        try {
            return
                [&session, preferences = project.Preferences, files = DrawGuide(catalogue, project, pictures, watch)] {
                    FinishGuide(session, preferences, files);
                };
        } catch (const PictureProblem& problem) {
            return [&session, ofPiece = problem.OfPiece] { TellProblem(session, ofPiece); };
        }
    };
    session.StartJob({"Drawing the guide", "The guide is being drawn.", draw});
}

} // namespace pistaro

// The core's functions joined to the drawing area and the file dialog.
#include "ui/picture_commands.h"

#include "imaging/circuit_picture.h"
#include "imaging/image_file.h"
#include "imaging/piece_picture.h"
#include "model/working_directory.h"
#include "platform/platform.h"
#include "report/guide.h"

#include <QProgressDialog>

namespace pistaro {

namespace {

constexpr const char* SavedPictureName = "track.bmp";

} // namespace

void SelectBackground(Workbench& workbench, CircuitView& view) {
    const auto file = workbench.Words.ChooseFile({.Saving = false,
                                                  .Title = "Select Background Image (334 x 334 pixel)",
                                                  .Filter = "All files (*.bmp,*.gif,*.jpg)|*.bmp;*.gif;*.jpg|"
                                                            "Windows Bitmap (*.bmp)|*.bmp|GIF (*.gif)|*.gif|"
                                                            "JPEG File Interchange Format (*.jpg)|*.jpg",
                                                  .DefaultName = "",
                                                  .Folder = workbench.Design.WorkingDirectory});
    if (file) view.SetBackground(DecodeImage(ReadFile(*file, MostPictureBytes), TextFromPath(*file)));
}

void SavePicture(const Project& project, CircuitView& view) {
    ReplaceFile(PathFromText(InWorkingDirectory(project, SavedPictureName)), EncodeImage(view.PlainPicture(), "bmp"));
}

void ShowGuide(Workbench& workbench, CircuitView& view) {
    QProgressDialog progress("Drawing the pictures of the guide…", QString(), 0, 0, view.window());
    progress.setObjectName("frmProgress");
    progress.setWindowTitle("Design Guide");
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(0);
    const auto show = [&](int done, int total) {
        progress.setMaximum(total);
        progress.setValue(done); // handles waiting events, so that the window stays alive
    };
    const GuidePictures pictures{
        .Piece = [](const Project& design, std::string_view code) { return PiecePicture(design, code, "gif"); },
        .Circuit = [&](Project&) { return EncodeImage(view.PlainPicture(), "gif"); }};
    GuideCommand(workbench.Design, workbench.Words, pictures, show);
}

} // namespace pistaro

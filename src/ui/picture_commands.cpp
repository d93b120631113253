// The core's functions joined to the drawing area and the file dialog.
#include "ui/picture_commands.h"

#include "imaging/circuit_picture.h"
#include "imaging/image_file.h"
#include "imaging/piece_picture.h"
#include "model/working_directory.h"
#include "platform/files.h"
#include "report/guide.h"

#include <QCloseEvent>
#include <QProgressDialog>

namespace pistaro {

namespace {

constexpr const char* SavedPictureName = "track.bmp";

/// Stays until the guide is written, whatever the user closes: no other command may run till then.
class GuideProgressDialog : public QProgressDialog {
public:
    explicit GuideProgressDialog(QWidget* window)
        : QProgressDialog("Drawing the pictures of the guide…", QString(), 0, 0, window) {
        setObjectName("frmProgress");
        setWindowTitle("Design Guide");
        setWindowModality(Qt::WindowModal);
        setMinimumDuration(0);
    }

    void reject() override {}

protected:
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

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
    GuideProgressDialog progress(view.window());
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

// The start-up sequence.
#include "editor/start_up.h"

#include "platform/files.h"
#include "platform/places.h"
#include "storage/settings_file.h"

namespace pistaro {

namespace {

void InstallSettings(const std::filesystem::path& path) {
    std::error_code reportedByTheWrite;
    std::filesystem::create_directories(path.parent_path(), reportedByTheWrite);
    ReplaceFile(path, InitialSettingsBytes());
    const std::filesystem::path workingDirectory = PathFromText(InitialWorkingDirectory());
    std::error_code noFolderYet; // the user may choose another one with the first save
    std::filesystem::create_directories(workingDirectory, noFolderYet);
    CopySamples(InstalledFolder() / "samples", workingDirectory);
}

DesignerStart StartWithout(const std::exception& fault) {
    const std::string text = std::string(fault.what()) + "\nPistaro goes on with its initial settings and saves none.";
    DesignerStart start{StartUp(InitialSettings()), {{Icon::Exclamation, text}}};
    start.Design.WorkingDirectory = InitialWorkingDirectory();
    return start;
}

} // namespace

void CopySamples(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::error_code nothingToCopyOrNoRoom;
    std::filesystem::create_directories(to, nothingToCopyOrNoRoom);
    for (const auto& entry : std::filesystem::directory_iterator(from, nothingToCopyOrNoRoom)) {
        const auto target = to / entry.path().filename();
        if (entry.is_directory(nothingToCopyOrNoRoom)) {
            CopySamples(entry.path(), target);
        } else if (!std::filesystem::exists(target, nothingToCopyOrNoRoom)) {
            std::filesystem::copy_file(entry.path(), target, nothingToCopyOrNoRoom);
        }
    }
}

DesignerStart StartDesigner(const std::filesystem::path& settingsPath) {
    try {
        std::error_code unreadable;
        if (!std::filesystem::exists(settingsPath, unreadable) && !unreadable) InstallSettings(settingsPath);
        const Settings settings = ReadSettings(settingsPath);
        DesignerStart start{StartUp(settings), settings.Messages};
        start.Design.SettingsPath = settingsPath;
        return start;
    } catch (const std::exception& fault) {
        return StartWithout(fault);
    }
}

} // namespace pistaro

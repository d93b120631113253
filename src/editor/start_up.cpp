#include "editor/start_up.h"

#include "platform/fault.h"
#include "platform/files.h"
#include "platform/places.h"
#include "platform/temporary_files.h"
#include "storage/settings_file.h"

namespace pistaro {

namespace {

void InstallSettings(const Catalogue& catalogue, const std::filesystem::path& path) {
    std::error_code reportedByTheWrite;
    std::filesystem::create_directories(path.parent_path(), reportedByTheWrite);
    ReplaceFile(path, InitialSettingsBytes(catalogue));
    const std::filesystem::path workingDirectory = PathFromText(InitialWorkingDirectory());
    if (workingDirectory.empty()) return;
    std::error_code noFolderYet; // the user may choose another one with the first save
    std::filesystem::create_directories(workingDirectory, noFolderYet);
    CopySamples(InstalledFolder() / "samples", workingDirectory);
}

/// Sweeps the folders that this start may write to.
void Sweep(const std::filesystem::path& settingsPath, const Preferences& preferences) {
    std::error_code unknown;
    SweepTemporaries(std::filesystem::absolute(settingsPath, unknown).parent_path());
    SweepTemporaries(PathFromText(preferences.WorkingDirectory));
}

DesignerStart StartWithout(const Catalogue& catalogue, const std::exception& fault) {
    const std::string text = std::string(fault.what()) + "\nPistaro goes on with its initial settings and saves none.";
    DesignerStart start{StartUp(InitialSettings(catalogue)), {}, {{Icon::Exclamation, text}}};
    start.Project.Preferences.WorkingDirectory = InitialWorkingDirectory();
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

DesignerStart StartDesigner(const Catalogue& catalogue, const std::filesystem::path& settingsPath) {
    try {
        if (settingsPath.empty()) throw Fault("Path not found", "there is no home folder to keep settings in");
        std::error_code unreadable;
        if (!std::filesystem::exists(settingsPath, unreadable) && !unreadable) InstallSettings(catalogue, settingsPath);
        const Settings settings = ReadSettings(catalogue, settingsPath);
        Sweep(settingsPath, settings.Preferences);
        return {StartUp(settings), settingsPath, settings.Messages};
    } catch (const std::exception& fault) {
        return StartWithout(catalogue, fault);
    }
}

} // namespace pistaro

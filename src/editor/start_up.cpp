#include "editor/start_up.h"

#include "platform/fault.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "platform/places.h"
#include "platform/temporary_files.h"
#include "storage/settings_file.h"

#include <algorithm>

namespace pistaro {

namespace {

constexpr std::size_t LargestSample = std::size_t{64} << 20;

/// Gives what is to be told: samples that cannot be put in place keep nobody from working.
std::vector<Message> InstallSamples() {
    const std::filesystem::path workingDirectory = PathFromText(InitialWorkingDirectory());
    if (workingDirectory.empty()) return {};
    try {
        MakeFolders(workingDirectory);
        CopySamples(InstalledFolder() / "samples", workingDirectory);
        return {};
    } catch (const std::exception& fault) {
        return {{Icon::Exclamation, std::string(fault.what()) + "\nThe samples and the manual are not all in place."}};
    }
}

void InstallSettings(const Catalogue& catalogue, const std::filesystem::path& path) {
    if (path.has_parent_path()) MakeFolders(path.parent_path());
    ReplaceFile(path, InitialSettingsBytes(catalogue));
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
    MakeFolders(to);
    std::error_code nothingToCopy;
    for (const auto& entry : std::filesystem::directory_iterator(from, nothingToCopy)) {
        const auto target = to / entry.path().filename();
        std::error_code toldByTheCopy;
        if (entry.is_directory(toldByTheCopy)) {
            CopySamples(entry.path(), target);
        } else if (!std::filesystem::exists(target, toldByTheCopy)) {
            ReplaceFile(target, ReadFile(entry.path(), LargestSample));
        }
    }
}

std::vector<std::filesystem::path> SamplesIn(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> samples;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(folder, none)) {
        if (entry.path().extension() == ".trk") samples.push_back(entry.path());
    }
    std::ranges::sort(samples);
    return samples;
}

std::filesystem::path SampleFolder() {
    for (const std::filesystem::path& place : {InstalledFolder(), CheckoutFolder()}) {
        if (!place.empty() && !SamplesIn(place / "samples").empty()) return place / "samples";
    }
    return {};
}

DesignerStart StartDesigner(const Catalogue& catalogue, const std::filesystem::path& settingsPath) {
    try {
        if (settingsPath.empty()) throw Fault("Path not found", "there is no home folder to keep settings in");
        std::error_code unreadable;
        std::vector<Message> messages;
        if (!std::filesystem::exists(settingsPath, unreadable) && !unreadable) {
            InstallSettings(catalogue, settingsPath);
            messages = InstallSamples();
        }
        const Settings settings = ReadSettings(catalogue, settingsPath);
        Sweep(settingsPath, settings.Preferences);
        messages.insert(messages.end(), settings.Messages.begin(), settings.Messages.end());
        return {StartUp(settings), settingsPath, messages};
    } catch (const std::exception& fault) {
        return StartWithout(catalogue, fault);
    }
}

} // namespace pistaro

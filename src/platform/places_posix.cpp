// Places on Linux and its kin.
#include "platform/places.h"

#include <cstdlib>
#include <fstream>
#include <string>

namespace pistaro {

namespace {

/// The folder that a variable of the environment names; one that begins in the current folder does not count.
std::filesystem::path FolderIn(const char* name) {
    const char* const value = std::getenv(name);
    const std::filesystem::path folder = value != nullptr ? value : "";
    return folder.is_absolute() ? folder : std::filesystem::path();
}

std::filesystem::path InHome(const std::filesystem::path& inside) {
    const std::filesystem::path home = FolderIn("HOME");
    return home.empty() ? home : home / inside;
}

/// A place that a variable names, or its usual one in the home folder; empty where there is neither.
std::filesystem::path PlaceIn(const char* variable, const char* inHome) {
    const std::filesystem::path configured = FolderIn(variable);
    return configured.empty() ? InHome(inHome) : configured;
}

std::filesystem::path ConfigurationFolder() { return PlaceIn("XDG_CONFIG_HOME", ".config"); }

std::filesystem::path ProgramFolder() {
    std::error_code unknown;
    return std::filesystem::read_symlink("/proc/self/exe", unknown).parent_path();
}

} // namespace

std::filesystem::path SettingsPath() {
    const std::filesystem::path folder = ConfigurationFolder();
    return folder.empty() ? folder : folder / "pistaro" / SettingsName;
}

std::filesystem::path RecentPath() {
    const std::filesystem::path folder = ConfigurationFolder();
    return folder.empty() ? folder : folder / "pistaro" / "recent";
}

std::filesystem::path WindowSettingsPath() {
    const std::filesystem::path folder = ConfigurationFolder();
    return folder.empty() ? folder : folder / "pistaro" / "window.ini";
}

std::filesystem::path RecoveryFolder() {
    const std::filesystem::path folder = PlaceIn("XDG_DATA_HOME", ".local/share");
    return folder.empty() ? folder : folder / "pistaro" / "recovery";
}

std::filesystem::path DocumentsFolder() {
    const std::filesystem::path configuration = ConfigurationFolder();
    if (configuration.empty()) return {};
    // The desktop keeps the folder's name in the user's language: XDG_DOCUMENTS_DIR="$HOME/Dokumente"
    std::ifstream folders(configuration / "user-dirs.dirs");
    const std::string key = "XDG_DOCUMENTS_DIR=\"";
    const std::string home = "$HOME";
    for (std::string line; std::getline(folders, line);) {
        if (!line.starts_with(key) || !line.ends_with('"')) continue;
        const std::string folder = line.substr(key.size(), line.size() - key.size() - 1);
        if (!folder.starts_with(home)) return folder;
        return InHome(std::filesystem::path(folder.substr(home.size())).relative_path());
    }
    return InHome("Documents");
}

std::filesystem::path InstalledFolder() { return ProgramFolder().parent_path() / "share" / "pistaro"; }

std::filesystem::path CheckoutFolder() {
    const std::filesystem::path folder = ProgramFolder().parent_path().parent_path();
    std::error_code unknown;
    return std::filesystem::exists(folder / "CMakePresets.json", unknown) ? folder : std::filesystem::path();
}

} // namespace pistaro

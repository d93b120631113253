// Places on Linux and its kin.
#include "platform/places.h"

#include <cstdlib>
#include <fstream>
#include <string>

namespace pistaro {

namespace {

std::string Environment(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::filesystem::path Home() { return Environment("HOME"); }

std::filesystem::path ConfigurationFolder() {
    const std::string configured = Environment("XDG_CONFIG_HOME");
    return configured.empty() ? Home() / ".config" : std::filesystem::path(configured);
}

std::filesystem::path ProgramFolder() {
    std::error_code unknown;
    return std::filesystem::read_symlink("/proc/self/exe", unknown).parent_path();
}

} // namespace

std::filesystem::path SettingsPath() { return ConfigurationFolder() / "pistaro" / SettingsName; }

std::filesystem::path DocumentsFolder() {
    // The desktop keeps the folder's name in the user's language: XDG_DOCUMENTS_DIR="$HOME/Dokumente"
    std::ifstream folders(ConfigurationFolder() / "user-dirs.dirs");
    const std::string key = "XDG_DOCUMENTS_DIR=\"";
    const std::string home = "$HOME";
    for (std::string line; std::getline(folders, line);) {
        if (!line.starts_with(key) || !line.ends_with('"')) continue;
        std::string folder = line.substr(key.size(), line.size() - key.size() - 1);
        if (folder.starts_with(home)) folder.replace(0, home.size(), Home().string());
        return folder;
    }
    return Home() / "Documents";
}

std::filesystem::path InstalledFolder() { return ProgramFolder().parent_path() / "share" / "pistaro"; }

std::filesystem::path CheckoutFolder() {
    const std::filesystem::path folder = ProgramFolder().parent_path().parent_path();
    std::error_code unknown;
    return std::filesystem::exists(folder / "CMakePresets.json", unknown) ? folder : std::filesystem::path();
}

} // namespace pistaro

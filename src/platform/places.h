// Where the system keeps what belongs to the program and to its user.
#pragma once

#include <filesystem>

namespace pistaro {

inline constexpr const char* SettingsName = "corvel.ini";

/// Where the settings file stands: the Windows directory (%APPDATA%\Pistaro where an ordinary user cannot write there),
/// elsewhere $XDG_CONFIG_HOME/pistaro or ~/.config/pistaro. Empty for who has no home.
std::filesystem::path SettingsPath();

/// Where unsaved work is kept: $XDG_DATA_HOME/pistaro/recovery or ~/.local/share/pistaro/recovery, on Windows
/// %LOCALAPPDATA%\Pistaro\recovery. Empty for who has no home.
std::filesystem::path RecoveryFolder();

/// Where the names of the circuits are kept that were opened last: beside the settings file of a user, on Windows in
/// %APPDATA%\Pistaro. Empty for who has no home.
std::filesystem::path RecentPath();

/// Where the window keeps its own looks, place and size: window.ini beside the settings file's usual place, on Windows
/// in %APPDATA%\Pistaro. Empty for who has no home.
std::filesystem::path WindowSettingsPath();

/// The user's documents folder; empty for who has no home.
std::filesystem::path DocumentsFolder();

/// The folder that holds what is installed with the program: its samples, its manual and its initial settings.
std::filesystem::path InstalledFolder();

/// The folder of the checkout, for a program that runs where it was built: in a folder of the checkout's build folder.
/// Empty for any other.
std::filesystem::path CheckoutFolder();

} // namespace pistaro

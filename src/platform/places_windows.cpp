// Places on Windows. Wide functions throughout: paths may hold any character.
#include "platform/places.h"

#include <windows.h>

#include <knownfolders.h>
#include <shlobj.h>

#include <array>
#include <string>

namespace pistaro {

namespace {

std::filesystem::path WindowsFolder() {
    std::array<wchar_t, MAX_PATH + 1> buffer{};
    const UINT length = ::GetWindowsDirectoryW(buffer.data(), static_cast<UINT>(buffer.size()));
    return std::wstring(buffer.data(), length);
}

std::filesystem::path KnownFolder(REFKNOWNFOLDERID id) {
    PWSTR found = nullptr;
    std::filesystem::path folder;
    if (SUCCEEDED(::SHGetKnownFolderPath(id, KF_FLAG_CREATE, nullptr, &found))) folder = found;
    ::CoTaskMemFree(found);
    return folder;
}

bool CanMakeFilesIn(const std::filesystem::path& folder) {
    const std::filesystem::path probe = folder / ("corvel-" + std::to_string(::GetCurrentProcessId()) + ".tmp");
    const HANDLE file =
        ::CreateFileW(probe.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    return file != INVALID_HANDLE_VALUE && ::CloseHandle(file) != 0;
}

} // namespace

std::filesystem::path SettingsPath() {
    const std::filesystem::path shared = WindowsFolder() / SettingsName;
    if (::GetFileAttributesW(shared.c_str()) != INVALID_FILE_ATTRIBUTES || CanMakeFilesIn(shared.parent_path()))
        return shared;
    const std::filesystem::path own = KnownFolder(FOLDERID_RoamingAppData);
    return own.empty() ? own : own / "Pistaro" / SettingsName;
}

std::filesystem::path RecentPath() {
    const std::filesystem::path own = KnownFolder(FOLDERID_RoamingAppData);
    return own.empty() ? own : own / "Pistaro" / "recent";
}

std::filesystem::path WindowSettingsPath() {
    const std::filesystem::path folder = KnownFolder(FOLDERID_RoamingAppData);
    return folder.empty() ? folder : folder / "Pistaro" / "window.ini";
}

std::filesystem::path RecoveryFolder() {
    const std::filesystem::path folder = KnownFolder(FOLDERID_LocalAppData);
    return folder.empty() ? folder : folder / "Pistaro" / "recovery";
}

std::filesystem::path DocumentsFolder() { return KnownFolder(FOLDERID_Documents); }

std::filesystem::path InstalledFolder() {
    std::array<wchar_t, 32768> buffer{};
    const DWORD length = ::GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
    return std::filesystem::path(std::wstring(buffer.data(), length)).parent_path();
}

std::filesystem::path CheckoutFolder() {
    const std::filesystem::path folder = InstalledFolder().parent_path().parent_path();
    std::error_code unknown;
    return std::filesystem::exists(folder / "CMakePresets.json", unknown) ? folder : std::filesystem::path();
}

} // namespace pistaro

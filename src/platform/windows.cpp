// The operating system's half for Windows. Wide functions throughout: paths may hold any character.
#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/viewer_command.h"

#include <windows.h>

#include <knownfolders.h>
#include <shellapi.h>
#include <shlobj.h>

#include <array>
#include <cstdio>

#undef ReplaceFile // windows.h would rename ours

namespace pistaro {

namespace {

constexpr const wchar_t* SettingsName = L"corvel.ini";

std::wstring WideFromText(std::string_view utf8) { return PathFromText(utf8).wstring(); }

std::string TextFromWide(const std::wstring& wide) { return TextFromPath(std::filesystem::path(wide)); }

Fault FileFault(DWORD error, const std::filesystem::path& path) {
    const std::string name = TextFromPath(path);
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
        return {"File not found", name};
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_NETPATH:
        return {"Path not found", name};
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_WRITE_PROTECT:
        return {"Permission denied", name};
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return {"Disk full", name};
    default:
        return {"Path/File access error", name + ": error " + std::to_string(error)};
    }
}

bool IsFolder(const std::filesystem::path& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

Fault FolderFault(const std::filesystem::path& path) {
    return {"Path/File access error", TextFromPath(path) + ": is a folder"};
}

/// An open file, closed when it goes out of scope.
class Handle {
public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() { Close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    HANDLE Get() const { return handle_; }
    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    bool Close() {
        const HANDLE open = handle_;
        handle_ = INVALID_HANDLE_VALUE;
        return open == INVALID_HANDLE_VALUE || ::CloseHandle(open) != 0;
    }

private:
    HANDLE handle_;
};

bool WriteAll(HANDLE file, std::string_view bytes) {
    while (!bytes.empty()) {
        constexpr std::size_t most = 1 << 24;
        DWORD written = 0;
        if (::WriteFile(file, bytes.data(), static_cast<DWORD>(std::min(bytes.size(), most)), &written, nullptr) == 0) {
            return false;
        }
        bytes.remove_prefix(written);
    }
    return true;
}

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
    const Handle file(
        ::CreateFileW(probe.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    return file.IsOpen();
}

/// The default value of a key under HKEY_CLASSES_ROOT; empty when the key is missing.
std::wstring ClassesValue(const std::wstring& key) {
    DWORD bytes = 0;
    if (::RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, nullptr, &bytes) !=
        ERROR_SUCCESS) {
        return {};
    }
    std::wstring value(bytes / sizeof(wchar_t), L'\0');
    if (::RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, value.data(), &bytes) !=
        ERROR_SUCCESS) {
        return {};
    }
    return value.c_str(); // up to its terminating NUL
}

std::wstring Quoted(const std::wstring& word) {
    return word.find(L' ') == std::wstring::npos ? word : L'"' + word + L'"';
}

} // namespace

std::vector<std::string> CommandLineArguments(int, char**) {
    int count = 0;
    LPWSTR* const words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i)
        arguments.push_back(TextFromWide(words[i]));
    ::LocalFree(words);
    return arguments;
}

void UseConsoleOfParent() {
    // Pipes and files are inherited; only a console has to be asked for.
    if (::GetStdHandle(STD_OUTPUT_HANDLE) != nullptr || ::AttachConsole(ATTACH_PARENT_PROCESS) == 0) return;
    ::SetConsoleOutputCP(CP_UTF8);
    (void)std::freopen("CONOUT$", "w", stdout);
    (void)std::freopen("CONOUT$", "w", stderr);
}

std::filesystem::path PathFromText(std::string_view utf8) { return std::u8string(utf8.begin(), utf8.end()); }

std::string TextFromPath(const std::filesystem::path& path) {
    const std::u8string utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

bool IsFolderSeparator(char c) { return c == '\\' || c == '/'; }

char FolderSeparator() { return '\\'; }

std::filesystem::path SettingsPath() {
    const std::filesystem::path shared = WindowsFolder() / SettingsName;
    if (std::filesystem::exists(shared) || CanMakeFilesIn(shared.parent_path())) return shared;
    return KnownFolder(FOLDERID_RoamingAppData) / "Pistaro" / SettingsName;
}

std::filesystem::path DocumentsFolder() { return KnownFolder(FOLDERID_Documents); }

std::filesystem::path InstalledFolder() {
    std::array<wchar_t, 32768> buffer{};
    const DWORD length = ::GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
    return std::filesystem::path(std::wstring(buffer.data(), length)).parent_path();
}

std::string ReadFile(const std::filesystem::path& path, std::size_t atMost) {
    if (IsFolder(path)) throw FolderFault(path);
    const Handle file(::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                    nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file.IsOpen()) throw FileFault(::GetLastError(), path);
    std::string bytes;
    std::string buffer(65536, '\0');
    for (;;) {
        DWORD count = 0;
        if (::ReadFile(file.Get(), buffer.data(), static_cast<DWORD>(buffer.size()), &count, nullptr) == 0) {
            throw FileFault(::GetLastError(), path);
        }
        if (count == 0) return bytes;
        bytes.append(buffer, 0, count);
        if (bytes.size() > atMost) throw Fault("File too large", TextFromPath(path));
    }
}

void ReplaceFile(const std::filesystem::path& path, std::string_view bytes) {
    if (IsFolder(path)) throw FolderFault(path);
    static unsigned number = 0;
    std::filesystem::path temporary = path;
    temporary += "." + std::to_string(::GetCurrentProcessId()) + "-" + std::to_string(++number) + ".tmp";
    Handle file(
        ::CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) throw FileFault(::GetLastError(), path);
    const bool done =
        WriteAll(file.Get(), bytes) && ::FlushFileBuffers(file.Get()) != 0 && file.Close() &&
        ::MoveFileExW(temporary.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
    if (done) return;
    const DWORD error = ::GetLastError();
    file.Close();
    ::DeleteFileW(temporary.c_str());
    throw FileFault(error, path);
}

std::string FindHtmlViewer() {
    const std::wstring type = ClassesValue(L".htm");
    return ProgramOfCommand(TextFromWide(ClassesValue(type + L"\\shell\\open\\command")));
}

std::string WithoutSwitches(const std::string& command) { return CutAtDash(command); }

std::string ShortPath(const std::string& path) {
    std::array<wchar_t, 32768> buffer{};
    const DWORD length =
        ::GetShortPathNameW(WideFromText(path).c_str(), buffer.data(), static_cast<DWORD>(buffer.size()));
    return length > 0 && length < buffer.size() ? TextFromWide(std::wstring(buffer.data(), length)) : path;
}

void StartProgram(const std::string& program, const std::string& argument) {
    std::wstring commandLine = Quoted(WideFromText(program)) + L" " + Quoted(WideFromText(argument));
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                         &process) == 0) {
        throw Fault("Program not started", program + ": error " + std::to_string(::GetLastError()));
    }
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
}

// Windows asks through the window, as a log-off does.
int TerminationRequests() { return -1; }

void TakeTerminationRequest() {}

} // namespace pistaro

// The operating system's half for Windows. Wide functions throughout: paths may hold any character.
#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/viewer_command.h"

#include <windows.h>

#include <aclapi.h>
#include <fcntl.h>
#include <io.h>
#include <knownfolders.h>
#include <shellapi.h>
#include <shlobj.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

#undef ReplaceFile // windows.h would rename ours

namespace pistaro {

namespace {

std::wstring WideFromText(std::string_view utf8) { return PathFromText(utf8).wstring(); }

std::string TextFromWide(const std::wstring& wide) { return TextFromPath(std::filesystem::path(wide)); }

Fault FileFault(DWORD error, const std::filesystem::path& path) {
    const std::string name = TextFromPath(path);
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
        return {"File not found", name};
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_DIRECTORY:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
        return {"Path not found", name};
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
        return {"Permission denied", name};
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return {"Disk full", name};
    default:
        return {"Path/File access error", name + ": error " + std::to_string(error)};
    }
}

/// The path as the system takes it at any length: below the usual limit as it is, above it with the mark of a long one.
std::filesystem::path AtAnyLength(const std::filesystem::path& path) {
    const DWORD needed = ::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    if (needed < MAX_PATH) return path;
    std::wstring full(needed, L'\0');
    full.resize(::GetFullPathNameW(path.c_str(), needed, full.data(), nullptr));
    if (full.starts_with(L"\\\\?\\") || full.starts_with(L"\\\\.\\")) return path;
    return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
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
    explicit Handle(HANDLE handle = INVALID_HANDLE_VALUE) : handle_(handle) {}
    ~Handle() { Close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    HANDLE Get() const { return handle_; }
    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    void Open(HANDLE handle) {
        Close();
        handle_ = handle;
    }
    bool Close() {
        const HANDLE open = handle_;
        handle_ = INVALID_HANDLE_VALUE;
        return open == INVALID_HANDLE_VALUE || ::CloseHandle(open) != 0;
    }

private:
    HANDLE handle_;
};

constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Whether `attempt` succeeds, tried again for a third of a second while another program (a virus scanner, a backup)
/// holds the file for a moment. Where it fails, the last error is its own.
template <typename Attempt>
bool SucceedsInTime(Attempt attempt) {
    for (DWORD pause = 10;; pause *= 2) {
        if (attempt()) return true;
        const DWORD error = ::GetLastError();
        if (pause > 160 || (error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED)) return false;
        ::Sleep(pause);
    }
}

/// Where an existing file that is open at `file` really stands: the end of the links that lead to it.
std::filesystem::path EndOfLinks(HANDLE file, const std::filesystem::path& path) {
    std::wstring buffer(32768, L'\0');
    const DWORD length = ::GetFinalPathNameByHandleW(file, buffer.data(), static_cast<DWORD>(buffer.size()), 0);
    if (length == 0 || length >= buffer.size()) throw FileFault(::GetLastError(), path);
    buffer.resize(length);
    return buffer;
}

/// What a new file takes over from the one that it replaces.
struct Replaced {
    std::filesystem::path Path;
    DWORD Attributes = FILE_ATTRIBUTE_NORMAL;
    bool Exists = false;
};

/// Looks at what stands at `path`. Faults where it is something that must not be replaced: a folder, a device, a file
/// that its user may not write or that another program keeps to itself.
Replaced LookAt(const std::filesystem::path& path, const std::filesystem::path& named) {
    const DWORD found = ::GetFileAttributesW(path.c_str());
    const DWORD attributes = found == INVALID_FILE_ATTRIBUTES ? 0 : found;
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) throw FolderFault(named);
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) throw FileFault(ERROR_ACCESS_DENIED, named);
    const bool isLink = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    Handle file;
    if (!SucceedsInTime([&] {
            file.Open(::CreateFileW(path.c_str(), GENERIC_WRITE, ShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
            return file.IsOpen();
        })) {
        const DWORD error = ::GetLastError();
        if (error != ERROR_FILE_NOT_FOUND || isLink) throw FileFault(error, named);
        return {path};
    }
    if (::GetFileType(file.Get()) != FILE_TYPE_DISK) {
        throw Fault("Path/File access error", TextFromPath(named) + ": is not a plain file");
    }
    constexpr DWORD kept =
        FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    return {isLink ? EndOfLinks(file.Get(), named) : path, attributes & kept, true};
}

/// Gives the new file the access list of the one that it replaces. Disks without such lists have none to give.
void TakeRights(const std::filesystem::path& temporary, const std::filesystem::path& target) {
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR rights = nullptr;
    if (::GetNamedSecurityInfoW(const_cast<wchar_t*>(target.c_str()), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION,
                                nullptr, nullptr, &list, nullptr, &rights) != ERROR_SUCCESS) {
        return;
    }
    ::SetNamedSecurityInfoW(const_cast<wchar_t*>(temporary.c_str()), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                            nullptr, list, nullptr);
    ::LocalFree(rights);
}

/// A new file's short name beside `target` that no file has; left open in `file` for writing.
std::filesystem::path NewFileBeside(const Replaced& target, Handle& file, const std::filesystem::path& named) {
    for (unsigned number = 0;; ++number) {
        const auto temporary =
            AtAnyLength(target.Path.parent_path() /
                        (".pistaro-" + std::to_string(::GetCurrentProcessId()) + "-" + std::to_string(number)));
        file.Open(::CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, target.Attributes, nullptr));
        if (file.IsOpen()) return temporary;
        const DWORD error = ::GetLastError();
        if (error != ERROR_FILE_EXISTS) throw FileFault(error, named);
    }
}

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

/// A program on a command line. A registered command may hold words of its own behind it: those stay apart.
std::wstring Program(const std::wstring& command) {
    return ::GetFileAttributesW(command.c_str()) != INVALID_FILE_ATTRIBUTES ? Quoted(command) : command;
}

UINT codePageOfConsole = 0;

void RestoreConsole() { ::SetConsoleOutputCP(codePageOfConsole); }

bool IsMissing(DWORD stream) {
    const HANDLE handle = ::GetStdHandle(stream);
    return handle == nullptr || handle == INVALID_HANDLE_VALUE;
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
    const bool noOutput = IsMissing(STD_OUTPUT_HANDLE);
    const bool noErrors = IsMissing(STD_ERROR_HANDLE);
    if ((noOutput || noErrors) && ::AttachConsole(ATTACH_PARENT_PROCESS) != 0) {
        codePageOfConsole = ::GetConsoleOutputCP();
        ::SetConsoleOutputCP(CP_UTF8);
        std::atexit(RestoreConsole);
        if (noOutput) (void)std::freopen("CONOUT$", "w", stdout);
        if (noErrors) (void)std::freopen("CONOUT$", "w", stderr);
    }
    // Lines end as on every other system.
    for (std::FILE* const stream : {stdin, stdout, stderr})
        if (::_fileno(stream) >= 0) ::_setmode(::_fileno(stream), _O_BINARY);
}

// A program with a window may have no such stream at all, and then no number for it either. Where it has one, it may
// hold words back, unlike elsewhere.
SilentStandardError::SilentStandardError() : kept_(::_fileno(stderr) < 0 ? -1 : ::_dup(::_fileno(stderr))) {
    const int nowhere = ::_open("NUL", _O_WRONLY);
    if (nowhere < 0) return;
    std::fflush(stderr);
    if (kept_ >= 0) ::_dup2(nowhere, ::_fileno(stderr));
    ::_close(nowhere);
}

SilentStandardError::~SilentStandardError() {
    if (kept_ < 0) return;
    std::fflush(stderr);
    ::_dup2(kept_, ::_fileno(stderr));
    ::_close(kept_);
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
    if (::GetFileAttributesW(shared.c_str()) != INVALID_FILE_ATTRIBUTES || CanMakeFilesIn(shared.parent_path()))
        return shared;
    return KnownFolder(FOLDERID_RoamingAppData) / "Pistaro" / SettingsName;
}

std::filesystem::path DocumentsFolder() { return KnownFolder(FOLDERID_Documents); }

std::filesystem::path InstalledFolder() {
    std::array<wchar_t, 32768> buffer{};
    const DWORD length = ::GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
    return std::filesystem::path(std::wstring(buffer.data(), length)).parent_path();
}

std::string ReadFile(const std::filesystem::path& path, std::size_t atMost) {
    const std::filesystem::path opened = AtAnyLength(path);
    if (IsFolder(opened)) throw FolderFault(path);
    const Handle file(::CreateFileW(opened.c_str(), GENERIC_READ, ShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file.IsOpen()) throw FileFault(::GetLastError(), path);
    std::string bytes;
    std::string buffer(65536, '\0');
    for (;;) {
        DWORD count = 0;
        if (::ReadFile(file.Get(), buffer.data(), static_cast<DWORD>(buffer.size()), &count, nullptr) == 0) {
            if (::GetLastError() != ERROR_BROKEN_PIPE) throw FileFault(::GetLastError(), path);
            return bytes; // the pipe's writer has ended
        }
        if (count == 0) return bytes;
        bytes.append(buffer, 0, count);
        if (bytes.size() > atMost) throw Fault("File too large", TextFromPath(path));
    }
}

void ReplaceFile(const std::filesystem::path& path, std::string_view bytes) {
    const Replaced target = LookAt(AtAnyLength(path), path);
    Handle file;
    const std::filesystem::path temporary = NewFileBeside(target, file, path);
    bool done = WriteAll(file.Get(), bytes) && ::FlushFileBuffers(file.Get()) != 0 && file.Close();
    DWORD error = ::GetLastError();
    if (done) {
        if (target.Exists) TakeRights(temporary, target.Path);
        done = SucceedsInTime([&] {
            return ::MoveFileExW(temporary.c_str(), target.Path.c_str(),
                                 MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
        });
        error = ::GetLastError();
    }
    if (done) return;
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
    if (program.empty())
        throw Fault("Program not started", "none is registered for " + argument); // not the argument itself
    std::wstring commandLine = Program(WideFromText(program)) + L" " + Quoted(WideFromText(argument));
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

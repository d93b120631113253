// Files on Windows. Wide functions throughout: paths may hold any character.
#include "platform/files.h"

#include "platform/fault.h"
#include "platform/temporary_files.h"

#include <windows.h>

#include <aclapi.h>

#include <algorithm>

namespace pistaro {

namespace {

Fault FileFault(DWORD error, const std::filesystem::path& path) {
    const std::string name = path.empty() ? "a file without a name" : TextFromPath(path);
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
        const auto temporary = AtAnyLength(target.Path.parent_path() /
                                           (std::string(TemporaryBeginning) + std::to_string(::GetCurrentProcessId()) +
                                            "-" + std::to_string(number) + std::string(TemporaryEnding)));
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

} // namespace

std::filesystem::path PathFromText(std::string_view utf8) { return std::u8string(utf8.begin(), utf8.end()); }

std::string TextFromPath(const std::filesystem::path& path) {
    const std::u8string utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

bool IsFolderSeparator(char c) { return c == '\\' || c == '/'; }

char FolderSeparator() { return '\\'; }

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

WrittenFile::WrittenFile(const std::filesystem::path& path, std::string_view bytes) : path_(path) {
    const Replaced target = LookAt(AtAnyLength(path), path);
    Handle file;
    const std::filesystem::path temporary = NewFileBeside(target, file, path);
    if (!WriteAll(file.Get(), bytes) || ::FlushFileBuffers(file.Get()) == 0 || !file.Close()) {
        const DWORD error = ::GetLastError();
        file.Close();
        ::DeleteFileW(temporary.c_str());
        throw FileFault(error, path);
    }
    if (target.Exists) TakeRights(temporary, target.Path);
    target_ = target.Path;
    temporary_ = temporary;
}

WrittenFile::~WrittenFile() {
    if (!temporary_.empty()) ::DeleteFileW(temporary_.c_str());
}

void WrittenFile::TakePlace() {
    if (!SucceedsInTime([&] {
            return ::MoveFileExW(temporary_.c_str(), target_.c_str(),
                                 MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
        })) {
        throw FileFault(::GetLastError(), path_);
    }
    temporary_.clear();
}

} // namespace pistaro

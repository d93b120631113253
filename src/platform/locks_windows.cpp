// Locks on Windows. A file that is open may not be replaced there, so that a rewrite's lock has no file but a name.
#include "platform/locks.h"

#include "platform/fault.h"
#include "platform/files.h"

#include <windows.h>

#include <algorithm>
#include <cwctype>
#include <functional>
#include <string>

namespace pistaro {

namespace {

/// One name for all spellings of a file's path.
std::wstring LockName(const std::filesystem::path& file) {
    std::error_code unreachable;
    std::wstring path = std::filesystem::weakly_canonical(file, unreachable).wstring();
    std::ranges::transform(path, path.begin(), [](wchar_t c) { return static_cast<wchar_t>(std::towlower(c)); });
    return L"Global\\Pistaro-" + std::to_wstring(std::hash<std::wstring>()(path));
}

HANDLE HandleOf(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); }

} // namespace

RewriteLock::RewriteLock(const std::filesystem::path& file) : handle_(0) {
    const HANDLE mutex = ::CreateMutexW(nullptr, FALSE, LockName(file).c_str());
    if (mutex == nullptr) return;
    constexpr DWORD longest = 5000;
    if (::WaitForSingleObject(mutex, longest) == WAIT_TIMEOUT) {
        ::CloseHandle(mutex);
        throw Fault("Permission denied", TextFromPath(file) + ": another program is writing it");
    }
    handle_ = reinterpret_cast<std::intptr_t>(mutex);
}

RewriteLock::~RewriteLock() {
    if (handle_ == 0) return;
    ::ReleaseMutex(HandleOf(handle_));
    ::CloseHandle(HandleOf(handle_));
}

LifeSign::LifeSign(std::filesystem::path file) : file_(std::move(file)), handle_(0) {
    const HANDLE opened = ::CreateFileW(file_.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_ALWAYS,
                                        FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (opened == INVALID_HANDLE_VALUE)
        throw Fault("Path/File access error", TextFromPath(file_) + ": error " + std::to_string(::GetLastError()));
    handle_ = reinterpret_cast<std::intptr_t>(opened);
}

LifeSign::~LifeSign() { ::CloseHandle(HandleOf(handle_)); }

bool LifeSign::IsAlive(const std::filesystem::path& file) {
    const HANDLE opened = ::CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                        OPEN_EXISTING, 0, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return ::GetLastError() == ERROR_SHARING_VIOLATION;
    ::CloseHandle(opened);
    return false;
}

} // namespace pistaro

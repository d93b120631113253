// Locks on Linux and its kin. A lock belongs to an open file and not to its name: whoever gets one looks whether the
// name still stands for that file, which may have been replaced or removed while he waited.
#include "platform/locks.h"

#include "platform/fault.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace pistaro {

namespace {

bool IsNamed(int descriptor, const std::filesystem::path& file) {
    struct stat open {};
    struct stat named {};
    return ::fstat(descriptor, &open) == 0 && ::stat(file.c_str(), &named) == 0 && open.st_dev == named.st_dev &&
           open.st_ino == named.st_ino;
}

enum class Attempt { Locked, Busy, Replaced, Impossible };

Attempt TryLock(int descriptor, const std::filesystem::path& file) {
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0)
        return IsNamed(descriptor, file) ? Attempt::Locked : Attempt::Replaced;
    return errno == EWOULDBLOCK || errno == EINTR ? Attempt::Busy : Attempt::Impossible;
}

} // namespace

RewriteLock::RewriteLock(const std::filesystem::path& file) : handle_(-1) {
    constexpr std::chrono::seconds longest(5);
    const auto end = std::chrono::steady_clock::now() + longest;
    for (;;) {
        const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
        if (descriptor < 0) return; // told by whoever reads it
        const Attempt attempt = TryLock(descriptor, file);
        if (attempt == Attempt::Locked) {
            handle_ = descriptor;
            return;
        }
        ::close(descriptor);
        if (attempt == Attempt::Impossible) return;
        if (std::chrono::steady_clock::now() > end)
            throw Fault("Permission denied", file.string() + ": another program is writing it");
        if (attempt == Attempt::Busy) std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}

RewriteLock::~RewriteLock() {
    if (handle_ >= 0) ::close(static_cast<int>(handle_));
}

LifeSign::LifeSign(std::filesystem::path file) : file_(std::move(file)), handle_(-1) {
    for (;;) {
        const int descriptor = ::open(file_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (descriptor < 0) throw Fault("Path/File access error", file_.string() + ": " + std::strerror(errno));
        const Attempt attempt = TryLock(descriptor, file_);
        if (attempt == Attempt::Locked || attempt == Attempt::Impossible) {
            handle_ = descriptor;
            return;
        }
        ::close(descriptor); // somebody took it for one that a killed program left, or just looks at it
    }
}

LifeSign::~LifeSign() {
    ::unlink(file_.c_str());
    ::close(static_cast<int>(handle_));
}

bool LifeSign::IsAlive(const std::filesystem::path& file) {
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) return false;
    const bool lives = ::flock(descriptor, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    ::close(descriptor);
    return lives;
}

} // namespace pistaro

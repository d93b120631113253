// Files on Linux and its kin.
#include "platform/files.h"

#include "platform/fault.h"
#include "platform/temporary_files.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pistaro {

namespace {

std::filesystem::path FolderOf(const std::filesystem::path& path) {
    return path.has_parent_path() ? path.parent_path() : ".";
}

Fault FileFault(int error, const std::filesystem::path& path) {
    const std::string name = path.empty() ? "a file without a name" : path.string();
    std::error_code ignored;
    switch (error) {
    case ENOENT:
        return std::filesystem::exists(FolderOf(path), ignored) ? Fault("File not found", name)
                                                                : Fault("Path not found", name);
    case ENOTDIR:
        return {"Path not found", name};
    case EACCES:
    case EPERM:
    case EROFS:
        return {"Permission denied", name};
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return {"Disk full", name};
    case EISDIR:
        return {"Path/File access error", name + ": is a folder"};
    default:
        return {"Path/File access error", name + ": " + std::strerror(error)};
    }
}

/// An open file, closed when it goes out of scope.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return number_; }
    bool IsOpen() const { return number_ >= 0; }
    int Close() {
        const int open = number_;
        number_ = -1;
        return open >= 0 ? ::close(open) : 0;
    }

private:
    int number_;
};

bool WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// Where the link `path` leads in the end, or `path` itself: a link stays a link when its file is replaced or made.
std::filesystem::path LinkTarget(std::filesystem::path path) {
    constexpr int mostLinks = 40;
    for (int links = 0; links < mostLinks; ++links) {
        std::error_code noLink;
        const auto target = std::filesystem::read_symlink(path, noLink);
        if (noLink) return path;
        path = path.parent_path() / target;
    }
    throw FileFault(ELOOP, path);
}

/// Gives a new file the rights of the one that it replaces, and its owner where the system lets us; or, where there is
/// none, those that a new file gets.
bool TakeRights(int descriptor, const std::filesystem::path& target) {
    struct stat old {};
    if (::stat(target.c_str(), &old) != 0) {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        return ::fchmod(descriptor, 0666 & ~mask) == 0;
    }
    const bool ownerKept = ::fchown(descriptor, old.st_uid, old.st_gid) == 0;
    return ::fchmod(descriptor, old.st_mode & (ownerKept ? 07777 : 0777)) == 0;
}

/// Faults where a file stands that must not be replaced.
void CheckReplaceable(const std::filesystem::path& target) {
    struct stat old {};
    if (::stat(target.c_str(), &old) != 0) return;
    if (S_ISDIR(old.st_mode)) throw FileFault(EISDIR, target);
    if (!S_ISREG(old.st_mode)) throw Fault("Path/File access error", target.string() + ": is not a plain file");
    if (::access(target.c_str(), W_OK) != 0) throw FileFault(errno, target);
}

} // namespace

std::filesystem::path PathFromText(std::string_view utf8) { return utf8; }

std::string TextFromPath(const std::filesystem::path& path) { return path.string(); }

bool IsFolderSeparator(char c) { return c == '/'; }

char FolderSeparator() { return '/'; }

std::string ReadFile(const std::filesystem::path& path, std::size_t atMost) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.IsOpen()) throw FileFault(errno, path);
    struct stat status {};
    if (::fstat(file.Number(), &status) != 0) throw FileFault(errno, path);
    if (S_ISDIR(status.st_mode)) throw FileFault(EISDIR, path);
    // Opening must not wait for a pipe that nobody writes to, reading shall wait for one that somebody does.
    ::fcntl(file.Number(), F_SETFL, 0);
    std::string bytes;
    std::array<char, 65536> buffer{};
    for (;;) {
        const ssize_t count = ::read(file.Number(), buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throw FileFault(errno, path);
        if (count == 0) return bytes;
        bytes.append(buffer.data(), static_cast<std::size_t>(count));
        if (bytes.size() > atMost) throw Fault("File too large", path.string());
    }
}

WrittenFile::WrittenFile(const std::filesystem::path& path, std::string_view bytes)
    : path_(path), target_(LinkTarget(path)) {
    // Past a size limit the write shall fail, not end the program.
    std::signal(SIGXFSZ, SIG_IGN);
    CheckReplaceable(target_);
    std::string temporary = (FolderOf(target_) / TemporaryBeginning).string(); // short: names have a longest length
    temporary.append("XXXXXX").append(TemporaryEnding);
    Descriptor file(::mkostemps(temporary.data(), static_cast<int>(TemporaryEnding.size()), O_CLOEXEC));
    if (!file.IsOpen()) throw FileFault(errno, target_);
    if (!WriteAll(file.Number(), bytes) || !TakeRights(file.Number(), target_) || ::fsync(file.Number()) != 0 ||
        file.Close() != 0) {
        const int error = errno;
        ::unlink(temporary.c_str());
        throw FileFault(error, target_);
    }
    temporary_ = temporary;
}

WrittenFile::~WrittenFile() {
    if (!temporary_.empty()) ::unlink(temporary_.c_str());
}

void WrittenFile::TakePlace() {
    if (::rename(temporary_.c_str(), target_.c_str()) != 0) throw FileFault(errno, target_);
    temporary_.clear();
    const Descriptor entry(::open(FolderOf(target_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (entry.IsOpen()) ::fsync(entry.Number()); // the rename itself, too
}

} // namespace pistaro

// Stands before the C library in the order in which the system looks for these functions.
#include "faults/failing_calls.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <mutex>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

/// The function of that name as it would be without this library.
template <typename Function>
Function* Real(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

constexpr int MostDescriptors = 1024;

/// What shall fail, and what is known of the open files in the folder. Everything in it is trivial to make: calls come
/// before main and after it.
struct Plan {
    std::mutex Guard;
    char Folder[4096] = "";
    char Failed[4200] = "";
    int CallsToGo = 0; ///< none fails at 0
    int Error = 0;
    std::atomic<bool> IsInFolder[MostDescriptors] = {};
};

Plan plan;

void Report() {
    const char* const file = std::getenv("FAILING_REPORT");
    if (file == nullptr) return;
    const int report = Real<int(const char*, int, ...)>("open")(file, O_WRONLY | O_CREAT | O_APPEND, 0600);
    if (report < 0) return;
    if (Real<ssize_t(int, const void*, size_t)>("write")(report, plan.Failed, std::strlen(plan.Failed)) < 0)
        std::abort();
    Real<int(int)>("close")(report);
}

/// Counts a call, and tells whether it is the one that fails.
bool Fails(const char* call, const char* what, bool mayBeShort = false) {
    const std::lock_guard lock(plan.Guard);
    if (plan.CallsToGo == 0 || (plan.Error == pistaro::ShortWrite && !mayBeShort)) return false;
    if (--plan.CallsToGo > 0) return false;
    std::snprintf(plan.Failed, sizeof plan.Failed, "%s %s\n", call, what);
    Report();
    errno = plan.Error;
    return true;
}

/// Whether a path lies in the folder, or is the folder. Relative ones are taken from the current folder, whatever
/// descriptor they belong to.
bool Concerns(const char* path) {
    if (plan.Folder[0] == '\0' || path == nullptr) return false;
    char whole[8192];
    if (path[0] != '/') {
        if (::getcwd(whole, 4096) == nullptr) return false;
        std::strncat(whole, "/", sizeof whole - std::strlen(whole) - 1);
        std::strncat(whole, path, sizeof whole - std::strlen(whole) - 1);
        path = whole;
    }
    return std::strncmp(path, plan.Folder, std::strlen(plan.Folder)) == 0;
}

bool IsKnown(int descriptor) { return descriptor >= 0 && descriptor < MostDescriptors && plan.IsInFolder[descriptor]; }

int Remember(int descriptor) {
    if (descriptor >= 0 && descriptor < MostDescriptors) plan.IsInFolder[descriptor] = true;
    return descriptor;
}

/// Opens by `open`, unless that is to fail.
template <typename Open>
int Opened(const char* call, const char* path, Open open) {
    if (!Concerns(path)) return open();
    return Fails(call, path) ? -1 : Remember(open());
}

/// Writes `count` bytes, or fewer, by `write`.
template <typename Write>
ssize_t Written(const char* call, int descriptor, size_t count, Write write) {
    if (!IsKnown(descriptor) || !Fails(call, "bytes", count > 1)) return write(count);
    return errno == pistaro::ShortWrite ? write(count / 2) : -1;
}

mode_t ModeIn(int flags, va_list arguments) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

[[gnu::constructor]] void ReadEnvironment() {
    const char* const folder = std::getenv("FAILING_FOLDER");
    const char* const call = std::getenv("FAILING_CALL");
    const char* const error = std::getenv("FAILING_ERROR");
    if (folder != nullptr && call != nullptr && error != nullptr)
        pistaro::FailCall(folder, std::atoi(call), std::atoi(error));
}

} // namespace

namespace pistaro {

void FailCall(const std::string& folder, int call, int error) {
    const std::lock_guard lock(plan.Guard);
    std::snprintf(plan.Folder, sizeof plan.Folder, "%s", folder.c_str());
    plan.Failed[0] = '\0';
    plan.CallsToGo = call;
    plan.Error = error;
}

std::string StopFailing() {
    const std::lock_guard lock(plan.Guard);
    plan.Folder[0] = '\0';
    plan.CallsToGo = 0;
    for (auto& known : plan.IsInFolder)
        known = false;
    return plan.Failed;
}

} // namespace pistaro

extern "C" {

#define OPEN(name)                                                                                                     \
    int name(const char* path, int flags, ...) {                                                                       \
        va_list arguments;                                                                                             \
        va_start(arguments, flags);                                                                                    \
        const mode_t mode = ModeIn(flags, arguments);                                                                  \
        va_end(arguments);                                                                                             \
        return Opened("open", path, [&] { return Real<int(const char*, int, ...)>(#name)(path, flags, mode); });       \
    }
OPEN(open)
OPEN(open64)

#define OPENAT(name)                                                                                                   \
    int name(int folder, const char* path, int flags, ...) {                                                           \
        va_list arguments;                                                                                             \
        va_start(arguments, flags);                                                                                    \
        const mode_t mode = ModeIn(flags, arguments);                                                                  \
        va_end(arguments);                                                                                             \
        return Opened("open", path,                                                                                    \
                      [&] { return Real<int(int, const char*, int, ...)>(#name)(folder, path, flags, mode); });        \
    }
OPENAT(openat)
OPENAT(openat64)

int creat(const char* path, mode_t mode) {
    return Opened("creat", path, [&] { return Real<int(const char*, mode_t)>("creat")(path, mode); });
}

int mkostemp(char* path, int flags) {
    return Opened("open", path, [&] { return Real<int(char*, int)>("mkostemp")(path, flags); });
}

int mkostemps(char* path, int ending, int flags) {
    return Opened("open", path, [&] { return Real<int(char*, int, int)>("mkostemps")(path, ending, flags); });
}

FILE* fopen(const char* path, const char* mode) {
    if (Concerns(path) && Fails("open", path)) return nullptr;
    return Real<FILE*(const char*, const char*)>("fopen")(path, mode);
}

FILE* fopen64(const char* path, const char* mode) {
    if (Concerns(path) && Fails("open", path)) return nullptr;
    return Real<FILE*(const char*, const char*)>("fopen64")(path, mode);
}

ssize_t write(int descriptor, const void* bytes, size_t count) {
    return Written("write", descriptor, count, [&](size_t most) {
        return Real<ssize_t(int, const void*, size_t)>("write")(descriptor, bytes, most);
    });
}

ssize_t pwrite(int descriptor, const void* bytes, size_t count, off_t at) {
    return Written("pwrite", descriptor, count, [&](size_t most) {
        return Real<ssize_t(int, const void*, size_t, off_t)>("pwrite")(descriptor, bytes, most, at);
    });
}

ssize_t writev(int descriptor, const iovec* parts, int count) {
    return Written("writev", descriptor, static_cast<size_t>(count), [&](size_t most) {
        return Real<ssize_t(int, const iovec*, int)>("writev")(descriptor, parts, static_cast<int>(most));
    });
}

ssize_t sendfile(int to, int from, off_t* at, size_t count) {
    return Written("sendfile", to, count, [&](size_t most) {
        return Real<ssize_t(int, int, off_t*, size_t)>("sendfile")(to, from, at, most);
    });
}

/// Flushes nothing in the folder: a test does not outlive the power, and would wait for the disk a thousand times.
int fsync(int descriptor) {
    if (!IsKnown(descriptor)) return Real<int(int)>("fsync")(descriptor);
    return Fails("fsync", "") ? -1 : 0;
}

int fdatasync(int descriptor) {
    if (!IsKnown(descriptor)) return Real<int(int)>("fdatasync")(descriptor);
    return Fails("fdatasync", "") ? -1 : 0;
}

/// Closes in every case, as the system does.
int close(int descriptor) {
    if (!IsKnown(descriptor)) return Real<int(int)>("close")(descriptor);
    plan.IsInFolder[descriptor] = false;
    const int closed = Real<int(int)>("close")(descriptor);
    return Fails("close", "") ? -1 : closed;
}

int rename(const char* from, const char* to) noexcept {
    return Concerns(to) && Fails("rename", to) ? -1 : Real<int(const char*, const char*)>("rename")(from, to);
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept {
    if (Concerns(to) && Fails("rename", to)) return -1;
    return Real<int(int, const char*, int, const char*)>("renameat")(fromFolder, from, toFolder, to);
}

int link(const char* from, const char* to) noexcept {
    return Concerns(to) && Fails("link", to) ? -1 : Real<int(const char*, const char*)>("link")(from, to);
}

int mkdir(const char* path, mode_t mode) noexcept {
    return Concerns(path) && Fails("mkdir", path) ? -1 : Real<int(const char*, mode_t)>("mkdir")(path, mode);
}

} // extern "C"

// Programs on Linux and its kin.
#include "platform/processes.h"

#include "platform/fault.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <string_view>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace pistaro {

namespace {

/// What a signal's handler may do is write into a pipe.
std::array<int, 2> terminationPipe{-1, -1};

void RequestTermination(int) {
    const int error = errno;
    [[maybe_unused]] const ssize_t written = ::write(terminationPipe[1], "", 1);
    errno = error;
}

volatile std::sig_atomic_t uncheckedMemory = 0;         ///< how many UncheckedMemory live
volatile std::sig_atomic_t errorStream = STDERR_FILENO; ///< the standard error, where it is now

[[noreturn]] void EndWith(std::string_view line) {
    [[maybe_unused]] const ssize_t written = ::write(errorStream, line.data(), line.size());
    ::_exit(EXIT_FAILURE);
}

/// An allocation that fails gives a null pointer and this error; what lies near null is a member of what was not given.
/// Some libraries go into a trap instead. Any other crash happens again, and ends the program as ever.
void OnWrongAccess(int signal, siginfo_t* access, void*) {
    constexpr std::uintptr_t largestObject = 1 << 16;
    const bool isTrap = signal == SIGTRAP;
    if (isTrap || reinterpret_cast<std::uintptr_t>(access->si_addr) <= largestObject) {
        if (errno == ENOMEM) ReportOutOfMemory();
        if (uncheckedMemory > 0) EndWith("pistaro: Out of memory, or a fault in a library\n");
    }
    if (isTrap) ::raise(signal);
}

/// The writing end of the pipe of the Interruptions that live.
std::array<int, 2> interruptionPipe{-1, -1};
constexpr char Interrupted = 'i';
constexpr char Over = 'o';

void RequestStop(int) {
    const int error = errno;
    [[maybe_unused]] const ssize_t written = ::write(interruptionPipe[1], &Interrupted, 1);
    errno = error;
}

} // namespace

/// A stop cannot be requested from a signal's handler: a thread waits for what that writes.
class Interruptions::Half {
public:
    Half() {
        if (::pipe2(interruptionPipe.data(), O_CLOEXEC) != 0) return;
        waiting_ = std::thread([this] {
            for (char message = Interrupted; message != Over;) {
                const ssize_t count = ::read(interruptionPipe[0], &message, 1);
                if (count < 0 && errno == EINTR) continue;
                if (count != 1) return;
                if (message == Interrupted) Source.request_stop();
            }
        });
        struct sigaction action {};
        action.sa_handler = RequestStop;
        action.sa_flags = SA_RESTART;
        for (std::size_t i = 0; i < Signals.size(); ++i) {
            ::sigaction(Signals[i], &action, &before_[i]);
            if (before_[i].sa_handler == SIG_IGN)
                ::sigaction(Signals[i], &before_[i], nullptr); // as who started us wants
        }
    }

    ~Half() {
        if (!waiting_.joinable()) return;
        for (std::size_t i = 0; i < Signals.size(); ++i)
            ::sigaction(Signals[i], &before_[i], nullptr);
        [[maybe_unused]] const ssize_t written = ::write(interruptionPipe[1], &Over, 1);
        waiting_.join();
        for (int& end : interruptionPipe) {
            ::close(end);
            end = -1;
        }
    }

    Half(const Half&) = delete;
    Half& operator=(const Half&) = delete;

    std::stop_source Source;

private:
    static constexpr std::array Signals{SIGINT, SIGTERM};

    std::array<struct sigaction, Signals.size()> before_{};
    std::thread waiting_;
};

Interruptions::Interruptions() : half_(std::make_unique<Half>()) {}
Interruptions::~Interruptions() = default;
std::stop_token Interruptions::Stop() const { return half_->Source.get_token(); }

bool StandardErrorIsTerminal() { return ::isatty(STDERR_FILENO) == 1; }

std::vector<std::string> CommandLineArguments(int argc, char** argv) { return {argv + 1, argv + argc}; }

unsigned long ProcessNumber() { return static_cast<unsigned long>(::getpid()); }

void UseConsoleOfParent() {}

void ReportOutOfMemory() { EndWith("pistaro: Out of memory\n"); }

void EndWhereMemoryIsMissing() {
    struct sigaction action {};
    action.sa_sigaction = OnWrongAccess;
    action.sa_flags = SA_SIGINFO | static_cast<int>(SA_RESETHAND);
    for (const int signal : {SIGSEGV, SIGBUS, SIGTRAP})
        ::sigaction(signal, &action, nullptr);
}

UncheckedMemory::UncheckedMemory() { uncheckedMemory = uncheckedMemory + 1; }
UncheckedMemory::~UncheckedMemory() { uncheckedMemory = uncheckedMemory - 1; }

SilentStandardError::SilentStandardError() : kept_(::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)) {
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere < 0) return;
    if (kept_ >= 0) {
        errorStream = kept_;
        ::dup2(nowhere, STDERR_FILENO);
    }
    ::close(nowhere);
}

SilentStandardError::~SilentStandardError() {
    if (kept_ < 0) return;
    ::dup2(kept_, STDERR_FILENO);
    errorStream = STDERR_FILENO;
    ::close(kept_);
}

std::string FindHtmlViewer() { return "xdg-open"; }

std::string WithoutSwitches(const std::string& command) { return command; }

std::string ShortPath(const std::string& path) { return path; }

void StartProgram(const std::string& program, const std::string& argument) {
    // Spawned by a child that ends at once, so that nobody has to wait for the viewer.
    const pid_t child = ::fork();
    if (child < 0) throw Fault("Program not started", program + ": " + std::strerror(errno));
    if (child == 0) {
        ::setsid();
        pid_t viewer = 0;
        std::array<char*, 3> arguments{const_cast<char*>(program.c_str()), const_cast<char*>(argument.c_str()),
                                       nullptr};
        ::_exit(::posix_spawnp(&viewer, program.c_str(), nullptr, nullptr, arguments.data(), environ));
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    const int error = WIFEXITED(status) ? WEXITSTATUS(status) : EIO;
    if (error != 0) throw Fault("Program not started", program + ": " + std::strerror(error));
}

int TerminationRequests() {
    if (terminationPipe[0] < 0 && ::pipe2(terminationPipe.data(), O_CLOEXEC | O_NONBLOCK) == 0) {
        struct sigaction action {};
        action.sa_handler = RequestTermination;
        action.sa_flags = SA_RESTART;
        for (const int signal : {SIGTERM, SIGINT, SIGHUP})
            ::sigaction(signal, &action, nullptr);
    }
    return terminationPipe[0];
}

void TakeTerminationRequest() {
    char request = 0;
    [[maybe_unused]] const ssize_t taken = ::read(terminationPipe[0], &request, 1);
}

} // namespace pistaro

// This program as the system sees it, its arguments, console and signals, and other programs. Texts are UTF-8.
#pragma once

#include <memory>
#include <stop_token>
#include <string>
#include <vector>

namespace pistaro {

/// The program's arguments without its own name.
std::vector<std::string> CommandLineArguments(int argc, char** argv);

/// The number by which the system knows this program while it runs.
unsigned long ProcessNumber();

/// Lets a verb print on the console that the program was started from, where the system does not do so by itself.
void UseConsoleOfParent();

/// Ends the program at once with 1 and a line on the standard error, also where that is silent.
[[noreturn]] void ReportOutOfMemory();

/// Has it end so where a library goes on with memory that it was not given, which would be a crash. Where the system
/// does not tell of such access, nothing.
void EndWhereMemoryIsMissing();

/// While it lives a library may work that does so and makes other calls before it crashes: the program then ends in the
/// same way whatever error the system gave last, and says that it may be the library's fault.
class UncheckedMemory {
public:
    UncheckedMemory();
    ~UncheckedMemory();
    UncheckedMemory(const UncheckedMemory&) = delete;
    UncheckedMemory& operator=(const UncheckedMemory&) = delete;
};

/// While it lives, the standard error takes nothing: what a library prints there of its own is not the program's word.
class SilentStandardError {
public:
    SilentStandardError();
    ~SilentStandardError();
    SilentStandardError(const SilentStandardError&) = delete;
    SilentStandardError& operator=(const SilentStandardError&) = delete;

private:
    int kept_; ///< the stream's own descriptor, below 0 where there is none
};

/// The program registered for web pages: on Windows the registry's command for ".htm" files reduced to the program's
/// path, elsewhere "xdg-open".
std::string FindHtmlViewer();

/// A viewer's command without the switches after it: on Windows everything from its first "-" on, be it in the name of
/// a folder; elsewhere the command, whose own name may hold one.
std::string WithoutSwitches(const std::string& command);

/// The path's short (8.3) form on Windows, elsewhere the path.
std::string ShortPath(const std::string& path);

/// A descriptor that becomes readable each time the system asks the program to end (SIGTERM, SIGINT, SIGHUP), which
/// from then on no longer ends it. -1 where the system does not ask so.
int TerminationRequests();

/// Takes one request off that descriptor.
void TakeTerminationRequest();

/// While it lives, Ctrl+C and the system's request to end ask for a stop, and do not end the program.
class Interruptions {
public:
    Interruptions();
    ~Interruptions();
    Interruptions(const Interruptions&) = delete;
    Interruptions& operator=(const Interruptions&) = delete;

    /// Becomes a request to stop when the first of them comes.
    std::stop_token Stop() const;

private:
    class Half;
    std::unique_ptr<Half> half_;
};

/// Whether somebody reads the standard error as it is printed.
bool StandardErrorIsTerminal();

/// Starts another program with one argument, in a window of its own, without waiting. Fault if it cannot be started.
void StartProgram(const std::string& program, const std::string& argument);

} // namespace pistaro

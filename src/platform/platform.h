// Everything that is asked of the operating system, with a POSIX and a Windows half behind it. Texts are UTF-8.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace pistaro {

/// The program's arguments without its own name.
std::vector<std::string> CommandLineArguments(int argc, char** argv);

/// Lets a verb print on the console that the program was started from, where the system does not do so by itself.
void UseConsoleOfParent();

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

/// Between a path and its text in the program.
std::filesystem::path PathFromText(std::string_view utf8);
std::string TextFromPath(const std::filesystem::path& path);

/// Whether `c` parts folders in a path: "/", on Windows "\" too.
bool IsFolderSeparator(char c);

/// The separator that a folder's text ends in.
char FolderSeparator();

inline constexpr const char* SettingsName = "corvel.ini";

/// Where the settings file stands: the Windows directory (%APPDATA%\Pistaro where an ordinary user cannot write there),
/// elsewhere $XDG_CONFIG_HOME/pistaro or ~/.config/pistaro.
std::filesystem::path SettingsPath();

/// The user's documents folder.
std::filesystem::path DocumentsFolder();

/// The folder that holds what is installed with the program: its samples, its manual and its initial settings.
std::filesystem::path InstalledFolder();

/// A file's bytes. Faults: not there, not readable, or larger than `atMost`.
std::string ReadFile(const std::filesystem::path& path, std::size_t atMost);

/// Puts `bytes` on disk as the file `path`, in one step: they go to a temporary file beside it, which is flushed and
/// renamed over it, so that a crash or a full disk leaves the old file or the new one, whole. Faults leave the old one.
void ReplaceFile(const std::filesystem::path& path, std::string_view bytes);

/// The program registered for web pages: on Windows the registry's command for ".htm" files reduced to the program's
/// path, elsewhere "xdg-open".
std::string FindHtmlViewer();

/// A viewer's command without the switches behind it: on Windows everything from its first "-" on, be it in the name of
/// a folder; elsewhere the command, whose own name may hold one.
std::string WithoutSwitches(const std::string& command);

/// The path's short (8.3) form on Windows, elsewhere the path.
std::string ShortPath(const std::string& path);

/// A descriptor that becomes readable each time the system asks the program to end (SIGTERM, SIGINT, SIGHUP), which
/// from then on no longer ends it. -1 where the system does not ask so.
int TerminationRequests();

/// Takes one request off that descriptor.
void TakeTerminationRequest();

/// Starts another program with one argument, in a window of its own, without waiting. Fault if it cannot be started.
void StartProgram(const std::string& program, const std::string& argument);

} // namespace pistaro

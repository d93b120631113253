// Programs on Windows. Wide functions throughout: paths may hold any character.
#include "platform/processes.h"

#include "platform/fault.h"
#include "platform/files.h"
#include "platform/viewer_command.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>

namespace pistaro {

namespace {

std::wstring WideFromText(std::string_view utf8) { return PathFromText(utf8).wstring(); }

std::string TextFromWide(const std::wstring& wide) { return TextFromPath(std::filesystem::path(wide)); }

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

bool IsFile(const std::string& path) {
    std::error_code unreachable;
    return std::filesystem::is_regular_file(PathFromText(path), unreachable);
}

UINT codePageOfConsole = 0;

void RestoreConsole() { ::SetConsoleOutputCP(codePageOfConsole); }

bool IsMissing(DWORD stream) {
    const HANDLE handle = ::GetStdHandle(stream);
    return handle == nullptr || handle == INVALID_HANDLE_VALUE;
}

/// That of the Interruptions that live: a console's handler gets nothing but the event.
std::atomic<std::stop_source*> interrupted = nullptr;

BOOL WINAPI RequestStop(DWORD) {
    std::stop_source* const source = interrupted;
    if (source != nullptr) source->request_stop();
    return source != nullptr;
}

} // namespace

class Interruptions::Half {
public:
    Half() {
        interrupted = &Source;
        ::SetConsoleCtrlHandler(RequestStop, TRUE);
    }

    ~Half() {
        ::SetConsoleCtrlHandler(RequestStop, FALSE);
        interrupted = nullptr;
    }

    Half(const Half&) = delete;
    Half& operator=(const Half&) = delete;

    std::stop_source Source;
};

Interruptions::Interruptions() : half_(std::make_unique<Half>()) {}
Interruptions::~Interruptions() = default;
std::stop_token Interruptions::Stop() const { return half_->Source.get_token(); }

bool StandardErrorIsTerminal() { return ::_isatty(::_fileno(stderr)) != 0; }

std::vector<std::string> CommandLineArguments(int, char**) {
    int count = 0;
    LPWSTR* const words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i)
        arguments.push_back(TextFromWide(words[i]));
    ::LocalFree(words);
    return arguments;
}

unsigned long ProcessNumber() { return ::GetCurrentProcessId(); }

void ReportOutOfMemory() {
    std::fputs("pistaro: Out of memory\n", stderr);
    std::_Exit(EXIT_FAILURE);
}

void EndWhereMemoryIsMissing() {}

UncheckedMemory::UncheckedMemory() = default;
UncheckedMemory::~UncheckedMemory() = default;

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
    std::wstring commandLine = WideFromText(QuotedProgram(program, IsFile)) + L" " + Quoted(WideFromText(argument));
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

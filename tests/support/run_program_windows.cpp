// Starting the program with its streams in files.
#include "support/places.h"
#include "support/run_program.h"

#include "platform/files.h"
#include "platform/places.h"

#include <windows.h>

#include <stdexcept>

namespace pistaro {

namespace {

HANDLE Stream(const std::filesystem::path& file, DWORD access, DWORD disposition) {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    return ::CreateFileW(file.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, disposition, 0, nullptr);
}

/// A word so that the program reads it back as it was: blanks and quotes kept, backslashes before a quote doubled.
std::wstring Word(const std::wstring& text) {
    std::wstring word = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : text) {
        if (c == L'"') word.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        word += c;
    }
    return word.append(backslashes, L'\\') + L"\"";
}

} // namespace

// There is one such file for all, and one such folder.
ProgramFolder::~ProgramFolder() {
    std::error_code ignored;
    std::filesystem::remove(UsualSettings(), ignored);
    std::filesystem::remove_all(Recovered(), ignored);
}

Finished ProgramFolder::Run(const std::vector<std::string>& arguments, const std::string& input) const {
    WriteBytes(folder_ / "stdin", input);
    std::wstring line = Word(PathFromText(Program()).wstring());
    for (const std::string& argument : arguments)
        line += L" " + Word(PathFromText(argument).wstring());
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = Stream(folder_ / "stdin", GENERIC_READ, OPEN_EXISTING);
    start.hStdOutput = Stream(folder_ / "stdout", GENERIC_WRITE, CREATE_ALWAYS);
    start.hStdError = Stream(folder_ / "stderr", GENERIC_WRITE, CREATE_ALWAYS);
    ::SetEnvironmentVariableW(L"QT_QPA_PLATFORM", nullptr);
    PROCESS_INFORMATION process{};
    const BOOL started =
        ::CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, work_.c_str(), &start, &process);
    const DWORD error = ::GetLastError();
    for (const HANDLE stream : {start.hStdInput, start.hStdOutput, start.hStdError})
        ::CloseHandle(stream);
    if (started == 0) throw std::runtime_error("not started: error " + std::to_string(error));
    ::WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = 0;
    ::GetExitCodeProcess(process.hProcess, &status);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
    return {static_cast<int>(status), BytesOf(folder_ / "stdout"), BytesOf(folder_ / "stderr")};
}

std::filesystem::path ProgramFolder::UsualSettings() const { return SettingsPath(); }

std::filesystem::path ProgramFolder::Recovered() const { return RecoveryFolder(); }

std::filesystem::path ProgramFolder::Documents() const { return DocumentsFolder(); }

} // namespace pistaro

// Spawning the program with its streams in files.
#include "support/places.h"
#include "support/run_program.h"

#include <array>
#include <cstdlib>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

#include <fcntl.h>

namespace pistaro {

namespace {

void Redirect(const std::filesystem::path& file, int flags, int descriptor) {
    const int opened = ::open(file.c_str(), flags, 0600);
    if (opened < 0 || ::dup2(opened, descriptor) < 0) ::_exit(127);
}

} // namespace

ProgramFolder::~ProgramFolder() = default;

Finished ProgramFolder::Run(const std::vector<std::string>& arguments, const std::string& input) const {
    const auto in = folder_ / "stdin";
    const auto out = folder_ / "stdout";
    const auto errors = folder_ / "stderr";
    WriteBytes(in, input);
    std::vector<char*> words{const_cast<char*>(Program())};
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);

    const pid_t child = ::fork();
    if (child < 0) throw std::runtime_error("no child process");
    if (child == 0) {
        Redirect(in, O_RDONLY, 0);
        Redirect(out, O_WRONLY | O_CREAT | O_TRUNC, 1);
        Redirect(errors, O_WRONLY | O_CREAT | O_TRUNC, 2);
        ::setenv("HOME", home_.c_str(), 1);
        ::setenv("XDG_CONFIG_HOME", (home_ / "config").c_str(), 1);
        ::setenv("XDG_DATA_HOME", (home_ / "data").c_str(), 1);
        for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR", "QT_QPA_PLATFORM"})
            ::unsetenv(name);
        if (::chdir(work_.c_str()) == 0) ::execv(Program(), words.data());
        ::_exit(127);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, BytesOf(out), BytesOf(errors)};
}

std::filesystem::path ProgramFolder::UsualSettings() const { return home_ / "config" / "pistaro" / "corvel.ini"; }

std::filesystem::path ProgramFolder::Recovered() const { return home_ / "data" / "pistaro" / "recovery"; }

std::filesystem::path ProgramFolder::Documents() const { return home_ / "Documents"; }

} // namespace pistaro

// The built program beside a test, before somebody's eyes or not: it can be watched, interrupted and waited for.
#pragma once

#include "support/places.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <pty.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace pistaro {

/// The program in a folder, its output in the file "stdout" there, its errors on a terminal of its own or in a file.
class RunningProgram {
public:
    enum class Errors { OnTerminal, InFile };

    RunningProgram(const std::filesystem::path& folder, Errors errors, std::vector<std::string> arguments) {
        int terminal = -1;
        process_ = ::forkpty(&terminal, nullptr, nullptr, nullptr);
        if (process_ < 0) throw std::runtime_error("no terminal");
        if (process_ == 0) Become(folder, errors, arguments);
        terminal_ = terminal;
    }
    ~RunningProgram() {
        if (terminal_ >= 0) ::close(terminal_);
    }
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    /// All that was printed on the terminal until then; waits for `text` there, or for the program's end.
    const std::string& ReadTerminal(const std::string& text) {
        std::array<char, 4096> buffer{};
        while (printed_.find(text) == std::string::npos) {
            const ssize_t count = ::read(terminal_, buffer.data(), buffer.size());
            if (count <= 0) break;
            printed_.append(buffer.data(), static_cast<std::size_t>(count));
        }
        return printed_;
    }
    const std::string& ReadTerminal() { return ReadTerminal("never printed"); }

    /// Comes to nothing when the program has ended.
    void PressCtrlC() const {
        constexpr char ctrlC = 3;
        [[maybe_unused]] const ssize_t written = ::write(terminal_, &ctrlC, 1);
    }
    void Send(int signal) const { ::kill(process_, signal); }

    int Wait() const {
        int status = 0;
        ::waitpid(process_, &status, 0);
        return status;
    }

private:
    [[noreturn]] static void Become(const std::filesystem::path& folder, Errors errors,
                                    std::vector<std::string>& arguments) {
        ::setenv("HOME", (folder / "home").c_str(), 1);
        ::unsetenv("XDG_CONFIG_HOME");
        constexpr int flags = O_WRONLY | O_CREAT | O_TRUNC;
        ::dup2(::open((folder / "stdout").c_str(), flags, 0600), 1);
        if (errors == Errors::InFile) ::dup2(::open((folder / "stderr").c_str(), flags, 0600), 2);
        std::vector<char*> words{const_cast<char*>(Program())};
        for (std::string& argument : arguments)
            words.push_back(argument.data());
        words.push_back(nullptr);
        if (::chdir(folder.c_str()) == 0) ::execv(Program(), words.data());
        ::_exit(127);
    }

    pid_t process_ = -1;
    int terminal_ = -1;
    std::string printed_;
};

} // namespace pistaro

// A run through the system's shell, its streams in files.
#include "support/program.h"

#include "support/temporary_folder.h"

#include <cstdlib>
#include <sys/wait.h>

namespace pistaro {

namespace {

std::string Quoted(const std::string& word) { return "'" + word + "'"; }

} // namespace

ProgramRun RunProgram(const std::vector<std::string>& arguments) {
    const TemporaryFolder folder;
    const auto output = folder / "output";
    const auto errors = folder / "errors";
    std::string command = Quoted(PROGRAM);
    for (const std::string& argument : arguments)
        command += " " + Quoted(argument);
    command += " >" + Quoted(output.string()) + " 2>" + Quoted(errors.string());
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, BytesOf(output), BytesOf(errors)};
}

} // namespace pistaro

// The program itself, run as a user's shell runs it.
#pragma once

#include <string>
#include <vector>

namespace pistaro {

struct ProgramRun {
    int ExitStatus;
    std::string Output, Errors;
};

/// Runs the built program to its end with these arguments.
ProgramRun RunProgram(const std::vector<std::string>& arguments);

} // namespace pistaro

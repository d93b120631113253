// The program: a verb's job, else the designer's window.
#include "cli/command_line.h"
#include "platform/platform.h"

#include <iostream>

int main(int argc, char** argv) {
    pistaro::UseConsoleOfParent();
    const auto result =
        pistaro::RunCommandLine(pistaro::CommandLineArguments(argc, argv), std::cin, std::cout, std::cerr);
    return result.ExitStatus;
}

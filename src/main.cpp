// The program: a verb's job, else the designer's window.
#include "catalogue/catalogue.h"
#include "cli/command_line.h"
#include "platform/processes.h"
#include "ui/designer.h"

#include <iostream>

int main(int argc, char** argv) {
    using namespace pistaro;
    UseConsoleOfParent();
    const Catalogue catalogue = InitCatalogue();
    const auto result = RunCommandLine(catalogue, CommandLineArguments(argc, argv), std::cin, std::cout, std::cerr);
    return result.Designer ? RunDesigner(argc, argv, catalogue, *result.Designer) : result.ExitStatus;
}

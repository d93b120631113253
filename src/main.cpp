// The program: a verb's job, else the designer's window.
#include "cli/command_line.h"
#include "platform/places.h"
#include "platform/processes.h"
#include "ui/designer.h"

#include <iostream>

int main(int argc, char** argv) {
    using namespace pistaro;
    UseConsoleOfParent();
    const auto result = RunCommandLine(CommandLineArguments(argc, argv), std::cin, std::cout, std::cerr);
    if (!result.Designer) return result.ExitStatus;
    const DesignerOptions& options = *result.Designer;
    return RunDesigner(argc, argv, {options.Settings.value_or(SettingsPath()), options.Circuit, options.NoSplash});
}

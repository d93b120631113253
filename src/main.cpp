// The program: a verb's job, else the designer's window.
#include "catalogue/catalogue.h"
#include "cli/command_line.h"
#include "platform/places.h"
#include "platform/processes.h"
#include "ui/designer.h"

#include <iostream>

int main(int argc, char** argv) {
    using namespace pistaro;
    UseConsoleOfParent();
    const Catalogue catalogue = InitCatalogue();
    const auto result = RunCommandLine(catalogue, CommandLineArguments(argc, argv), std::cin, std::cout, std::cerr);
    if (!result.Designer) return result.ExitStatus;
    const DesignerOptions& options = *result.Designer;
    return RunDesigner(argc, argv, catalogue,
                       {options.SettingsFile.value_or(SettingsPath()), options.Circuit, options.NoSplash});
}

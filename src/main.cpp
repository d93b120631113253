// The program: a verb's job, else the designer's window.
#include "catalogue/catalogue.h"
#include "cli/command_line.h"
#include "platform/processes.h"
#include "ui/designer.h"

#include <cstdlib>
#include <exception>
#include <iostream>

namespace {

/// Memory may end where nobody can tell it any more: within the toolkit, in what must not throw, on another thread.
[[noreturn]] void OnTerminate() {
    try {
        if (const std::exception_ptr fault = std::current_exception()) std::rethrow_exception(fault);
    } catch (const std::bad_alloc&) {
        pistaro::ReportOutOfMemory();
    } catch (...) {
        std::abort();
    }
    std::abort();
}

} // namespace

int main(int argc, char** argv) {
    using namespace pistaro;
    std::set_terminate(OnTerminate);
    EndWhereMemoryIsMissing();
    UseConsoleOfParent();
    const Catalogue catalogue = InitCatalogue();
    const auto result = RunCommandLine(catalogue, CommandLineArguments(argc, argv), std::cin, std::cout, std::cerr);
    return result.Designer ? RunDesigner(argc, argv, catalogue, *result.Designer) : result.ExitStatus;
}

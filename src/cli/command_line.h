// The program's command line: one verb, one job, no window and no display.
#pragma once

#include "catalogue/catalogue.h"
#include "editor/start_up.h"

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace pistaro {

/// What became of the command line: either a verb's exit status, or the options of the window that is to be opened.
struct CommandLineResult {
    int ExitStatus = 0; ///< 0 done, 1 the input was refused, 2 the command line was wrong, 130 it was interrupted
    std::optional<DesignerOptions> Designer;
};

/// Reads the arguments (without the program's name) and does the verb's job.
CommandLineResult RunCommandLine(const Catalogue& catalogue, const std::vector<std::string>& arguments,
                                 std::istream& input, std::ostream& output, std::ostream& errors);

} // namespace pistaro

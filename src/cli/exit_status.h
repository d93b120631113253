// How the program ends with a verb: its exit status, and what is told of a fault.
#pragma once

#include "cli/verbs.h"

#include <functional>
#include <string>

namespace pistaro {

using VerbJob = std::function<void(const VerbContext&)>;

/// Does a verb's job. A fault is told on the standard error, in one line.
int ExitStatusOf(const VerbJob& job, const VerbContext& context);

/// A fault's words as one line, whatever stands in the name of a file among them.
std::string OnOneLine(std::string text);

} // namespace pistaro

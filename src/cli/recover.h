// Unsaved work on the command line: listed, and copied out.
#pragma once

#include "cli/verbs.h"

namespace pistaro {

/// Prints a line for each work that is found, the one written last first: its handle, the local time of that, its
/// number of pieces ("damaged" where the file is), and the file's path.
void ListRecoveredVerb(const VerbContext& context);

/// Copies a work to a file that is not there yet, and prints its path. `handle` is its handle, or the beginning of a
/// single one. Faults: none or several begin so; the work is damaged; the file is there already.
void CopyRecoveredVerb(const VerbContext& context, const std::string& handle, const std::filesystem::path& out);

} // namespace pistaro
